#include "src/exports/cache_methods.h"

#include "src/cache/image_cache.h"
#include "src/cache/queue.h"
#include "src/contacts/preload.h"
#include "src/platform/dispatch.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSOperation.h"
#include "src/platform/uikit/UIImage.h"

namespace zelka {
namespace {

constinit std::intptr_t instanceOnce = 0;
constinit NSObject theInstance;

// The process's one object of the class ZelkaCBUtils, which holds nothing (+0).
NSObject ZelkaCBUtilsInstance() {
    // Whoever was given it may keep it.
    dispatchOnce(instanceOnce, [] { theInstance = keepForever(allocInit<NSObject>(platformClass<"ZelkaCBUtils">())); });
    return theInstance;
}

// Does nothing: other code may call it.
void removeAvatarsFromCache() {}

}  // namespace

std::span<const MethodRow> cacheMethods() {
    static constexpr MethodRow kRows[] = {
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
        classMethod<"prepareImageCache", void(), &prepareImageCache>(),
        classMethod<"canprepareImageCache", bool(), &canprepareImageCache>(),
        classMethod<"queue", NSOperationQueue(), &queue>(),
        classMethod<"ZelkaCBUtilsInstance", NSObject(), &ZelkaCBUtilsInstance>(),
    };
    return kRows;
}

}  // namespace zelka
