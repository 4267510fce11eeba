// All contacts of the phone as a sorted list, read straight from the address book's database.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/result.h"

namespace contacts_ui {

struct Member {
    int id = 0;
    std::string first, last;  // each may be empty
    std::string otherName;    // organization, else nickname; may be empty
};

// Appends one member for each contact, but one only for all that are linked into one person (the preferred one, else
// the lowest ID), in the database's order. When the database cannot be read to its end, `members` holds what could be
// read. Any thread of a booted process.
[[nodiscard]] phone::Status readMembers(std::vector<Member>& members);

}  // namespace contacts_ui
