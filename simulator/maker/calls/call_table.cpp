#include "simulator/maker/calls/call_table.h"

#include <algorithm>
#include <map>
#include <optional>

#include "simulator/maker/calls/call_values.h"

namespace maker {
namespace {

enum class Column { moment, time, number, kind, duration, name };

// Names as columnName() makes them.
const std::map<std::string, Column>& columnNames() {
    static const std::map<std::string, Column> names = {{"date", Column::moment},
                                                        {"datetime", Column::moment},
                                                        {"dateandtime", Column::moment},
                                                        {"timestamp", Column::moment},
                                                        {"when", Column::moment},
                                                        {"calldate", Column::moment},
                                                        {"starttime", Column::moment},
                                                        {"started", Column::moment},
                                                        {"datum", Column::moment},
                                                        {"fecha", Column::moment},
                                                        {"time", Column::time},
                                                        {"calltime", Column::time},
                                                        {"uhrzeit", Column::time},
                                                        {"zeit", Column::time},
                                                        {"heure", Column::time},
                                                        {"hora", Column::time},
                                                        {"number", Column::number},
                                                        {"phonenumber", Column::number},
                                                        {"phone", Column::number},
                                                        {"callnumber", Column::number},
                                                        {"contactnumber", Column::number},
                                                        {"address", Column::number},
                                                        {"caller", Column::number},
                                                        {"fromto", Column::number},
                                                        {"tofrom", Column::number},
                                                        {"nummer", Column::number},
                                                        {"rufnummer", Column::number},
                                                        {"telefonnummer", Column::number},
                                                        {"numéro", Column::number},
                                                        {"número", Column::number},
                                                        {"type", Column::kind},
                                                        {"kind", Column::kind},
                                                        {"calltype", Column::kind},
                                                        {"direction", Column::kind},
                                                        {"typ", Column::kind},
                                                        {"art", Column::kind},
                                                        {"richtung", Column::kind},
                                                        {"tipo", Column::kind},
                                                        {"duration", Column::duration},
                                                        {"durations", Column::duration},
                                                        {"durationsec", Column::duration},
                                                        {"durationseconds", Column::duration},
                                                        {"durationinseconds", Column::duration},
                                                        {"durationhhmmss", Column::duration},
                                                        {"callduration", Column::duration},
                                                        {"seconds", Column::duration},
                                                        {"length", Column::duration},
                                                        {"talktime", Column::duration},
                                                        {"dauer", Column::duration},
                                                        {"durée", Column::duration},
                                                        {"duración", Column::duration},
                                                        {"name", Column::name},
                                                        {"contact", Column::name},
                                                        {"contactname", Column::name},
                                                        {"cachedname", Column::name},
                                                        {"kontakt", Column::name},
                                                        {"nom", Column::name},
                                                        {"nombre", Column::name}};
    return names;
}

// Which field of a row holds what.
class Layout {
  public:
    explicit Layout(const CsvRow& header) {
        for (std::size_t i = 0; i < header.fields.size(); ++i) {
            const auto known = columnNames().find(columnName(header.fields[i]));
            if (known != columnNames().end()) columns_.emplace(known->second, i);
        }
        // A lone time is the moment.
        if (!has(Column::moment) && has(Column::time)) columns_[Column::moment] = columns_[Column::time];
    }
    bool has(Column column) const { return columns_.contains(column); }
    std::string text(const CsvRow& row, Column column) const {
        const auto found = columns_.find(column);
        return found == columns_.end() || found->second >= row.fields.size() ? "" : row.fields[found->second];
    }
    std::string moment(const CsvRow& row) const {
        const std::string date = text(row, Column::moment);
        const bool apart = has(Column::time) && columns_.at(Column::time) != columns_.at(Column::moment);
        return apart ? date + " " + text(row, Column::time) : date;
    }

  private:
    std::map<Column, std::size_t> columns_;
};

DayOrder commonOrder(const Layout& layout, const std::vector<CsvRow>& rows) {
    for (const CsvRow& row : rows) {
        const DayOrder order = dayOrderOf(layout.moment(row));
        if (order != DayOrder::unknown) return order;
    }
    return DayOrder::unknown;
}

std::string notADate(const std::string& text, DayOrder order) {
    const bool either = order == DayOrder::unknown && readMoment(text, DayOrder::dayFirst).has_value();
    if (either) {
        return "in \"" + text +
               "\" nothing says whether the day or the month comes first, and no other date of this file does; write "
               "dates as 2015-06-01 09:41";
    }
    return "\"" + text + "\" is no date and time such as 2015-06-01 09:41";
}

Result<WrittenCall> readRow(const Layout& layout, const CsvRow& row, DayOrder order) {
    WrittenCall written;
    const std::string moment = layout.moment(row);
    const std::optional<double> date = readMoment(moment, order);
    if (!date) return failure(notADate(moment, order));
    const std::string word = layout.text(row, Column::kind);
    const std::optional<CallKind> kind = readKind(word);
    if (!kind) return failure("\"" + word + "\" is no kind of call such as incoming, outgoing, missed or rejected");
    const std::string lasted = layout.text(row, Column::duration);
    const std::optional<int> duration = lasted.empty() ? 0 : readDuration(lasted);
    if (!duration) return failure("\"" + lasted + "\" is no duration such as 63, 1:03 or 0:01:03");
    written.call.address = layout.text(row, Column::number);
    written.call.name = layout.text(row, Column::name);
    written.call.date = *date;
    written.call.kind = *kind;
    written.call.duration = *duration;
    return written;
}

}  // namespace

bool isCallsHeader(const CsvRow& row) {
    const Layout layout(row);
    return layout.has(Column::number) && (layout.has(Column::moment) || layout.has(Column::kind));
}

void fitDuration(Call& call, const std::string& file, int line, Findings& findings) {
    const auto mend = [&](const std::string& what, int duration) {
        findings.push_back({FindingKind::mended, file, line, what});
        call.duration = duration;
    };
    if (call.kind == CallKind::missed && call.duration != 0)
        mend("a call that was not taken lasts 0 seconds here, not " + std::to_string(call.duration), 0);
    if (call.kind == CallKind::incoming && call.duration == 0)
        mend("an answered call lasts 1 second here, not 0: that would be a missed one", 1);
}

Result<std::vector<WrittenCall>> readCallTable(const std::string& file, const std::vector<CsvRow>& rows,
                                               Findings& findings) {
    const Layout layout(rows.front());
    for (const auto& [column, what] : {std::pair(Column::moment, "the date, such as \"Date\""),
                                       std::pair(Column::kind, "the kind of call, such as \"Type\"")}) {
        if (!layout.has(column))
            return failure(placeOf(file, rows.front().line) + ": this row names no column for " + what);
    }
    const DayOrder order = commonOrder(layout, rows);
    std::vector<WrittenCall> calls;
    for (auto row = rows.begin() + 1; row != rows.end(); ++row) {
        Result<WrittenCall> call = readRow(layout, *row, order);
        if (!call) return failure(placeOf(file, row->line) + ": " + call.error().message);
        fitDuration(call->call, file, row->line, findings);
        calls.push_back(std::move(*call));
    }
    return calls;
}

}  // namespace maker
