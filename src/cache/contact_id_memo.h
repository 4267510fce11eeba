// The contact IDs found for phone numbers and e-mail texts, by the exact text. Read and written without a
// lock, from any thread.
#pragma once

#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"

namespace zelka {

// The contact ID found for the text, or 0.
ABRecordID rememberedContactID(NSString text);

// Enters an ID of 1 or above; anything else is not remembered.
void rememberContactID(NSString text, ABRecordID contactID);

// Forgets the first text, in the map's own order, that led to the ID; others that did stay.
void forgetContactID(ABRecordID contactID);

void forgetAllContactIDs();

}  // namespace zelka
