#import <Foundation/Foundation.h>

#include "simulator/frameworks/dispatch/dispatch.h"
#include "simulator/frameworks/dispatch/invoke_block.h"
#include "simulator/frameworks/objc/runtime.h"
#include "simulator/runtime/process/pending_work.h"

#include <atomic>
#include <deque>
#include <mutex>
#include <utility>

struct dispatch_queue_s {
    char unused;
};
dispatch_queue_s _dispatch_main_q;

namespace {

struct Task {
    dispatch_function_t work;
    void* context;
};

struct MainQueue {
    std::mutex lock;
    std::deque<Task> tasks;
    bool turnIsDue = false;
};

MainQueue& mainQueue() {
    // Never destroyed: other threads may queue while the process ends.
    static auto* queue = new MainQueue;
    return *queue;
}

// Those queued and the one that runs.
constinit std::atomic<long> unfinished{0};

long countUnfinished() { return unfinished; }

void invokeAndRelease(void* block) {
    invokeBlock(block);
    _Block_release(block);
}

// The run loop would log an exception and go on; a phone's process ends.
void run(const Task& task) {
    @try {
        @autoreleasepool {
            task.work(task.context);
        }
    } @catch (NSException* exception) {
        if (NSUncaughtExceptionHandler* handler = NSGetUncaughtExceptionHandler()) handler(exception);
        abort();
    }
    --unfinished;
}

}  // namespace

@interface PhoneMainQueueTurn : NSObject
+ (void)take;
+ (void)schedule;
@end

@implementation PhoneMainQueueTurn
+ (void)load {
    phone::addWorkSource(countUnfinished);
}

+ (void)schedule {
    @autoreleasepool {
        [self performSelector:@selector(take)
                     onThread:[NSThread mainThread]
                   withObject:nil
                waitUntilDone:NO
                        modes:@[ NSDefaultRunLoopMode, NSRunLoopCommonModes ]];
    }
}

// Runs what was queued when the turn came; what those tasks queue waits for the next turn, so that the run loop's other
// work gets its own in between.
+ (void)take {
    MainQueue& queue = mainQueue();
    size_t count = 0;
    {
        std::lock_guard guard(queue.lock);
        queue.turnIsDue = false;
        count = queue.tasks.size();
    }
    for (; count > 0; --count) {
        Task task{};
        {
            std::lock_guard guard(queue.lock);
            // A task that ran the run loop itself has taken its followers' turn.
            if (queue.tasks.empty()) return;
            task = queue.tasks.front();
            queue.tasks.pop_front();
        }
        run(task);
    }
}
@end

void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work) {
    if (queue != &_dispatch_main_q) {
        fprintf(stderr, "dispatch_async: this phone has no dispatch queue but the main one\n");
        abort();
    }
    ++unfinished;
    MainQueue& main = mainQueue();
    {
        std::lock_guard guard(main.lock);
        main.tasks.push_back({work, context});
        // One turn stands for all that is queued: the run loop takes a limited number of requests.
        if (std::exchange(main.turnIsDue, true)) return;
    }
    [PhoneMainQueueTurn schedule];
}

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block) {
    dispatch_async_f(queue, _Block_copy(block), invokeAndRelease);
}
