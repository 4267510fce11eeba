#include "simulator/maker/contacts/call_records.h"

#include <glib.h>

#include <array>
#include <cstdio>

#include "simulator/maker/database/schema.h"
#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

bool isFaceTime(const std::string& address) { return address.find('@') != std::string::npos; }

// One of its own for each call, and the same for the same phone made anew.
std::string uniqueIdentifier(int row, double date) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%08X-0000-4000-8000-%012llX", static_cast<unsigned>(row),
                  static_cast<unsigned long long>(date));
    return text.data();
}

Result<int> addToStore(const Database& calls, const Call& call, const std::string& region) {
    Statement latest = calls.prepare("SELECT coalesce(max(Z_PK), 0) + 1 FROM ZCALLRECORD");
    if (!latest.step()) return failure(latest.status());
    const int row = latest.integer(0);
    const bool outgoing = call.kind == CallKind::outgoing;
    const int duration = call.kind == CallKind::missed ? 0 : call.duration;
    const phone::GText country(g_ascii_strdown(region.c_str(), -1));
    Statement insert = calls.prepare(
        "INSERT INTO ZCALLRECORD (Z_PK, Z_ENT, Z_OPT, ZANSWERED, ZCALLTYPE, ZORIGINATED, ZREAD, ZDATE, ZDURATION, "
        "ZADDRESS, ZISO_COUNTRY_CODE, ZNAME, ZUNIQUE_ID) "
        "VALUES (?1, (SELECT Z_ENT FROM Z_PRIMARYKEY WHERE Z_NAME = 'CallRecord'), 1, ?2, ?3, ?4, 1, ?5, ?6, ?7, ?8, "
        "?9, "
        "?10)");
    insert.bind(1, row)
        .bind(2, call.kind == CallKind::incoming || (outgoing && duration > 0) ? 1 : 0)
        .bind(3, isFaceTime(call.address) ? kFaceTimeCall : kTelephoneCall)
        .bind(4, outgoing ? 1 : 0)
        .bind(5, call.date - kAddressBookEpoch)
        .bind(6, static_cast<double>(duration))
        .bindBytes(7, call.address)
        .bind(8, std::string_view(country.get()))
        .bind(10, std::string_view(uniqueIdentifier(row, call.date)));
    if (!call.name.empty()) insert.bind(9, std::string_view(call.name));
    return insert.run()
        .and_then([&] {
            return calls.prepare("UPDATE Z_PRIMARYKEY SET Z_MAX = ? WHERE Z_NAME = 'CallRecord'").bind(1, row).run();
        })
        .map([&] { return row; });
}

Result<int> addToHistory(const Database& calls, const Call& call) {
    Statement insert = calls.prepare(
        "INSERT INTO call (address, date, duration, flags, id, name, country_code, read) VALUES (?, ?, ?, ?, ?, ?, ?, "
        "1)");
    insert.bind(1, std::string_view(call.address))
        .bind(2, call.date)
        .bind(3, call.kind == CallKind::missed ? 0 : call.duration)
        .bind(4, call.kind == CallKind::outgoing ? kOutgoingCall : kIncomingCall)
        .bind(5, call.contact);
    if (!call.name.empty()) insert.bind(6, std::string_view(call.name));
    if (!call.countryCode.empty()) insert.bind(7, std::string_view(call.countryCode));
    return insert.run().map([&] { return calls.lastRow(); });
}

// The history of older phones keeps no names.
bool hasNames(const Database& calls) {
    return calls.prepare("SELECT 1 FROM pragma_table_info('call') WHERE name = 'name' COLLATE NOCASE").step();
}

Call callOf(const Statement& row) {
    Call call;
    call.address = row.text(0);
    call.date = row.number(1);
    call.duration = row.integer(2);
    const bool outgoing = row.integer(3) != 0, answered = row.integer(4) != 0;
    call.kind = outgoing ? CallKind::outgoing : (answered ? CallKind::incoming : CallKind::missed);
    call.contact = row.integer(5);
    call.name = row.text(6);
    return call;
}

}  // namespace

bool isCallStore(const Database& calls) {
    return calls.prepare("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'ZCALLRECORD'").step();
}

Result<int> addCallRecord(const Database& calls, const Call& call, const std::string& region) {
    return isCallStore(calls) ? addToStore(calls, call, region) : addToHistory(calls, call);
}

Status forgetCaller(const Database& calls, int contact) {
    if (isCallStore(calls)) return {};
    return calls.prepare("UPDATE call SET id = -1 WHERE id = ?").bind(1, contact).run();
}

Result<std::vector<Call>> readCallRecords(const Database& calls) {
    const std::string store =
        "SELECT ZADDRESS, ZDATE + 978307200, ZDURATION, ZORIGINATED, ZANSWERED, -1, ZNAME FROM ZCALLRECORD ORDER BY "
        "Z_PK";
    const std::string history = std::string(
                                    "SELECT address, date, duration, flags & 1, duration > 0, "
                                    // Contact IDs have 32 bits; a history may hold any number.
                                    "iif(id BETWEEN 1 AND 2147483647, id, -1), ") +
                                (hasNames(calls) ? "name" : "NULL") + " FROM call ORDER BY ROWID";
    Statement rows = calls.prepare((isCallStore(calls) ? store : history).c_str());
    std::vector<Call> result;
    while (rows.step()) result.push_back(callOf(rows));
    return rows.status().map([&] { return std::move(result); });
}

Result<long> countCallRecords(const Database& calls) {
    Statement count =
        calls.prepare(isCallStore(calls) ? "SELECT count(*) FROM ZCALLRECORD" : "SELECT count(*) FROM call");
    if (!count.step()) return failure(count.status());
    return static_cast<long>(count.integer(0));
}

}  // namespace maker
