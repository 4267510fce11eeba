#include "simulator/frameworks/objc/weak_references.h"

#import <Foundation/Foundation.h>

#include <atomic>
#include <mutex>
#include <unordered_map>
#include <unordered_set>

#include "simulator/frameworks/objc/runtime.h"

namespace {

// Which slots point weakly at which object.
struct Registry {
    std::mutex lock;
    std::unordered_map<id, std::unordered_set<id*>> slots;
};

Registry& registry() {
    // Never destroyed: objects go away after static destructors ran.
    static auto* instance = new Registry;
    return *instance;
}

// How many objects are pointed at weakly; while none is, going away costs nothing.
constinit std::atomic<long> targets{0};

void enlist(Registry& weak, id* slot, id object) {
    *slot = object;
    if (object == nil) return;
    auto [target, isNew] = weak.slots.try_emplace(object);
    if (isNew) ++targets;
    target->second.insert(slot);
}

void strike(Registry& weak, id* slot) {
    const auto target = weak.slots.find(*slot);
    if (target == weak.slots.end()) return;
    target->second.erase(slot);
    if (!target->second.empty()) return;
    weak.slots.erase(target);
    --targets;
}

}  // namespace

id objc_initWeak(id* slot, id object) {
    Registry& weak = registry();
    std::lock_guard guard(weak.lock);
    enlist(weak, slot, object);
    return object;
}

id objc_loadWeakRetained(id* slot) {
    Registry& weak = registry();
    // Retained within the lock, which a going object takes before its memory does.
    std::lock_guard guard(weak.lock);
    return [*slot retain];
}

void objc_moveWeak(id* to, id* from) {
    Registry& weak = registry();
    std::lock_guard guard(weak.lock);
    enlist(weak, to, *from);
    strike(weak, from);
    *from = nil;
}

void objc_destroyWeak(id* slot) {
    Registry& weak = registry();
    std::lock_guard guard(weak.lock);
    strike(weak, slot);
    *slot = nil;
}

void zeroWeakReferences(id object) {
    if (targets == 0) return;
    Registry& weak = registry();
    std::lock_guard guard(weak.lock);
    const auto target = weak.slots.find(object);
    if (target == weak.slots.end()) return;
    for (id* slot : target->second) *slot = nil;
    weak.slots.erase(target);
    --targets;
}
