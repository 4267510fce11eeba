#include "simulator/frameworks/contacts_ui/member_list.h"

#include <sqlite3.h>

#include <memory>
#include <set>

namespace contacts_ui {
namespace {

constexpr const char* kAddressBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kSql =
    "SELECT ROWID, First, Last, Organization, Nickname, PersonLink FROM ABPerson "
    "ORDER BY PersonLink, IsPreferredName DESC, ROWID";

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

std::string text(sqlite3_stmt* statement, int column) {
    const unsigned char* bytes = sqlite3_column_text(statement, column);
    return bytes == nullptr ? std::string() : reinterpret_cast<const char*>(bytes);
}

Member memberOfRow(sqlite3_stmt* statement) {
    Member member{sqlite3_column_int(statement, 0), text(statement, 1), text(statement, 2), text(statement, 3)};
    if (member.otherName.empty()) member.otherName = text(statement, 4);
    return member;
}

}  // namespace

bool readMembers(std::vector<Member>& members, std::string& error) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(kAddressBook, &raw, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, Close> database(raw);
    sqlite3_stmt* rawStatement = nullptr;
    if (opened == SQLITE_OK) {
        sqlite3_busy_timeout(raw, 2000);
        sqlite3_prepare_v2(raw, kSql, -1, &rawStatement, nullptr);
    }
    const std::unique_ptr<sqlite3_stmt, Close> statement(rawStatement);
    int step = SQLITE_DONE;
    std::set<long long> seen;
    if (rawStatement != nullptr) {
        while ((step = sqlite3_step(rawStatement)) == SQLITE_ROW) {
            const long long link = sqlite3_column_int64(rawStatement, 5);
            if (link > 0 && !seen.insert(link).second) continue;
            members.push_back(memberOfRow(rawStatement));
        }
    }
    if (rawStatement != nullptr && step == SQLITE_DONE) return true;
    error = std::string(kAddressBook) + ": " + (raw != nullptr ? sqlite3_errmsg(raw) : sqlite3_errstr(opened));
    return false;
}

}  // namespace contacts_ui
