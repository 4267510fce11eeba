// The contact IDs found for phone numbers and e-mail texts, by the exact text. Any thread; never waits
// for a lookup.
#pragma once

#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"

namespace zelka {

// The contact ID found for the text, or 0.
ABRecordID rememberedContactID(NSString text);

// Enters an ID of 1 or above; anything else is not remembered.
void rememberContactID(NSString text, ABRecordID contactID);

// Forgets one text that led to the ID, whichever; others that did stay.
void forgetContactID(ABRecordID contactID);

void forgetAllContactIDs();

}  // namespace zelka
