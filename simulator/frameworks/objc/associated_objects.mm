#import <Foundation/Foundation.h>

#include "simulator/frameworks/objc/runtime.h"

#include <array>
#include <atomic>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

struct Association {
    id value;
    objc_AssociationPolicy policy;
};

using Associations = std::unordered_map<const void*, Association>;

// Objects are spread over several locks, because every object that goes away asks here.
struct Shard {
    std::mutex lock;
    std::unordered_map<const void*, Associations> objects;
};

std::array<Shard, 64>& shards() {
    // Never destroyed: objects go away after static destructors ran.
    static auto* all = new std::array<Shard, 64>;
    return *all;
}

// How many objects carry associations; while none does, going away costs nothing.
constinit std::atomic<long> carriers{0};

Shard& shardOf(const void* object) { return shards()[(reinterpret_cast<uintptr_t>(object) >> 4) % 64]; }

bool owns(objc_AssociationPolicy policy) { return (policy & 3) != 0; }
bool isAtomic(objc_AssociationPolicy policy) {
    return policy == OBJC_ASSOCIATION_RETAIN || policy == OBJC_ASSOCIATION_COPY;
}

id acquire(id value, objc_AssociationPolicy policy) {
    switch (policy) {
        case OBJC_ASSOCIATION_COPY_NONATOMIC:
        case OBJC_ASSOCIATION_COPY:
            return [value copy];
        case OBJC_ASSOCIATION_RETAIN_NONATOMIC:
        case OBJC_ASSOCIATION_RETAIN:
            return [value retain];
        default:
            return value;
    }
}

// Puts an association in and hands out the one it replaces.
Association exchange(id object, const void* key, Association association) {
    Shard& shard = shardOf(object);
    std::lock_guard guard(shard.lock);
    auto [carrier, isNew] = shard.objects.try_emplace(object);
    if (isNew) ++carriers;
    return std::exchange(carrier->second[key], association);
}

Association take(id object, const void* key) {
    Shard& shard = shardOf(object);
    std::lock_guard guard(shard.lock);
    const auto carrier = shard.objects.find(object);
    if (carrier == shard.objects.end()) return {nil, OBJC_ASSOCIATION_ASSIGN};
    const auto found = carrier->second.find(key);
    if (found == carrier->second.end()) return {nil, OBJC_ASSOCIATION_ASSIGN};
    const Association taken = found->second;
    carrier->second.erase(found);
    if (carrier->second.empty()) {
        shard.objects.erase(carrier);
        --carriers;
    }
    return taken;
}

Associations takeAll(id object) {
    if (carriers == 0) return {};
    Shard& shard = shardOf(object);
    std::lock_guard guard(shard.lock);
    auto carrier = shard.objects.extract(object);
    if (carrier.empty()) return {};
    --carriers;
    return std::move(carrier.mapped());
}

}  // namespace

void objc_setAssociatedObject(id object, const void* key, id value, objc_AssociationPolicy policy) {
    if (object == nil) return;
    // Values are taken and released outside the lock: their methods may come back here.
    const Association old = value == nil ? take(object, key) : exchange(object, key, {acquire(value, policy), policy});
    if (owns(old.policy)) [old.value release];
}

id objc_getAssociatedObject(id object, const void* key) {
    if (object == nil) return nil;
    Association found{nil, OBJC_ASSOCIATION_ASSIGN};
    {
        Shard& shard = shardOf(object);
        std::lock_guard guard(shard.lock);
        const auto carrier = shard.objects.find(object);
        if (carrier == shard.objects.end()) return nil;
        const auto association = carrier->second.find(key);
        if (association == carrier->second.end()) return nil;
        found = association->second;
        // Within the lock, or another thread could replace and free the value first.
        if (isAtomic(found.policy)) [found.value retain];
    }
    return isAtomic(found.policy) ? [found.value autorelease] : found.value;
}

void objc_removeAssociatedObjects(id object) {
    for (const auto& [key, association] : takeAll(object)) {
        if (owns(association.policy)) [association.value release];
    }
}
