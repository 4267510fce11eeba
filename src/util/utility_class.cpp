#include "src/util/utility_class.h"

#include "src/platform/send.h"

namespace zelka {

void initialiseUtilityClass() {
    static constinit std::atomic<bool> initialised{false};
    if (initialised.load(std::memory_order_acquire)) return;
    send<Class, "class">(platformClass<"ZelkaCBUtils">());
    initialised.store(true, std::memory_order_release);
}

}  // namespace zelka
