// All contacts of the phone as a sorted list, read straight from the address book's database.
#pragma once

#include <string>
#include <vector>

namespace contacts_ui {

struct Member {
    int id = 0;
    std::string first, last;  // each may be empty
    std::string otherName;    // organization, else nickname; may be empty
};

// One member for each contact, but one only for all that are linked into one person (the preferred one, else the lowest
// ID), in the database's order. A database that cannot be read returns false with the reason in `error`. Any thread of
// a booted process.
bool readMembers(std::vector<Member>& members, std::string& error);

}  // namespace contacts_ui
