// Initials of names and of contacts, at most two UTF-16 units, in the letter case of the name. Results are unowned
// (+0). Any thread.
#pragma once

#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"

namespace zelka {

// The text's first UTF-16 unit. The text must not be empty: that raises the platform's range error.
inline NSString firstCharacter(NSString text) { return text.substringToIndex(1); }

// The initials of a name's first and last word. Nil for nil, the name itself when it is empty; one space for a name
// without words and for a single word that does not come first in the name. Raises nothing.
NSString monogramTextFromName(NSString name);

// From the address-book database; nil when it does not exist or has no name for the contact. Blocks the caller, for as
// long as it takes, while the database cannot be read. A count of 4 or more logs a line after the first failure.
NSString getMonogramTextFromAB(ABRecordID contactID, std::int32_t currentReadCount);
NSString monogramTextFromAB(ABRecordID contactID);

}  // namespace zelka
