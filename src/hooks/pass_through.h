// Replacements that add nothing to the host's behaviour but an autorelease pool.
#pragma once

#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/hook.h"

namespace zelka {

template <FixedString className>
void viewDidAppear(NSObject self, SEL command, BOOL animated);

template <FixedString className>
using ViewDidAppear = Hook<className, "viewDidAppear:", &viewDidAppear<className>>;

// Appearing lists make many short-lived objects at once; they go as soon as the host is done.
template <FixedString className>
void viewDidAppear(NSObject self, SEL command, BOOL animated) {
    AutoreleasePool pool;
    ViewDidAppear<className>::host(self, command, animated);
}

}  // namespace zelka
