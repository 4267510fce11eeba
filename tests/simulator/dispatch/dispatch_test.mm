#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <atomic>
#include <thread>
#include <vector>

#include "simulator/frameworks/dispatch/dispatch.h"
#include "simulator/frameworks/objc/runtime.h"
#include "simulator/runtime/process/pending_work.h"
#include "simulator/runtime/process/process.h"
#include "tests/support/temp_root.h"

namespace {

class Dispatch : public testing::Test {
  protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        phone::boot(root_.path(), "com.example.dispatch");
    }
    void TearDown() override { [pool_ drain]; }

    test::TempRoot root_;
    NSAutoreleasePool* pool_ = nil;
};

std::vector<int> order;

void append(void* context) { order.push_back(static_cast<int>(reinterpret_cast<intptr_t>(context))); }
void appendAndQueueMore(void* context) {
    append(context);
    dispatch_async_f(dispatch_get_main_queue(), reinterpret_cast<void*>(100), append);
}
void increment(void* context) { ++*static_cast<std::atomic<int>*>(context); }

void queue(int value, dispatch_function_t work = append) {
    dispatch_async_f(dispatch_get_main_queue(), reinterpret_cast<void*>(static_cast<intptr_t>(value)), work);
}

TEST_F(Dispatch, RunsInTheOrderOfQueueing) {
    for (int i = 0; i < 5; ++i) queue(i);
    EXPECT_TRUE(order.empty());
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(Dispatch, WorkQueuedByWorkComesAfterWhatWaits) {
    queue(0, appendAndQueueMore);
    queue(1);
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(order, (std::vector<int>{0, 1, 100}));
}

TEST_F(Dispatch, RunsOnTheMainThreadWhoeverQueues) {
    static bool onMain = false;
    std::thread other(
        [] { dispatch_async_f(dispatch_get_main_queue(), nullptr, [](void*) { onMain = [NSThread isMainThread]; }); });
    other.join();
    EXPECT_TRUE(phone::settle(5));
    EXPECT_TRUE(onMain);
}

TEST_F(Dispatch, MoreThanARunLoopTakesAtOnce) {
    std::atomic<int> count{0};
    for (int i = 0; i < 100000; ++i) dispatch_async_f(dispatch_get_main_queue(), &count, increment);
    EXPECT_TRUE(phone::settle(30));
    EXPECT_EQ(count, 100000);
}

TEST_F(Dispatch, ManyThreadsKeepEachTheirOrder) {
    static std::vector<int> seen[4];
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < 1000; ++i) {
                dispatch_async_f(dispatch_get_main_queue(),
                                 reinterpret_cast<void*>(static_cast<intptr_t>(t * 1000 + i)), [](void* context) {
                                     const int value = static_cast<int>(reinterpret_cast<intptr_t>(context));
                                     seen[value / 1000].push_back(value % 1000);
                                 });
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_TRUE(phone::settle(10));
    for (const auto& each : seen) {
        ASSERT_EQ(each.size(), 1000u);
        EXPECT_TRUE(std::is_sorted(each.begin(), each.end()));
    }
}

}  // namespace

@interface Clock : NSObject
+ (void)tick;
@end
static int ticks = 0;
@implementation Clock
+ (void)tick {
    ++ticks;
}
@end

namespace {

TEST_F(Dispatch, EndlessWorkLeavesTheRunLoopItsTurns) {
    static bool stop = false;
    static dispatch_function_t again = [](void*) {
        if (!stop) dispatch_async_f(dispatch_get_main_queue(), nullptr, again);
    };
    again(nullptr);
    [NSTimer scheduledTimerWithTimeInterval:0.01
                                     target:[Clock class]
                                   selector:@selector(tick)
                                   userInfo:nil
                                    repeats:YES];
    EXPECT_FALSE(phone::settle(0.3));
    EXPECT_GT(ticks, 3);
    stop = true;
    EXPECT_TRUE(phone::settle(5));
}

TEST_F(Dispatch, WorkThatTurnsTheRunLoopItselfLosesNone) {
    queue(0, [](void* context) {
        append(context);
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
    });
    queue(1);
    queue(2);
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
}

struct Block {
    void* isa;
    int flags, reserved;
    void (*invoke)(Block*);
    const void* descriptor;
    int* counter;
};
struct Descriptor {
    unsigned long reserved, size;
    void (*copy)(void*, const void*);
    void (*dispose)(const void*);
};
int disposed = 0;
const Descriptor descriptor = {0, sizeof(Block), [](void*, const void*) {}, [](const void*) { ++disposed; }};
void count(Block* block) { ++*block->counter; }

TEST_F(Dispatch, CopiesTheBlockAndLetsItGo) {
    int runs = 0;
    {
        Block onStack = {_NSConcreteStackBlock, 1 << 25, 0, count, &descriptor, &runs};
        dispatch_async(dispatch_get_main_queue(), &onStack);
        onStack = {};
    }
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(disposed, 1);
}

TEST_F(Dispatch, OnceRunsOnceAndMarksTheTokenForInlinedChecks) {
    dispatch_once_t token = 0;
    int runs = 0;
    Block block = {_NSConcreteStackBlock, 0, 0, count, &descriptor, &runs};
    for (int i = 0; i < 3; ++i) dispatch_once(&token, &block);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(token, ~static_cast<dispatch_once_t>(0));
}

TEST_F(Dispatch, OnceMakesOthersWaitUntilItIsDone) {
    static dispatch_once_t token = 0;
    static std::atomic<int> done{0};
    std::atomic<int> tooEarly{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&tooEarly] {
            dispatch_once_f(&token, nullptr, [](void*) {
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
                ++done;
            });
            if (done != 1) ++tooEarly;
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(done, 1);
    EXPECT_EQ(tooEarly, 0);
}

using DispatchDeathTest = Dispatch;

TEST_F(DispatchDeathTest, AnotherQueueIsRefused) {
    int other = 0;
    EXPECT_DEATH(dispatch_async_f(reinterpret_cast<dispatch_queue_t>(&other), nullptr, append),
                 "no dispatch queue but");
}

TEST_F(DispatchDeathTest, AnExceptionInWorkEndsTheProcess) {
    EXPECT_DEATH(
        {
            dispatch_async_f(dispatch_get_main_queue(), nullptr,
                             [](void*) { [NSException raise:@"TaskException" format:@"thrown by a task"]; });
            phone::settle(5);
        },
        "TaskException.*thrown by a task");
}

}  // namespace
