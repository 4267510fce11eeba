// Calls in the database of a phone, whichever of the two shapes it has (schema.h).
#pragma once

#include <string>
#include <vector>

#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/contact.h"
#include "simulator/maker/database/database.h"

namespace maker {

// Whether the database is a Core Data store of calls rather than a call_history.db.
bool isCallStore(const Database& calls);

// Adds a call of a phone of `region`; its row. A store remembers no contact.
Result<int> addCallRecord(const Database& calls, const Call& call, const std::string& region);

// Makes the calls forget a contact that is gone.
[[nodiscard]] Status forgetCaller(const Database& calls, int contact);

// All calls in the order of their rows; a store's are of no known contact.
Result<std::vector<Call>> readCallRecords(const Database& calls);

Result<long> countCallRecords(const Database& calls);

}  // namespace maker
