#include "simulator/maker/calls/call_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <ctime>

#include "simulator/maker/text/csv_table.h"

namespace maker {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// What is left of a text while it is read.
class Reader {
  public:
    explicit Reader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    std::string_view rest() const { return rest_; }
    void skip(std::string_view characters) {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(characters), rest_.size()));
    }
    bool take(std::string_view word) {
        const auto isSame = [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); };
        if (rest_.size() < word.size() || !std::equal(word.begin(), word.end(), rest_.begin(), isSame)) return false;
        rest_.remove_prefix(word.size());
        return true;
    }
    // Of so many digits at most.
    std::optional<int> number(std::size_t longest = 9) {
        const std::size_t digits = std::min({rest_.find_first_not_of("0123456789"), rest_.size(), longest});
        const std::optional<int> value = wholeNumber(rest_.substr(0, digits));
        if (value) rest_.remove_prefix(digits);
        return value;
    }

  private:
    std::string_view rest_;
};

struct Day {
    int year = 0, month = 0, day = 0;
};

// Midnight UTC; nothing for a day that the calendar does not have.
std::optional<double> secondsOf(Day day) {
    if (day.year < 100) day.year += 2000;
    std::tm parts{};
    parts.tm_year = day.year - 1900;
    parts.tm_mon = day.month - 1;
    parts.tm_mday = day.day;
    const time_t seconds = timegm(&parts);
    // It takes the 31st of February for the 3rd of March.
    if (day.year < 1000 || parts.tm_mday != day.day || parts.tm_mon != day.month - 1) return std::nullopt;
    return static_cast<double>(seconds);
}

// Three numbers, parted by the sign.
std::optional<std::array<int, 3>> readTriple(Reader& reader, std::string_view sign) {
    Reader attempt = reader;
    std::array<int, 3> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i > 0 && !attempt.take(sign)) return std::nullopt;
        if (i > 0) attempt.skip(" ");
        const std::optional<int> number = attempt.number(4);
        if (!number) return std::nullopt;
        numbers[i] = *number;
    }
    reader = attempt;
    return numbers;
}

std::optional<int> readMonthName(Reader& reader) {
    constexpr const char* names[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                     "jul", "aug", "sep", "oct", "nov", "dec"};
    for (int month = 0; month < 12; ++month) {
        if (!reader.take(names[month])) continue;
        // "June", "Sept."
        reader.skip("abcdefghijklmnopqrstuvwxyz.");
        return month + 1;
    }
    return std::nullopt;
}

void skipWeekday(Reader& reader) {
    for (const char* name : {"mon", "tue", "wed", "thu", "fri", "sat", "sun"}) {
        if (!reader.take(name)) continue;
        reader.skip("abcdefghijklmnopqrstuvwxyz");
        reader.skip(", ");
        return;
    }
}

// "Jun 1, 2015", "1 June 2015", "1-Jun-2015".
std::optional<Day> readNamedDay(Reader& reader) {
    const std::optional<int> before = reader.number(2);
    reader.skip(" -.");
    const std::optional<int> month = readMonthName(reader);
    reader.skip(" -,");
    const std::optional<int> after = before ? before : reader.number(2);
    reader.skip(" -,");
    const std::optional<int> year = reader.number(4);
    if (!month || !after || !year) return std::nullopt;
    return Day{*year, *month, *after};
}

