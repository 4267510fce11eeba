// The phone's databases as they lie on disk: tables, column names and indexes of phones of the period.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace maker {

struct DatabaseShape {
    const char* what;                                                        // for messages: "an address book"
    const char* path;                                                        // inside a root, relative
    const char* sql;                                                         // creates it empty
    std::vector<std::pair<std::string, std::vector<std::string>>> required;  // table, columns that hosts and tool use
};

const DatabaseShape& addressBookShape();
const DatabaseShape& imagesShape();
const DatabaseShape& callsShape();
// All three.
std::array<const DatabaseShape*, 3> databaseShapes();

// ABMultiValue.property
constexpr int kPhoneProperty = 3;
constexpr int kEmailProperty = 4;

// ABThumbnailImage.format of the square pictures that lists show.
constexpr int kThumbnailFormat = 0;

// call.flags: an odd number is an outgoing call. An incoming call that lasted 0 seconds was missed.
constexpr int kIncomingCall = 4;
constexpr int kOutgoingCall = 5;

// The address book counts seconds from 2001-01-01 00:00 UTC, the call history from 1970-01-01: add this to the former.
constexpr double kAddressBookEpoch = 978307200.0;

}  // namespace maker
