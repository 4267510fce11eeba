// Autorelease pools.
#pragma once

#include "src/platform/owned.h"

struct NSAutoreleasePool : NSObject {
    // Releases what the pool holds, and the pool.
    void drain() const { zelka::send<void, "drain">(*this); }
};

namespace zelka {

// The innermost autorelease pool of this thread until the end of its scope, where it is drained.
class AutoreleasePool {
  public:
    AutoreleasePool() : pool_(allocInit<NSAutoreleasePool>().leak()) {}
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;
    ~AutoreleasePool() { pool_.drain(); }

  private:
    // Not Owned: a pool is given back by draining it.
    NSAutoreleasePool pool_;
};

}  // namespace zelka
