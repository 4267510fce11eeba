#include "src/cache/queue.h"

#include "src/platform/dispatch.h"
#include "src/util/utility_class.h"

namespace ZelkaCBUtils {
namespace {

constinit std::intptr_t queueOnce = 0;
constinit NSOperationQueue theQueue;
constinit std::intptr_t instanceOnce = 0;
constinit NSObject theInstance;

}  // namespace

NSOperationQueue queue() {
    initialiseUtilityClass();
    dispatchOnce(queueOnce, [] { theQueue = NSOperationQueue::create().leak(); });
    return theQueue;
}

NSObject ZelkaCBUtilsInstance() {
    dispatchOnce(instanceOnce, [] { theInstance = send<NSObject, "new">(platformClass<"ZelkaCBUtils">()); });
    return theInstance;
}

std::span<const MethodRow> queueMethods() {
    static constexpr MethodRow rows[] = {
        classMethod<"queue", NSOperationQueue(), &queue>(),
        classMethod<"ZelkaCBUtilsInstance", NSObject(), &ZelkaCBUtilsInstance>(),
    };
    return rows;
}

}  // namespace ZelkaCBUtils
