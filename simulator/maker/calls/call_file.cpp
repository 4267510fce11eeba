#include "simulator/maker/calls/call_file.h"

#include <charconv>
#include <cmath>
#include <ctime>
#include <string_view>

#include "simulator/maker/common/read_file.h"

namespace maker {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blank = " \t\r";
    std::size_t first = text.find_first_not_of(blank);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blank) - first + 1);
}

std::vector<std::string> fieldsOf(std::string_view line) {
    std::vector<std::string> fields;
    for (std::size_t start = 0; start <= line.size();) {
        std::size_t end = std::min(line.find(',', start), line.size());
        fields.emplace_back(trimmed(line.substr(start, end - start)));
        start = end + 1;
    }
    return fields;
}

std::optional<int> wholeNumber(std::string_view text) {
    int number = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0) return std::nullopt;
    return number;
}

std::optional<double> readAgo(std::string_view text) {
    if (text.size() < 3 || text.front() != '-') return std::nullopt;
    constexpr std::string_view units = "smhd";
    constexpr int seconds[] = {1, 60, 3600, 86400};
    std::size_t unit = units.find(text.back());
    std::optional<int> count = wholeNumber(text.substr(1, text.size() - 2));
    if (unit == std::string_view::npos || !count) return std::nullopt;
    return static_cast<double>(*count) * seconds[unit];
}

std::optional<CallKind> readKind(std::string_view text) {
    if (text == "incoming") return CallKind::incoming;
    if (text == "outgoing") return CallKind::outgoing;
    if (text == "missed") return CallKind::missed;
    return std::nullopt;
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
    // The database knows a missed call only by its duration.
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

}  // namespace

std::optional<double> readDate(const std::string& text) {
    for (const char* format : {"%Y-%m-%d %H:%M:%S", "%Y-%m-%d %H:%M", "%Y-%m-%dT%H:%M:%S", "%Y-%m-%dT%H:%M"}) {
        std::tm parts{};
        const char* end = strptime(text.c_str(), format, &parts);
        if (!end || *end) continue;
        const int day = parts.tm_mday;
        const time_t seconds = timegm(&parts);
        // It takes the 31st of February for the 3rd of March.
        if (parts.tm_mday == day) return static_cast<double>(seconds);
    }
    return std::nullopt;
}

bool isCallFile(const std::filesystem::path& file) { return file.extension() == ".csv" || file.extension() == ".txt"; }

Result<std::vector<WrittenCall>> readCallFile(const std::filesystem::path& file, double now, const Progress& progress) {
    Result<std::string> content = readFile(file, progress);
    if (!content) return failure(content);
    std::vector<WrittenCall> calls;
    int number = 0;
    for (std::size_t start = 0; start < content->size();) {
        std::size_t end = std::min(content->find('\n', start), content->size());
        std::string_view line = trimmed(std::string_view(*content).substr(start, end - start));
        start = end + 1;
        ++number;
        if (line.empty() || line.front() == '#') continue;
        Result<WrittenCall> call = readCall(fieldsOf(line), now);
        if (!call) return failure(file.string() + ", line " + std::to_string(number) + ": " + call.error().message);
        calls.push_back(std::move(*call));
    }
    return calls;
}

}  // namespace maker
