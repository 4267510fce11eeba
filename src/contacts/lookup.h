// The picture to show for a contact: its photo, a linked contact's, a monogram, or the default picture. Results are
// unowned (+0) and kept in the image cache. Block the caller while the image database cannot be read. Any thread.
#pragma once

#include <span>

#include "src/platform/address_book.h"
#include "src/platform/class_builder.h"
#include "src/platform/uikit.h"

namespace ZelkaCBUtils {

// The finished picture of encoded bytes, stored in the image cache under the ID; nil when there are no bytes.
UIImage getImageFromImageData(NSData data, ABRecordID contactID);

// The cached picture, unless a new one is asked for; else the first that is found. The size (points) and the font are
// those of a monogram: 40 by 40 and the 17-point system font when not given.
UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage, CGSize size, UIFont font);
UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage, CGSize size);
UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage);

// The same with the monogram's text from the address-book database. The default picture is not stored under the
// contact.
UIImage getContactImage(ABRecordID contactID);

// The same for whom a phone number or an e-mail address belongs to; nil when that is nobody.
UIImage getContactImageByNumber(NSString text);

// The class methods that answer to these functions.
std::span<const MethodRow> lookupMethods();

}  // namespace ZelkaCBUtils
