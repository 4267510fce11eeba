// A call history as a text file: the one that a person can write, a table with a header (call_table.h), or the XML of a
// backup (call_xml.h).
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
// e-mail address; "unlinked" in the last field keeps a history that remembers contacts (call_history.db) from knowing
// this one, as after a restore.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "simulator/maker/calls/written_call.h"
#include "simulator/maker/common/findings.h"
#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"

namespace maker {

// Whether a file is such a text and not a phone's database: the latter is named so (.db, .storedata, .sqlite) or begins
// as SQLite's files do.
bool isCallFile(const std::filesystem::path& file);

struct CallFileOptions {
    double now = 0;       // seconds since 1970-01-01 UTC
    std::string charset;  // of bytes that are not UTF-8; empty: not known
};

// Reads such a file. A line that is wrong fails the whole, naming file and line; what was mended is a finding.
Result<std::vector<WrittenCall>> readCallFile(const std::filesystem::path& file, const CallFileOptions& options,
                                              Findings& findings, const Progress& progress = {});

}  // namespace maker
