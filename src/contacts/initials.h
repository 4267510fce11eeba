// Initials of contacts, at most two UTF-16 units, in the letter case of the name. Results are unowned
// (+0). Any thread.
#pragma once

#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"
#include "src/util/name_initials.h"

namespace zelka {

// From the address-book database; nil when it does not exist or has no name for the contact. Blocks the caller, for as
// long as it takes, while the database cannot be read. A count of 4 or more logs a line after the first failure.
NSString getMonogramTextFromAB(ABRecordID contactID, std::int32_t currentReadCount);
NSString monogramTextFromAB(ABRecordID contactID);

}  // namespace zelka
