// Thumbnail bytes of contacts. Results are unowned (+0). Any thread.
#pragma once

#include "src/platform/address_book.h"
#include "src/platform/foundation/NSValue.h"

namespace zelka {

// The contact's thumbnail from the image database; nil when it has none or an empty one. Blocks the caller, for as long
// as it takes, while the database cannot be read.
NSData getContactImageFromABForID(ABRecordID contactID, std::int32_t unused);

// The contact's thumbnail; from system 7 on, else that of a linked contact; nil when there is none. Blocks likewise.
NSData photoOfContact(ABRecordID contactID);

// The thumbnail of the first other contact that is linked to this one and has one, or nil. Blocks likewise.
NSData getContactImageDataFromAB(ABRecordID contactID);

}  // namespace zelka
