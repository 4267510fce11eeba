#include "src/cache/queue.h"

#include "src/platform/dispatch.h"
#include "src/util/utility_class.h"

namespace zelka {
namespace {

constinit std::intptr_t queueOnce = 0;
constinit NSOperationQueue theQueue;

}  // namespace

NSOperationQueue queue() {
    initialiseUtilityClass();
    // Rows need it as long as the process lives.
    dispatchOnce(queueOnce, [] { theQueue = keepForever(NSOperationQueue::create()); });
    return theQueue;
}

}  // namespace zelka
