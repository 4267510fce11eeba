// Tables as text, by libcsv.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/maker/common/result.h"
#include "simulator/maker/text/text_file.h"

namespace maker {

struct CsvRow {
    int line = 0;  // where it begins
    std::vector<std::string> fields;
};

// The rows of a UTF-8 text, whose fields are parted by commas, semicolons or tabs, whichever the first row has most of,
// or by what a first line "sep=;" says. Empty lines, and with `comments` those that begin with #, are left out. Fails
// for a quote that is not closed.
Result<std::vector<CsvRow>> readCsv(const Text& text, bool comments);

// A column's title without case, blanks and signs: "E-mail 1 - Value" and "Email 1 Value" are "email1value". ASCII is
// folded, other letters stay.
std::string columnName(std::string_view title);

}  // namespace maker
