#include "simulator/frameworks/contacts_ui/member_list.h"

#include <set>

#include "simulator/runtime/file_system/phone_database.h"

namespace contacts_ui {
namespace {

constexpr const char* kAddressBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kSql =
    "SELECT ROWID, First, Last, Organization, Nickname, PersonLink FROM ABPerson "
    "ORDER BY PersonLink, IsPreferredName DESC, ROWID";

std::string textOf(const phone::Row& row, int column) { return row.text(column).value_or(""); }

Member memberOf(const phone::Row& row) {
    Member member{static_cast<int>(row.integer(0)), textOf(row, 1), textOf(row, 2), textOf(row, 3)};
    if (member.otherName.empty()) member.otherName = textOf(row, 4);
    return member;
}

}  // namespace

phone::Status readMembers(std::vector<Member>& members) {
    std::set<std::int64_t> seen;
    return phone::PhoneDatabase(kAddressBook).read(kSql, {}, [&](const phone::Row& row) {
        const std::int64_t link = row.integer(5);
        if (link > 0 && !seen.insert(link).second) return;
        members.push_back(memberOf(row));
    });
}

}  // namespace contacts_ui
