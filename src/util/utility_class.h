// The runtime class ZelkaCBUtils, by its name alone: its methods stand in src/exports.
#pragma once

#include "src/platform/runtime.h"

namespace zelka {

// Has the runtime initialise the class, which makes the image cache, as the first message to the class would. The
// library calls its functions without messages, so those that a hook may call first call this. Any thread; costs one
// load once the class is initialised.
void initialiseUtilityClass();

}  // namespace zelka
