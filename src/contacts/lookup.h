// The picture to show for a contact: its photo, a linked contact's, a monogram, or the "recent" picture. Results are
// unowned (+0). Lookups block the caller while a database cannot be read. Any thread.
#pragma once

#include "src/cache/image_cache.h"
#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIImage.h"
#include "src/render/monograms.h"

namespace zelka {

// The finished picture of encoded bytes, stored in the image cache under the ID; nil when there are no bytes.
UIImage getImageFromImageData(NSData data, ABRecordID contactID);

// What a lookup shows when there is neither a photo nor a monogram.
enum class LastResort {
    nothing,        // nil
    recentPicture,  // the "recent" picture, which is not stored
    keptPicture,    // the "recent" picture, stored under the contact, so that nobody looks for it again
};

// Where one kind of lookup takes its pictures from: `photo` returns the bytes of a photo (NSData), `monogram` a picture
// (UIImage); either returns nil when it has none.
template <class Photo, class Monogram>
struct LookupPolicy {
    Photo photo;
    Monogram monogram;
    LastResort lastResort = LastResort::nothing;
    bool ignoresCache = false;  // a cached picture is shown only before the last resort
};

template <class Photo, class Monogram>
LookupPolicy(Photo, Monogram, LastResort = {}, bool = {}) -> LookupPolicy<Photo, Monogram>;

// The picture that the last resort stands for; nil for `nothing`.
UIImage lastResortPicture(LastResort lastResort, ABRecordID contactID);

// The contact's cached picture; else its photo, which is stored under the contact; else its monogram; else the last
// resort. Nil when the policy leads to nothing.
template <class Photo, class Monogram>
UIImage findOrMakePicture(ABRecordID contactID, const LookupPolicy<Photo, Monogram>& policy) {
    UIImage known = getContactImageInCache(contactID);
    if (known && !policy.ignoresCache) return known;
    if (NSData photo = policy.photo()) return getImageFromImageData(photo, contactID);
    if (UIImage monogram = policy.monogram()) return monogram;
    return known ? known : lastResortPicture(policy.lastResort, contactID);
}

// The lookup of the lists, with a monogram of that text and style; with `newImage` a cached picture is returned only
// when nothing else is found.
UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage, const MonogramStyle& style);

}  // namespace zelka
