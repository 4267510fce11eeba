// What goes into a phone's databases: persons and calls, wherever they come from.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace maker {

struct LabelledValue {
    std::string value;
    std::string label;  // as the phone stores it, "_$!<Mobile>!$_", or any text; empty: none
};

// A missing name is NULL in the database, an empty one an empty text: readers treat them differently.
struct Person {
    std::optional<std::string> first;
    std::optional<std::string> last;
    std::optional<std::string> middle;
    std::optional<std::string> prefix;
    std::optional<std::string> suffix;
    std::optional<std::string> nickname;
    std::optional<std::string> organization;
    std::vector<LabelledValue> phones;
    std::vector<LabelledValue> emails;
    std::string city;  // of the home address, which is a value without text, made of entries; empty: no address
    // An encoded picture (JPEG, PNG, ...), kept as the full-size image and made into the thumbnail. Empty: none.
    std::string photo;
    // Persons that share this text are linked contacts of one person. Empty: linked to nobody.
    std::string linkedAs;
    // Seconds since 2001-01-01 UTC.
    double created = 0;
    double modified = 0;

    bool isCompany() const { return !first && !last && organization.has_value(); }
    // First and last name, else the organization, nickname, first number or e-mail address; may be empty.
    std::string displayName() const;
};

enum class CallKind { incoming, outgoing, missed };

struct Call {
    std::string address;
    double date = 0;   // seconds since 1970-01-01 UTC
    int duration = 0;  // seconds; a missed call's is 0
    CallKind kind = CallKind::incoming;
    int contact = -1;         // the caller's contact ID, or -1
    std::string name;         // the caller's name as the history keeps it; empty: none
    std::string countryCode;  // mobile country code ("310"); empty: none
};

}  // namespace maker
