#include "simulator/maker/calls/call_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <string_view>

#include "simulator/maker/calls/call_table.h"
#include "simulator/maker/calls/call_values.h"
#include "simulator/maker/calls/call_xml.h"
#include "simulator/maker/text/csv_table.h"
#include "simulator/maker/text/text_file.h"

namespace maker {
namespace {

std::optional<double> readAgo(std::string_view text) {
    if (text.size() < 3 || text.front() != '-') return std::nullopt;
    constexpr std::string_view units = "smhd";
    constexpr int seconds[] = {1, 60, 3600, 86400};
    std::size_t unit = units.find(text.back());
    std::optional<int> count = wholeNumber(text.substr(1, text.size() - 2));
    if (unit == std::string_view::npos || !count) return std::nullopt;
    return static_cast<double>(*count) * seconds[unit];
}

Result<WrittenCall> readCall(const std::vector<std::string>& fields, double now) {
    if (fields.size() < 3) return failure("a call needs a time, a number and a kind");
    if (fields.size() > 5) return failure("there are more than five fields");
    WrittenCall written;
    std::optional<double> ago = readAgo(fields[0]);
    std::optional<double> date = ago ? std::floor(now - *ago) : readDate(fields[0]);
    if (!date) return failure("\"" + fields[0] + "\" is neither a date (2015-06-01 09:41) nor a time ago (-2h)");
    std::optional<CallKind> kind = readKind(fields[2]);
    if (!kind) return failure("\"" + fields[2] + "\" is not incoming, outgoing or missed");
    if (fields.size() > 3 && !fields[3].empty()) {
        std::optional<int> seconds = wholeNumber(fields[3]);
        if (!seconds) return failure("\"" + fields[3] + "\" is no number of seconds");
        written.call.duration = *seconds;
    }
    // A database of before version 8 knows a missed call only by its duration.
    if ((*kind == CallKind::missed) && written.call.duration != 0) return failure("a missed call lasts 0 seconds");
    if (*kind == CallKind::incoming && written.call.duration == 0) {
        return failure("an incoming call of 0 seconds is a missed one: give its seconds");
    }
    if (fields.size() > 4 && !fields[4].empty()) {
        if (fields[4] != "unlinked")
            return failure("the last field can only be \"unlinked\", not \"" + fields[4] + "\"");
        written.unlinked = true;
    }
    written.call.address = fields[1];
    written.call.date = *date;
    written.call.kind = *kind;
    return written;
}

Result<std::vector<WrittenCall>> readWritten(const std::string& file, const std::vector<CsvRow>& rows, double now) {
    std::vector<WrittenCall> calls;
    for (const CsvRow& row : rows) {
        Result<WrittenCall> call = readCall(row.fields, now);
        if (!call) return failure(placeOf(file, row.line) + ": " + call.error().message);
        calls.push_back(std::move(*call));
    }
    return calls;
}

bool beginsAsXml(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\n");
    return first != std::string::npos && text[first] == '<';
}

}  // namespace

bool isCallFile(const std::filesystem::path& file) {
    for (const char* ending : {".db", ".storedata", ".sqlite", ".sqlitedb"})
        if (file.extension() == ending) return false;
    // A pipe has a beginning only once.
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return true;
    std::array<char, 16> head{};
    std::ifstream(file, std::ios::binary).read(head.data(), head.size());
    return std::string_view(head.data(), head.size()) != std::string_view("SQLite format 3\0", 16);
}

Result<std::vector<WrittenCall>> readCallFile(const std::filesystem::path& file, const CallFileOptions& options,
                                              Findings& findings, const Progress& progress) {
    Result<Text> text = readText(file, findings, progress);
    if (!text) return failure(text);
    if (beginsAsXml(text->bytes)) return readCallXml(std::move(*text), options.charset, findings);
    makeUtf8(*text, options.charset, findings);
    Result<std::vector<CsvRow>> rows = readCsv(*text, true);
    if (!rows) return failure(rows);
    if (!rows->empty() && isCallsHeader(rows->front())) return readCallTable(text->file, *rows, findings);
    return readWritten(text->file, *rows, options.now);
}

}  // namespace maker
