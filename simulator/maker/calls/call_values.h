// What stands in a call log's fields: moments, durations and kinds, as people and programs write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/maker/contacts/contact.h"

namespace maker {

// A written moment ("2015-06-01 09:41", with seconds if need be) in UTC, as seconds since 1970-01-01 UTC; nothing when
// it is none.
std::optional<double> readDate(const std::string& text);

// Whether 03/04/2015 is in April or in March; nothing but another date of the same file says so.
enum class DayOrder { unknown, dayFirst, monthFirst };

// What the date says about it: 13/04/2015 has its day first. `unknown` for other forms and for what may be either.
DayOrder dayOrderOf(const std::string& text);

// A moment in any common form, as seconds since 1970-01-01 UTC: ISO 8601 with or without zone, day or month first with
// slashes (as `order` says; nothing when that is not known), 1.6.2015, "Jun 1, 2015", with 12 or 24 hours, and seconds
// or milliseconds since 1970. Without a zone it is UTC. Nothing when it is none.
std::optional<double> readMoment(const std::string& text, DayOrder order);

// Seconds: "63", "63.4", "1:03", "0:01:03", "1h 2m 3s", "1 min 3 sec".
std::optional<int> readDuration(const std::string& text);

// A call's kind by its word ("Incoming", "dialled", "rejected") or by Android's number; nothing for another word.
// Rejected and blocked calls, and those that went to voice mail, are missed ones.
std::optional<CallKind> readKind(std::string_view text);

// A number of digits and nothing else.
std::optional<int> wholeNumber(std::string_view text);

}  // namespace maker
