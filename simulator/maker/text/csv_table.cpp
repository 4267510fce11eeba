#include "simulator/maker/text/csv_table.h"

#include <csv.h>

#include <algorithm>
#include <cctype>

namespace maker {
namespace {

constexpr std::string_view kSeparators = ",;\t";

bool isLeftOut(std::string_view line, bool comments) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos || (comments && line[first] == '#');
}

// Outside of quotes.
std::ptrdiff_t countOf(char separator, std::string_view line) {
    std::ptrdiff_t count = 0;
    bool quoted = false;
    for (const char c : line) {
        if (c == '"') quoted = !quoted;
        if (c == separator && !quoted) ++count;
    }
    return count;
}

char separatorOf(std::string_view line) {
    return *std::max_element(kSeparators.begin(), kSeparators.end(),
                             [&](char a, char b) { return countOf(a, line) < countOf(b, line); });
}

struct Reading {
    std::vector<CsvRow> rows;
    CsvRow row;
};

void takeField(void* bytes, std::size_t length, void* reading) {
    static_cast<Reading*>(reading)->row.fields.emplace_back(static_cast<const char*>(bytes), length);
}

void endRow(int /*end*/, void* data) {
    auto* reading = static_cast<Reading*>(data);
    reading->rows.push_back(std::exchange(reading->row, {}));
}

// One parser's memory.
class Parser {
  public:
    explicit Parser(char separator) {
        csv_init(&parser_, 0);
        csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    }
    ~Parser() { csv_free(&parser_); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    bool take(std::string_view line, Reading& reading) {
        return csv_parse(&parser_, line.data(), line.size(), takeField, endRow, &reading) == line.size();
    }
    // Whether a row has begun and goes on in the next line.
    bool isInside() const { return parser_.pstate != 0; }

  private:
    csv_parser parser_{};
};

}  // namespace

Result<std::vector<CsvRow>> readCsv(const Text& text, bool comments) {
    std::vector<TextLine> lines = linesOf(text.bytes);
    char separator = 0;
    if (!lines.empty() && lines.front().bytes.size() == 5 && lines.front().bytes.substr(0, 4) == "sep=") {
        separator = lines.front().bytes[4];
        lines.erase(lines.begin());
    }
    const auto first = std::find_if(lines.begin(), lines.end(),
                                    [&](const TextLine& line) { return !isLeftOut(line.bytes, comments); });
    if (first == lines.end()) return std::vector<CsvRow>();
    Parser parser(separator != 0 ? separator : separatorOf(first->bytes));
    Reading reading;
    for (const TextLine& line : lines) {
        if (!parser.isInside()) {
            if (isLeftOut(line.bytes, comments)) continue;
            reading.row.line = line.number;
        }
        if (!parser.take(std::string(line.bytes) + "\n", reading))
            return failure(placeOf(text.file, line.number) + ": cannot be read as CSV");
    }
    // Nothing but an open quote takes a row beyond the end of its line.
    if (parser.isInside())
        return failure(placeOf(text.file, reading.row.line) + ": a quote opens here and is never closed");
    return std::move(reading.rows);
}

std::string columnName(std::string_view title) {
    std::string name;
    for (const char c : title) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80 || std::isalnum(byte) != 0) name += static_cast<char>(std::tolower(byte));
    }
    return name;
}

}  // namespace maker
