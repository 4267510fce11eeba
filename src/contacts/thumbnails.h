// Thumbnail bytes of contacts. Results are unowned (+0). Any thread.
#pragma once

#include <span>

#include "src/platform/address_book.h"
#include "src/platform/class_builder.h"

// The contact's thumbnail from the image database; nil when it has none or an empty one. Blocks the caller, for as long
// as it takes, while the database cannot be read.
NSData getContactImageFromABForID(ABRecordID contactID, std::int32_t unused);

// The contact's thumbnail, else, from system 7 on, that of a linked contact, or nil. Blocks likewise.
NSData photoOfContact(ABRecordID contactID);

namespace ZelkaCBUtils {

// The thumbnail of the first other contact that is linked to this one and has one, or nil. Blocks likewise.
NSData getContactImageDataFromAB(ABRecordID contactID);

// The class methods that answer to these functions.
std::span<const MethodRow> thumbnailMethods();

}  // namespace ZelkaCBUtils
