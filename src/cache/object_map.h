// The map behind the image cache and the contact-ID memo: platform objects by keys, which are compared by hash and
// isEqual:. Any thread; no message is sent under a lock.
#pragma once

#include "src/cache/shared_map.h"
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
    using Map = SharedMap<Owned<NSObject>, ObjectIdentity>;

  public:
    using Contents = Map::Contents;

    // The value (+0, of the innermost autorelease pool: nobody who removes it takes it away from the caller), or nil.
    template <ObjectHandle T>
    T value(NSObject key) const {
        return as<T>(map_.value(key).autorelease());
    }
    // Objects of a group other than 0 can be removed by its number.
    void store(NSObject object, NSObject key, std::uint64_t group = Map::kNoGroup) {
        map_.store(copyOf(key), retain(object), group);
    }
    void remove(NSObject key) { map_.remove(key); }
    // Removes one object of the group, if there is one.
    void removeOneOf(std::uint64_t group) { map_.removeOneOf(group); }
    // Empties the map and hands over what was in it.
    Contents clear() { return map_.clear(); }

  private:
    Map map_;
};

}  // namespace zelka