std::optional<Day> readDay(Reader& reader, DayOrder order) {
    skipWeekday(reader);
    if (const auto iso = readTriple(reader, "-")) {
        if ((*iso)[0] >= 1000) return Day{(*iso)[0], (*iso)[1], (*iso)[2]};
        if (order == DayOrder::unknown) return std::nullopt;
        return order == DayOrder::dayFirst ? Day{(*iso)[2], (*iso)[1], (*iso)[0]}
                                           : Day{(*iso)[2], (*iso)[0], (*iso)[1]};
    }
    if (const auto dotted = readTriple(reader, ".")) return Day{(*dotted)[2], (*dotted)[1], (*dotted)[0]};
    if (const auto slashed = readTriple(reader, "/")) {
        if ((*slashed)[0] >= 1000) return Day{(*slashed)[0], (*slashed)[1], (*slashed)[2]};
        if (order == DayOrder::unknown) return std::nullopt;
        const bool dayFirst = order == DayOrder::dayFirst;
        return Day{(*slashed)[2], (*slashed)[dayFirst ? 1 : 0], (*slashed)[dayFirst ? 0 : 1]};
    }
    return readNamedDay(reader);
}

// Seconds since midnight.
std::optional<double> readTime(Reader& reader) {
    const std::optional<int> hour = reader.number(2);
    if (!hour || !(reader.take(":") || reader.take("."))) return std::nullopt;
    const std::optional<int> minute = reader.number(2);
    std::optional<int> second = 0;
    if (reader.take(":") || reader.take(".")) second = reader.number(2);
    if (reader.take(".") || reader.take(",")) reader.skip("0123456789");
    if (!minute || !second || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
    int hours = *hour;
    reader.skip(" ");
    const bool isMorning = reader.take("am") || reader.take("a.m.");
    const bool isEvening = !isMorning && (reader.take("pm") || reader.take("p.m."));
    if ((isMorning || isEvening) && (hours < 1 || hours > 12)) return std::nullopt;
    if (isMorning && hours == 12) hours = 0;
    if (isEvening && hours < 12) hours += 12;
    return hours * 3600.0 + *minute * 60.0 + *second;
}

// Seconds by which the zone is ahead of UTC.
std::optional<double> readZone(Reader& reader) {
    reader.skip(" ");
    const bool named = reader.take("z") || reader.take("utc") || reader.take("gmt");
    if (named && reader.atEnd()) return 0;
    const int sign = reader.take("+") ? 1 : (reader.take("-") ? -1 : 0);
    if (sign == 0) return named || reader.atEnd() ? std::optional<double>(0) : std::nullopt;
    const std::optional<int> hours = reader.number(2);
    reader.skip(":");
    const std::optional<int> minutes = reader.atEnd() ? 0 : reader.number(2);
    if (!hours || !minutes || *hours > 14 || *minutes > 59) return std::nullopt;
    return sign * (*hours * 3600.0 + *minutes * 60.0);
}

// Seconds, or milliseconds, since 1970: ten digits are enough until 2286, and thirteen are of no call before 2001.
std::optional<double> readCount(const std::string& text) {
    std::int64_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || text.size() < 9) return std::nullopt;
    return std::floor(static_cast<double>(count) / (text.size() >= 12 ? 1000 : 1));
}

// The narrow blanks that some systems write before AM and PM.
std::string withPlainBlanks(std::string text) {
    for (const std::string_view blank : {"\u202F", "\u00A0", "\u2009"}) {
        for (std::size_t place; (place = text.find(blank)) != std::string::npos;)
            text.replace(place, blank.size(), " ");
    }
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    text.erase(0, first);
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

}  // namespace

