// The process-wide map from a contact ID (as a number), a picture file's path or an e-mail text to the finished
// picture. It grows without limit. Any thread; never waits for a lookup. The runtime class ZelkaCBUtils makes it when
// it is initialised.
#pragma once

#include "src/platform/address_book.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIImage.h"

namespace zelka {

// Logs that the cache is made; only the first call does anything.
void initImageCache();

// The picture under the key (+0, of the innermost autorelease pool), or nil.
UIImage getContactImageInCacheForKey(NSObject key);
UIImage getContactImageInCache(ABRecordID contactID);

// Stores the picture under the key; logs an error and stores nothing when one of them is nil.
void setContactImage(UIImage image, NSObject key);
void setContactImage(UIImage image, ABRecordID contactID);

// Drops the picture under the key and returns whether there was one.
bool removeImageFromCacheForID(NSObject key);
// Drops the contact's picture and returns whether there was one; whether or not, forgets one text that resolved to the
// contact. IDs below 1 do nothing and return false.
bool removeImageFromCache(ABRecordID contactID);
// Forgets one text that resolved to the contact.
void removeContactIDFromCache(ABRecordID contactID);

// Empties the cache and the contact-ID memo and gives up the shared address book.
void clearImageCache();

// The key of a contact (+0).
inline NSNumber cacheKey(ABRecordID contactID) { return NSNumber::of(contactID); }

// The bare map, for the library's own lookups: stores in silence, nothing when the picture or the key is nil.
void storeImage(UIImage image, NSObject key);
// Drops all pictures; the memo and the address book stay.
void removeAllImages();

}  // namespace zelka
