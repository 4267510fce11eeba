// Which process this is.
#pragma once

#include "src/platform/foundation/NSString.h"

namespace zelka {

// The main bundle's identifier (+0); nil in a process without one. Any thread.
NSString mainBundleIdentifier();

// Whether this is the system shell. Any thread.
bool isSpringBoard();

// Whether this is one of the two processes that the library serves: the system shell or the call screen's view service.
// Letter case counts. Any thread.
bool isServedProcess();

}  // namespace zelka