std::optional<int> wholeNumber(std::string_view text) {
    int number = 0;
    if (text.empty() || !isDigit(text.front())) return std::nullopt;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<double> readDate(const std::string& text) {
    // Digits alone are no date that a person writes, and midnight is not meant by one without a time.
    const bool plain = text.find_first_not_of("0123456789-: T") == std::string::npos;
    return plain && text.find(':') != std::string::npos ? readMoment(text, DayOrder::unknown) : std::nullopt;
}

DayOrder dayOrderOf(const std::string& text) {
    const std::string plain = withPlainBlanks(text);
    for (const char* sign : {"/", "-"}) {
        Reader reader(plain);
        const auto numbers = readTriple(reader, sign);
        if (!numbers || (*numbers)[0] >= 1000) continue;
        if ((*numbers)[0] > 12) return DayOrder::dayFirst;
        if ((*numbers)[1] > 12) return DayOrder::monthFirst;
    }
    return DayOrder::unknown;
}

std::optional<double> readMoment(const std::string& text, DayOrder order) {
    const std::string plain = withPlainBlanks(text);
    if (const std::optional<double> count = readCount(plain)) return count;
    Reader reader(plain);
    const std::optional<Day> day = readDay(reader, order);
    const std::optional<double> midnight = day ? secondsOf(*day) : std::nullopt;
    if (!midnight) return std::nullopt;
    reader.skip(" ,");
    if (reader.take("t") || reader.take("at")) reader.skip(" ");
    if (reader.atEnd()) return midnight;
    const std::optional<double> time = readTime(reader);
    const std::optional<double> zone = time ? readZone(reader) : std::nullopt;
    if (!zone || !reader.atEnd()) return std::nullopt;
    return *midnight + *time - *zone;
}

std::optional<int> readDuration(const std::string& text) {
    const std::string plain = withPlainBlanks(text);
    Reader reader(plain);
    std::int64_t total = 0;
    bool counted = false;
    while (!reader.atEnd()) {
        const std::optional<int> number = reader.number();
        if (!number) return std::nullopt;
        reader.skip(" ");
        counted = true;
        if (reader.take(":")) {
            total = (total + *number) * 60;
            continue;
        }
        // The longer words first.
        if (reader.take("hours") || reader.take("hour") || reader.take("hrs") || reader.take("hr") ||
            reader.take("h")) {
            total += std::int64_t{*number} * 3600;
        } else if (reader.take("minutes") || reader.take("minute") || reader.take("mins") || reader.take("min") ||
                   reader.take("m")) {
            total += std::int64_t{*number} * 60;
        } else {
            total += *number;
            if (reader.take(".") || reader.take(",")) reader.skip("0123456789");
            reader.skip(" ");
            static_cast<void>(reader.take("seconds") || reader.take("second") || reader.take("secs") ||
                              reader.take("sec") || reader.take("s"));
            reader.skip(" ");
            if (!reader.atEnd()) return std::nullopt;
        }
        reader.skip(" ,");
    }
    constexpr std::int64_t longest = std::int64_t{31} * 86400;
    if (!counted || total > longest) return std::nullopt;
    return static_cast<int>(total);
}

std::optional<CallKind> readKind(std::string_view text) {
    constexpr std::string_view incoming[] = {"incoming", "in",        "inbound",     "received", "answered",
                                             "1",        "eingehend", "eingehender", "eingang",  "angenommen",
                                             "entrant",  "reçu",      "entrante"};
    constexpr std::string_view outgoing[] = {"outgoing", "out",     "outbound", "dialed",    "dialled",
                                             "placed",   "made",    "2",        "ausgehend", "ausgehender",
                                             "ausgang",  "gewählt", "sortant",  "émis",      "saliente"};
    constexpr std::string_view missed[] = {"missed",     "unanswered", "notanswered", "noanswer",  "rejected",
                                           "declined",   "refused",    "blocked",     "voicemail", "verpasst",
                                           "verpasster", "entgangen",  "abgelehnt",   "manqué",    "perdida",
                                           "3",          "4",          "5",           "6"};
    std::string word = columnName(text);
    for (const std::string_view ending : {"calls", "call", "anruf"}) {
        if (word.size() > ending.size() && std::string_view(word).substr(word.size() - ending.size()) == ending) {
            word.resize(word.size() - ending.size());
            break;
        }
    }
    const auto isIn = [&](const auto& words) {
        return std::find(std::begin(words), std::end(words), word) != std::end(words);
    };
    if (isIn(incoming)) return CallKind::incoming;
    if (isIn(outgoing)) return CallKind::outgoing;
    if (isIn(missed)) return CallKind::missed;
    return std::nullopt;
}

}  // namespace maker
