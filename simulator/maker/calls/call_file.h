// A call history as a text file that a person can write.
//
//   # when, number, kind, seconds, "unlinked"
//   2015-06-01 09:41, +1 555 010 0199, incoming, 63
//   -2h,  (555) 010-0123, missed
//   -1d,  bob@example.com, outgoing, 12
//   -3d,  +49 30 1234567, incoming, 5, unlinked
//   -4d,  Unknown, missed
//
// One call a line; blank lines and lines that begin with # are skipped. `when` is a date and time in UTC, or how long
// before the root was made (s, m, h, d). `kind` is incoming, outgoing or missed. `seconds` is how long it lasted; 0
// unless given. The caller is the contact that has this number (national and international spellings are one number) or
// e-mail address; "unlinked" in the last field keeps the history from knowing the contact, as after a restore.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/contact.h"

namespace maker {

struct WrittenCall {
    Call call;  // contact and name are not yet known
    bool unlinked = false;
};

// A written moment ("2015-06-01 09:41", with seconds if need be) in UTC, as seconds since 1970-01-01 UTC; nothing when
// it is none.
std::optional<double> readDate(const std::string& text);

// Whether a file's name says that it is such a text (.csv, .txt) and not a phone's database.
bool isCallFile(const std::filesystem::path& file);

// Reads such a file; `now` is seconds since 1970-01-01 UTC. A line that is wrong fails the whole, naming file and line.
Result<std::vector<WrittenCall>> readCallFile(const std::filesystem::path& file, double now,
                                              const Progress& progress = {});

}  // namespace maker
