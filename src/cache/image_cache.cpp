#include "src/cache/image_cache.h"

#include "src/cache/contact_id_memo.h"
#include "src/cache/letting_go.h"
#include "src/cache/shared_address_book.h"
#include "src/util/log.h"
#include "src/util/process.h"
#include "src/util/utility_class.h"

namespace ZelkaCBUtils {
namespace {

constinit std::atomic<bool> cacheIsMade{false};
constinit zelka::ObjectMap theCache;

zelka::ObjectMap& cache() {
    initialiseUtilityClass();
    return theCache;
}

void initialise(Class cls) {
    // Subclasses inherit the method and are initialised too.
    if (cls == platformClass<"ZelkaCBUtils">()) initImageCache();
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

void removeAvatarsFromCache() {}

void storeImage(UIImage image, NSObject key) {
    if (image && key) cache().store(image, key);
}

void removeAllImages() { zelka::letGo(cache().clear()); }

std::span<const MethodRow> imageCacheMethods() {
    static constexpr MethodRow rows[] = {
        receiverMethod<"initialize", &initialise>(),
        classMethod<"initImageCache", void(), &initImageCache>(),
        classMethod<"getContactImageInCacheForKey:", UIImage(NSObject), &getContactImageInCacheForKey>(),
        classMethod<"getContactImageInCache:", UIImage(ABRecordID), &getContactImageInCache>(),
        classMethod<"setContactImage:withID:", void(UIImage, NSObject), &setContactImage>(),
        classMethod<"setContactImage:contactId:", void(UIImage, ABRecordID), &setContactImage>(),
        classMethod<"removeImageFromCacheForID:", bool(NSObject), &removeImageFromCacheForID>(),
        classMethod<"removeContactIDFromCache:", void(ABRecordID), &removeContactIDFromCache>(),
        classMethod<"removeImageFromCache:", bool(ABRecordID), &removeImageFromCache>(),
        classMethod<"clearImageCache", void(), &clearImageCache>(),
        classMethod<"removeAvatarsFromCache", void(), &removeAvatarsFromCache>(),
    };
    return rows;
}

}  // namespace ZelkaCBUtils
