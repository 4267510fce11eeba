#include "simulator/hosts/callbar/call_history.h"

#include <sqlite3.h>

#include <memory>

namespace callbar {
namespace {

constexpr const char* kCalls = "/private/var/wireless/Library/CallHistory/call_history.db";
constexpr const char* kAddressBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kCallsWithNames =
    "SELECT ROWID, address, date, duration, flags, id, name FROM call ORDER BY date DESC, ROWID DESC";
// The history of older phones keeps no names.
constexpr const char* kCallsWithoutNames =
    "SELECT ROWID, address, date, duration, flags, id, NULL FROM call ORDER BY date DESC, ROWID DESC";
// Numbers of one contact are distinguished by their last digits, however they are spelt.
constexpr std::size_t kTellingDigits = 7;

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

Database open(const char* path, std::string& error) {
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(path, &raw, SQLITE_OPEN_READONLY, nullptr);
    Database database(raw);
    if (result == SQLITE_OK) {
        sqlite3_busy_timeout(raw, 2000);
        return database;
    }
    error = std::string(path) + ": " + (raw != nullptr ? sqlite3_errmsg(raw) : sqlite3_errstr(result));
    return nullptr;
}

Statement prepare(sqlite3* database, const char* path, const char* sql, std::string& error) {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(database, sql, -1, &raw, nullptr) != SQLITE_OK)
        error = std::string(path) + ": " + sqlite3_errmsg(database);
    return Statement(raw);
}

std::string text(sqlite3_stmt* statement, int column) {
    const unsigned char* bytes = sqlite3_column_text(statement, column);
    return bytes == nullptr ? std::string() : reinterpret_cast<const char*>(bytes);
}

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

}  // namespace

bool readCallHistory(std::vector<CallRow>& calls, std::string& error) {
    const Database database = open(kCalls, error);
    if (!database) return false;
    Statement statement = prepare(database.get(), kCalls, kCallsWithNames, error);
    if (!statement) statement = prepare(database.get(), kCalls, kCallsWithoutNames, error);
    if (!statement) return false;
    error.clear();
    for (;;) {
        const int step = sqlite3_step(statement.get());
        if (step == SQLITE_DONE) return true;
        if (step != SQLITE_ROW) {
            error = std::string(kCalls) + ": " + sqlite3_errmsg(database.get());
            return false;
        }
        CallRow& row = calls.emplace_back();
        row.id = sqlite3_column_int64(statement.get(), 0);
        row.address = text(statement.get(), 1);
        row.date = sqlite3_column_double(statement.get(), 2);
        row.duration = sqlite3_column_int(statement.get(), 3);
        row.flags = sqlite3_column_int(statement.get(), 4);
        row.contact = sqlite3_column_int(statement.get(), 5);
        row.name = text(statement.get(), 6);
    }
}

std::string addressLabel(int contact, const std::string& address) {
    std::string error;
    const Database database = open(kAddressBook, error);
    if (!database) return {};
    const Statement statement = prepare(database.get(), kAddressBook,
                                        "SELECT v.value, l.value FROM ABMultiValue v JOIN ABMultiValueLabel l "
                                        "ON l.ROWID = v.label WHERE v.record_id = ? ORDER BY v.UID",
                                        error);
    if (!statement) return {};
    sqlite3_bind_int(statement.get(), 1, contact);
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        if (sameAddress(text(statement.get(), 0), address)) return spokenLabel(text(statement.get(), 1));
    return {};
}

}  // namespace callbar
