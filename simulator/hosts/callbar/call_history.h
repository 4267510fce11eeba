// The phone's call history and the labels of its contacts' addresses, read straight from the databases.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/result.h"

namespace callbar {

struct CallRow {
    long long id = 0;  // ROWID
    std::string address;
    double date = 0;  // seconds since 1970-01-01 00:00 UTC
    bool isOutgoing = false;
    bool isMissed = false;  // an incoming call that was not taken
    int contact = -1;       // the contact ID that the history remembers, or -1
    std::string name;       // the caller's name that the history remembers; may be empty
};

// Appends all calls, the latest first, from the database in which this device's system keeps them. From 8 on it
// remembers no contacts: as the system does, the contact of an e-mail address is looked up here, that of a number by
// who shows the call. When the database cannot be read to its end, `calls` holds what could be read. Any thread of a
// booted process.
[[nodiscard]] phone::Status readCallHistory(std::vector<CallRow>& calls);

// What the address book calls one address of a contact ("mobile", "home"); empty when it has no label for it.
std::string addressLabel(int contact, const std::string& address);

}  // namespace callbar
