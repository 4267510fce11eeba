// Contacts behind phone numbers and e-mail addresses. Any thread.
#pragma once

#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"

namespace zelka {

// The contact of a phone number or, for a text with an "@", of an e-mail address. 0 for an unknown number; -1 for an
// unknown address and when the database cannot be read.
ABRecordID getContactID(NSString text);

}  // namespace zelka
