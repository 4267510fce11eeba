#include "src/util/utility_class.h"

#include "src/platform/foundation/NSObject.h"

namespace zelka {

void initialiseUtilityClass() {
    static constinit std::atomic<bool> initialised{false};
    if (initialised.load(std::memory_order_acquire)) return;
    initializeClass(platformClass<"ZelkaCBUtils">());
    initialised.store(true, std::memory_order_release);
}

}  // namespace zelka
