#include "simulator/hosts/callbar/call_history.h"

#include "simulator/runtime/file_system/phone_database.h"

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

}  // namespace

phone::Status readCallHistory(std::vector<CallRow>& calls) {
    phone::PhoneDatabase database(kCalls);
    bool hasNames = false;
    return database
        .read("SELECT 1 FROM pragma_table_info('call') WHERE name = 'name' COLLATE NOCASE", {},
              [&](const phone::Row&) { hasNames = true; })
        .and_then([&] {
            return database.read(hasNames ? kCallsWithNames : kCallsWithoutNames, {}, [&](const phone::Row& row) {
                CallRow& call = calls.emplace_back();
                call.id = row.integer(0);
                call.address = textOf(row, 1);
                call.date = row.number(2);
                call.duration = static_cast<int>(row.integer(3));
                call.flags = static_cast<int>(row.integer(4));
                call.contact = static_cast<int>(row.integer(5));
                call.name = textOf(row, 6);
            });
        });
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
