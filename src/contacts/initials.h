// Initials of names and of contacts, at most two UTF-16 units, in the letter case of the name. Results are unowned
// (+0). Any thread.
#pragma once

#include <span>

#include "src/platform/address_book.h"
#include "src/platform/class_builder.h"

namespace ZelkaCBUtils {

// Nil for nil, the name itself when it is empty. A name of nothing but double quotes raises the platform's range error.
NSString monogramTextFromName(NSString name);

// From the shared address book; nil when it has no such person or the person has no name.
NSString monogramTextFromContactID(ABRecordID contactID);

// From the address-book database; nil when it does not exist or has no name for the contact. Blocks the caller, for as
// long as it takes, while the database cannot be read.
NSString getMonogramTextFromAB(ABRecordID contactID, std::int32_t currentReadCount);
NSString getMonogramTextFromAB(ABRecordID contactID);
NSString monogramTextFromAB(ABRecordID contactID);

// The class methods that answer to these functions.
std::span<const MethodRow> initialsMethods();

}  // namespace ZelkaCBUtils
