// The map behind the image cache and the contact-ID memo: platform objects by keys, which are compared by hash and
// isEqual:. Any thread, without a lock.
#pragma once

#include "src/cache/lock_free_map.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/owned.h"

namespace zelka {

struct ObjectIdentity {
    static std::size_t hash(NSObject key) { return key.hash(); }
    static bool equal(NSObject left, NSObject right) { return left == right || left.isEqual(right); }
    static std::size_t hash(const Owned<NSObject>& key) { return hash(key.get()); }
    static bool equal(const Owned<NSObject>& left, NSObject right) { return equal(left.get(), right); }
    static bool equal(const Owned<NSObject>& left, const Owned<NSObject>& right) { return equal(left, right.get()); }
};

// Keys are copied, values retained.
class ObjectMap {
  public:
    // The value (+0, of the innermost autorelease pool: nobody who removes it takes it away from the caller), or nil.
    template <ObjectHandle T>
    T value(NSObject key) const {
        return as<T>(map_.value(key).autorelease());
    }
    void store(NSObject object, NSObject key) { map_.store(copyOf(key), retain(object)); }
    void remove(NSObject key) { map_.remove(key); }
    // Removes the first entry, in the map's own order, whose value the predicate takes.
    template <ObjectHandle T, class Predicate>
    void removeFirst(Predicate takes) {
        map_.removeFirst([&](const Owned<NSObject>& value) { return takes(as<T>(value.get())); });
    }
    void clear() { map_.clear(); }

  private:
    LockFreeMap<Owned<NSObject>, ObjectIdentity> map_;
};

}  // namespace zelka
