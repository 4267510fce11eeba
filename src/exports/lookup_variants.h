// Further lookups of contact pictures, for other code in the process. Results are unowned (+0). Block the caller while
// the image database cannot be read. Any thread.
#pragma once

#include <span>

#include "src/platform/address_book.h"
#include "src/platform/class_builder.h"
#include "src/platform/uikit.h"

// A person of the contacts interface of system 7 and later.
struct ContactsUIPerson : NSObject {
    ABRecordID recordID() const { return send<ABRecordID, "recordID">(*this); }
    NSArray linkedPeople() const { return send<NSArray, "linkedPeople">(*this); }
};

namespace ZelkaCBUtils {

// The person's thumbnail bytes, or nil.
NSData getContactImageABUIPerson(ContactsUIPerson person);

// The person's picture or that of somebody linked to it, else a monogram, else the default picture; stored under the
// person's ID.
UIImage getContactImageOnlyIOS7(ContactsUIPerson person);

// The cached picture, the contact's or a linked contact's photo, or nil. The text is not used.
UIImage getContactImageFromAB(ABRecordID contactID, NSString monogramText);

// The same or, when asked for, through the address book's own interface, with a monogram for who has no photo.
UIImage getContactImageFromAB(ABRecordID contactID, bool addressBook, NSString monogramText);

// For message lists: the cached picture, a photo or a monogram, nil when monograms are off. A monogram is also stored
// under the date when the cache holds something there.
UIImage getChatKitContactImageOnly(ABRecordID contactID, NSString monogramText, std::int32_t date);

// The class methods that answer to these functions.
std::span<const MethodRow> lookupVariantMethods();

}  // namespace ZelkaCBUtils
