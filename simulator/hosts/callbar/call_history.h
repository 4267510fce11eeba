// The phone's call history and the labels of its contacts' addresses, read straight from the databases.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/result.h"

namespace callbar {

struct CallRow {
    long long id = 0;  // ROWID
    std::string address;
    double date = 0;   // seconds since 1970-01-01 00:00 UTC
    int duration = 0;  // seconds
    int flags = 0;
    int contact = -1;  // the contact ID that the history remembers, or -1
    std::string name;  // the caller's name that the history remembers; may be empty

    bool outgoing() const { return (flags & 1) != 0; }
    bool missed() const { return !outgoing() && duration == 0; }
};

// Appends all calls, the latest first. When the database cannot be read to its end, `calls` holds what could be read.
// Any thread of a booted process.
[[nodiscard]] phone::Status readCallHistory(std::vector<CallRow>& calls);

// What the address book calls one address of a contact ("mobile", "home"); empty when it has no label for it.
std::string addressLabel(int contact, const std::string& address);

}  // namespace callbar
