// The runtime class behind the namespace ZelkaCBUtils.
#pragma once

#include "src/platform/runtime.h"

namespace zelka {

// Does to the class what a first message does: the runtime initialises it, which makes the image cache. The library's
// direct calls skip messages, so what the hooks may call first does this. Any thread; costs one load once the class is
// initialised.
void initialiseUtilityClass();

}  // namespace zelka
