#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/runtime/process/pending_work.h"

#include <mutex>
#include <unordered_set>

// Every operation queue of the process, to count what they still have to do.

namespace {

struct Registry {
    std::mutex lock;
    std::unordered_set<NSOperationQueue*> queues;
};

Registry& registry() {
    // Never destroyed: queues may go away after static destructors ran.
    static auto* all = new Registry;
    return *all;
}

id (*initBefore)(id, SEL);
void (*deallocBefore)(id, SEL);

id init(id self, SEL selector) {
    NSOperationQueue* queue = initBefore(self, selector);
    if (queue != nil) {
        std::lock_guard guard(registry().lock);
        registry().queues.insert(queue);
    }
    return queue;
}

void dealloc(id self, SEL selector) {
    {
        std::lock_guard guard(registry().lock);
        registry().queues.erase(self);
    }
    deallocBefore(self, selector);
}

// Held while counting, so that no queue can go away in between.
long countOperations() {
    std::lock_guard guard(registry().lock);
    long sum = 0;
    for (NSOperationQueue* queue : registry().queues) sum += static_cast<long>([queue operationCount]);
    return sum;
}

}  // namespace

@interface PhoneOperationQueues : NSObject
@end
@implementation PhoneOperationQueues
+ (void)load {
    initBefore = phone::replaceMethod(objc_getClass("NSOperationQueue"), "init", init);
    deallocBefore = phone::replaceMethod(objc_getClass("NSOperationQueue"), "dealloc", dealloc);
    phone::addWorkSource(countOperations);
}
@end
