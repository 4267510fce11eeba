#include "simulator/hosts/callbar/call_history.h"

#include "simulator/runtime/file_system/phone_database.h"
#include "simulator/runtime/process/device.h"

namespace callbar {
namespace {

constexpr const char* kCalls = "/private/var/wireless/Library/CallHistory/call_history.db";
constexpr const char* kCallStore = "/private/var/mobile/Library/CallHistoryDB/CallHistory.storedata";
constexpr const char* kAddressBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
// Before version 8 a missed call is known by its duration alone.
constexpr const char* kCallsWithNames =
    "SELECT ROWID, address, date, flags & 1, duration = 0, id, name FROM call ORDER BY date DESC, ROWID DESC";
// The history of older phones keeps no names.
constexpr const char* kCallsWithoutNames =
    "SELECT ROWID, address, date, flags & 1, duration = 0, id, NULL FROM call ORDER BY date DESC, ROWID DESC";
// The store counts seconds from 2001-01-01 00:00 UTC.
constexpr const char* kStoredCalls =
    "SELECT Z_PK, CAST(ZADDRESS AS TEXT), ZDATE + 978307200, ZORIGINATED, NOT coalesce(ZANSWERED, 0), -1, ZNAME "
    "FROM ZCALLRECORD ORDER BY ZDATE DESC, Z_PK DESC";
// Numbers of one contact are distinguished by their last digits, however they are spelt.
constexpr std::size_t kTellingDigits = 7;

std::string textOf(const phone::Row& row, int column) { return row.text(column).value_or(""); }

std::string lastDigits(const std::string& address) {
    std::string digits;
    for (const char c : address)
        if (c >= '0' && c <= '9') digits += c;
    return digits.size() > kTellingDigits ? digits.substr(digits.size() - kTellingDigits) : digits;
}

bool sameAddress(const std::string& a, const std::string& b) {
    if (a == b) return true;
    return a.find('@') == std::string::npos && b.find('@') == std::string::npos && !lastDigits(a).empty() &&
           lastDigits(a) == lastDigits(b);
}

// The address book stores the labels it comes with as "_$!<Mobile>!$_".
std::string spokenLabel(std::string label) {
    constexpr std::size_t kFrame = 4;
    if (label.rfind("_$!<", 0) == 0 && label.size() > 2 * kFrame)
        label = label.substr(kFrame, label.size() - 2 * kFrame);
    for (char& c : label)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return label;
}

phone::Status readRows(phone::PhoneDatabase& database, const char* sql, std::vector<CallRow>& calls) {
    return database.read(sql, {}, [&](const phone::Row& row) {
        CallRow& call = calls.emplace_back();
        call.id = row.integer(0);
        call.address = textOf(row, 1);
        call.date = row.number(2);
        call.isOutgoing = row.integer(3) != 0;
        call.isMissed = !call.isOutgoing && row.integer(4) != 0;
        call.contact = static_cast<int>(row.integer(5));
        call.name = textOf(row, 6);
    });
}

phone::Status readHistory(std::vector<CallRow>& calls) {
    phone::PhoneDatabase database(kCalls);
    bool hasNames = false;
    return database
        .read("SELECT 1 FROM pragma_table_info('call') WHERE name = 'name' COLLATE NOCASE", {},
              [&](const phone::Row&) { hasNames = true; })
        .and_then([&] { return readRows(database, hasNames ? kCallsWithNames : kCallsWithoutNames, calls); });
}

// A book that cannot be read knows nobody; the lists report it where they read it.
void findByAddress(std::vector<CallRow>& calls) {
    phone::PhoneDatabase book(kAddressBook);
    for (CallRow& call : calls) {
        if (call.address.find('@') == std::string::npos) continue;
        const phone::Status found = book.read(
            "SELECT min(record_id) FROM ABMultiValue WHERE property = 4 AND value = ? COLLATE NOCASE HAVING count(*)",
            {call.address}, [&](const phone::Row& row) { call.contact = static_cast<int>(row.integer(0)); });
        if (!found) return;
    }
}

phone::Status readStore(std::vector<CallRow>& calls) {
    phone::PhoneDatabase database(kCallStore);
    return readRows(database, kStoredCalls, calls).map([&] { findByAddress(calls); });
}

}  // namespace

phone::Status readCallHistory(std::vector<CallRow>& calls) {
    return phone::keepsCallStore(phone::device()) ? readStore(calls) : readHistory(calls);
}

std::string addressLabel(int contact, const std::string& address) {
    phone::PhoneDatabase database(kAddressBook);
    std::optional<std::string> label;
    const phone::Status found = database.read(
        "SELECT v.value, l.value FROM ABMultiValue v JOIN ABMultiValueLabel l "
        "ON l.ROWID = v.label WHERE v.record_id = ? ORDER BY v.UID",
        {contact}, [&](const phone::Row& row) {
            if (!label && sameAddress(textOf(row, 0), address)) label = spokenLabel(textOf(row, 1));
        });
    // A book that cannot be read has no labels; the lists report it where they read it.
    return found ? label.value_or("") : std::string();
}

}  // namespace callbar
