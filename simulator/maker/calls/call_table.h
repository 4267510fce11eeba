// Call logs as tables whose first row names the columns, as apps and carriers export them.
//
// Known are, in English, German, French and Spanish and by several names each: date, time (if it has a column of its
// own), number, kind, duration and name. Others are passed over. Moments without a zone are UTC.
#pragma once

#include <string>
#include <vector>

#include "simulator/maker/calls/written_call.h"
#include "simulator/maker/common/findings.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/text/csv_table.h"

namespace maker {

// Whether a first row names such columns.
bool isCallsHeader(const CsvRow& row);

// The calls of rows, of which the first names the columns. Fails, naming file and line, for one that cannot be read and
// for dates of which nothing says whether day or month comes first. What was mended to fit a call history is a finding.
Result<std::vector<WrittenCall>> readCallTable(const std::string& file, const std::vector<CsvRow>& rows,
                                               Findings& findings);

// Makes a call's duration fit its kind, for a history that tells missed calls by their duration; a finding for `line`
// when it had to.
void fitDuration(Call& call, const std::string& file, int line, Findings& findings);

}  // namespace maker
