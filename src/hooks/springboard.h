// The system shell's start.
#pragma once

#include "src/platform/foundation/NSObject.h"
#include "src/platform/hook.h"

namespace zelka {

void applicationDidFinishLaunching(NSObject self, SEL command, NSObject application);
using ApplicationDidFinishLaunching =
    Hook<"SpringBoard", "applicationDidFinishLaunching:", &applicationDidFinishLaunching>;

}  // namespace zelka
