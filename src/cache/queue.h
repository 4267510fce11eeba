// The queue on which list rows fetch their pictures.
#pragma once

#include "src/platform/foundation/NSOperation.h"

namespace zelka {

// The one background queue of the process (+0), made by the first call; it lives as long as the process. Any thread.
NSOperationQueue queue();

}  // namespace zelka
