#include "src/cache/image_cache.h"

#include "src/cache/contact_id_memo.h"
#include "src/cache/letting_go.h"
#include "src/cache/shared_address_book.h"
#include "src/util/log.h"
#include "src/util/process.h"
#include "src/util/utility_class.h"

namespace zelka {
namespace {

constinit std::atomic<bool> cacheIsMade{false};
constinit ObjectMap theCache;

ObjectMap& cache() {
    initialiseUtilityClass();
    return theCache;
}

}  // namespace

void initImageCache() {
    if (cacheIsMade.exchange(true)) return;
    logInformation(LogSite("+[ZelkaCBUtils initImageCache]"), "Creating image cache for ", mainBundleIdentifier(), ".");
}

UIImage getContactImageInCacheForKey(NSObject key) { return key ? cache().value<UIImage>(key) : UIImage{}; }

UIImage getContactImageInCache(ABRecordID contactID) { return getContactImageInCacheForKey(cacheKey(contactID)); }

void setContactImage(UIImage image, NSObject key) {
    if (!image || !key) {
        logError(LogSite("+[ZelkaCBUtils setContactImage:withID:]"), "Image or key ", key, " is nil.");
        return;
    }
    storeImage(image, key);
}

void setContactImage(UIImage image, ABRecordID contactID) { setContactImage(image, cacheKey(contactID)); }

bool removeImageFromCacheForID(NSObject key) {
    if (!getContactImageInCacheForKey(key)) return false;
    logParts("Removed last modified entry from the cache.. ", key);
    cache().remove(key);
    return true;
}

bool removeImageFromCache(ABRecordID contactID) {
    if (contactID < 1) return false;
    bool removed = removeImageFromCacheForID(cacheKey(contactID));
    removeContactIDFromCache(contactID);
    return removed;
}

void removeContactIDFromCache(ABRecordID contactID) { forgetContactID(contactID); }

void clearImageCache() {
    removeAllImages();
    forgetAllContactIDs();
    releaseSharedAddressBook();
}

void storeImage(UIImage image, NSObject key) {
    if (image && key) cache().store(image, key);
}

void removeAllImages() { letGo(cache().clear()); }

}  // namespace zelka
