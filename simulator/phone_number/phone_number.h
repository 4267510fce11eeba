// Phone numbers on libphonenumber: which spellings are one number, and how a number is shown. Plain C++: the frameworks
// that read an address book and the tool that makes one share it. Every function may be called from any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace phone_number {

// How surely two spellings are the same number; higher is surer.
enum class Match { none, shortForm, national, exact };

// Compares two spellings as a phone in `region` ("US") reads them: a spelling without country code belongs to that
// country. shortForm: the one is the other without its area code, of at least 7 digits. Texts that are no phone numbers
// (service codes) match only when they dial the same.
Match compare(std::string_view a, std::string_view b, std::string_view region);

// A number's last four digits (all, when fewer), western digits whatever script it is written in, by which
// ABPhoneLastFour finds it. Up to two results: without its extension, as numbers compare, then all that is written.
// None: no digits.
std::vector<std::string> lastFour(std::string_view text, std::string_view region);

// The form for display: national for numbers of `region`, international for others, and the text as it is when it is
// not a possible phone number.
std::string displayForm(std::string_view text, std::string_view region);

// Whether numbers of that country are known: two capital letters of ISO 3166.
bool isRegion(std::string_view region);

}  // namespace phone_number
