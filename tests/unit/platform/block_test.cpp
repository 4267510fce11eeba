#include "src/platform/block.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

#include "src/platform/dispatch.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSOperation.h"
#include "src/platform/weak.h"

namespace zelka {
namespace {

class Blocks : public testing::Test {
  protected:
    // A callable that counts its runs and lives as long as the counter's other owner sees.
    auto counting() {
        return [runs = runs] { ++*runs; };
    }

    std::shared_ptr<std::atomic<int>> runs = std::make_shared<std::atomic<int>>(0);
};

TEST_F(Blocks, KeepTheirCallableAndLetItGo) {
    {
        Owned<Block> block = makeBlock(counting());
        EXPECT_EQ(runs.use_count(), 2);
        Owned<Block> second = block;
        EXPECT_EQ(runs.use_count(), 2);
    }
    EXPECT_EQ(runs.use_count(), 1);
    EXPECT_EQ(*runs, 0);
}

extern "C" void* _NSConcreteMallocBlock[];

TEST_F(Blocks, AreTheRuntimesCopiesOfAStackBlock) {
    Owned<Block> block = makeBlock(counting());
    auto* literal = reinterpret_cast<detail::BlockLiteral<decltype(counting())>*>(block.get().object);
    EXPECT_EQ(literal->isa, static_cast<void*>(_NSConcreteMallocBlock));
    EXPECT_TRUE(literal->flags & detail::kBlockHasCopyDispose);
    EXPECT_EQ(literal->reserved, 0);
    literal->invoke(literal);
    EXPECT_EQ(*runs, 1);
}

TEST_F(Blocks, MoveTheirCallableAndNeverCopyIt) {
    struct Callable {
        explicit Callable(std::shared_ptr<std::atomic<int>> runs) : runs(std::move(runs)) {}
        Callable(Callable&&) noexcept = default;
        void operator()() const { *runs += 5; }
        std::shared_ptr<std::atomic<int>> runs;
    };
    {
        Owned<Block> block = makeBlock(Callable(runs));
        EXPECT_EQ(runs.use_count(), 2);
        auto* literal = reinterpret_cast<detail::BlockLiteral<Callable>*>(block.get().object);
        literal->invoke(literal);
        EXPECT_EQ(*runs, 5);
    }
    EXPECT_EQ(runs.use_count(), 1);
}

TEST_F(Blocks, RunAsBlockOperationsOnAQueueAndAreFreed) {
    {
        AutoreleasePool pool;
        Owned<NSOperationQueue> queue = NSOperationQueue::create();
        for (int i = 0; i < 50; ++i) queue->add(NSBlockOperation::withBlock(makeBlock(counting()).get()));
        send<void, "waitUntilAllOperationsAreFinished">(queue.get());
        EXPECT_EQ(*runs, 50);
    }
    // The queue's threads may hold the last operations for a moment longer.
    for (int wait = 0; wait < 200 && runs.use_count() > 1; ++wait) {
        AutoreleasePool pool;
        send<void, "sleepForTimeInterval:">(platformClass<"NSThread">(), 0.01);
    }
    EXPECT_EQ(runs.use_count(), 1);
}

TEST_F(Blocks, RunOnTheMainQueueInOrder) {
    AutoreleasePool pool;
    // Asking makes it: an application's main thread has one from its start.
    auto loop = send<NSObject, "currentRunLoop">(platformClass<"NSRunLoop">());
    std::string order;
    for (char letter : {'a', 'b', 'c'}) {
        dispatchToMain(makeBlock([&order, letter] { order += letter; }));
    }
    EXPECT_EQ(order, "");
    for (int turn = 0; turn < 100 && order.size() < 3; ++turn) {
        auto soon = send<NSObject, "dateWithTimeIntervalSinceNow:">(platformClass<"NSDate">(), 0.01);
        send<void, "runUntilDate:">(loop, soon);
    }
    EXPECT_EQ(order, "abc");
}

TEST(DispatchOnce, RunsOnceForManyThreads) {
    static std::intptr_t once = 0;
    static std::atomic<int> ran{0};
    AutoreleasePool pool;
    Owned<NSOperationQueue> queue = NSOperationQueue::create();
    for (int i = 0; i < 20; ++i) {
        queue->add(NSBlockOperation::withBlock(makeBlock([] { dispatchOnce(once, [] { ++ran; }); }).get()));
    }
    send<void, "waitUntilAllOperationsAreFinished">(queue.get());
    EXPECT_EQ(ran, 1);
}

TEST(DispatchOnce, HandsTheContextOver) {
    static std::intptr_t once = 0;
    int ran = 0;
    for (int i = 0; i < 3; ++i) dispatchOnce(once, &ran, [](void* context) { ++*static_cast<int*>(context); });
    EXPECT_EQ(ran, 1);
}

}  // namespace
}  // namespace zelka
