// Contacts behind phone numbers and e-mail addresses. Any thread.
#pragma once

#include <span>

#include "src/platform/address_book.h"
#include "src/platform/class_builder.h"

namespace ZelkaCBUtils {

// The person, owned by the shared address book (+0); nothing when there is none, or no shared address book any more.
ABRecordRef getPersonRecordFromDB(ABRecordID contactID);

// The contact of a phone number or, for a text with an "@", of an e-mail address. 0 for an unknown number; -1 for an
// unknown address and when the database cannot be read.
ABRecordID getContactID(NSString text);

// The class methods that answer to these functions.
std::span<const MethodRow> contactIDMethods();

}  // namespace ZelkaCBUtils
