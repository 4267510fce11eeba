#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <atomic>
#include <functional>

#include "simulator/frameworks/objc/runtime.h"

namespace {

// A block as a library without the blocks extension makes it: one captured pointer, whose callable the heap's block
// owns.
struct Descriptor {
    unsigned long reserved, size;
    void (*copy)(void*, const void*);
    void (*dispose)(const void*);
};
struct Block {
    void* isa;
    int flags, reserved;
    void (*invoke)(Block*);
    const Descriptor* descriptor;
    std::function<void()>* callable;
};

std::atomic<int> copied{0}, disposed{0};

void copyBlock(void* to, const void* from) {
    ++copied;
    static_cast<Block*>(to)->callable = new std::function<void()>(*static_cast<const Block*>(from)->callable);
}
void disposeBlock(const void* block) {
    ++disposed;
    delete static_cast<const Block*>(block)->callable;
}
void invokeBlock(Block* block) { (*block->callable)(); }

const Descriptor descriptor = {0, sizeof(Block), copyBlock, disposeBlock};
constexpr int hasCopyDispose = 1 << 25, needsFree = 1 << 24, isGlobal = 1 << 28;

id heapBlock(std::function<void()> callable) {
    Block onStack = {_NSConcreteStackBlock, hasCopyDispose, 0, invokeBlock, &descriptor, &callable};
    return static_cast<id>(_Block_copy(&onStack));
}

int countOf(id block) { return (reinterpret_cast<Block*>(block)->flags & 0xfffe) / 2; }

class Blocks : public testing::Test {
  protected:
    void SetUp() override { copied = disposed = 0; }
};

TEST_F(Blocks, AreObjectsOfRealClasses) {
    id block = heapBlock([] {});
    EXPECT_TRUE([block isKindOfClass:[NSObject class]]);
    EXPECT_EQ(static_cast<void*>([block class]), static_cast<void*>(_NSConcreteMallocBlock));
    EXPECT_NE(static_cast<void*>(_NSConcreteStackBlock), static_cast<void*>(_NSConcreteGlobalBlock));
    EXPECT_GT([[block description] length], 0u);
    [block release];
}

TEST_F(Blocks, AreFreedOnceByTheLastRelease) {
    id block = heapBlock([] {});
    EXPECT_EQ([block retain], block);
    EXPECT_EQ(countOf(block), 2);
    EXPECT_EQ([block retainCount], 2u);
    EXPECT_EQ([block copy], block);
    EXPECT_EQ(_Block_copy(block), static_cast<void*>(block));
    EXPECT_EQ(countOf(block), 4);
    for (int i = 0; i < 3; ++i) [block release];
    EXPECT_EQ(disposed, 0);
    _Block_release(block);
    EXPECT_EQ(disposed, 1);
    EXPECT_EQ(copied, 1);
}

TEST_F(Blocks, AutoreleaseReleasesWithThePool) {
    @autoreleasepool {
        id block = heapBlock([] {});
        EXPECT_EQ([block autorelease], block);
        EXPECT_EQ(disposed, 0);
    }
    EXPECT_EQ(disposed, 1);
}

TEST_F(Blocks, LiveInContainers) {
    @autoreleasepool {
        id block = heapBlock([] {});
        NSArray* array = [NSArray arrayWithObject:block];
        NSDictionary* dictionary = [NSDictionary dictionaryWithObject:block forKey:@"block"];
        [block release];
        EXPECT_EQ([array objectAtIndex:0], block);
        EXPECT_EQ([dictionary objectForKey:@"block"], block);
        EXPECT_EQ(disposed, 0);
    }
    EXPECT_EQ(disposed, 1);
}

TEST_F(Blocks, OnTheStackAreCopiedToTheHeap) {
    int runs = 0;
    std::function<void()> callable = [&runs] { ++runs; };
    Block onStack = {_NSConcreteStackBlock, hasCopyDispose, 0, invokeBlock, &descriptor, &callable};
    EXPECT_EQ([reinterpret_cast<id>(&onStack) retain], reinterpret_cast<id>(&onStack));
    auto* copy = static_cast<Block*>(_Block_copy(&onStack));
    ASSERT_NE(copy, &onStack);
    EXPECT_EQ(copied, 1);
    EXPECT_EQ(copy->isa, static_cast<void*>(_NSConcreteMallocBlock));
    copy->invoke(copy);
    EXPECT_EQ(runs, 1);
    _Block_release(copy);
    EXPECT_EQ(disposed, 1);
    _Block_release(&onStack);
    EXPECT_EQ(disposed, 1);
}

TEST_F(Blocks, GlobalOnesAreNeverCopiedNorFreed) {
    static Block global = {_NSConcreteGlobalBlock, isGlobal, 0, invokeBlock, &descriptor, nullptr};
    EXPECT_EQ(_Block_copy(&global), &global);
    _Block_release(&global);
    _Block_release(&global);
    EXPECT_EQ([reinterpret_cast<id>(&global) copy], reinterpret_cast<id>(&global));
    [reinterpret_cast<id>(&global) release];
    EXPECT_EQ(disposed, 0);
    EXPECT_EQ(_Block_copy(nullptr), nullptr);
}

TEST_F(Blocks, RunAsOperationsAndAreFreedByThem) {
    std::atomic<int> runs{0};
    @autoreleasepool {
        NSOperationQueue* queue = [[NSOperationQueue alloc] init];
        for (int i = 0; i < 50; ++i) {
            id block = heapBlock([&runs] { ++runs; });
            [queue addOperation:[NSBlockOperation blockOperationWithBlock:(GSBlockOperationBlock)block]];
            [block release];
        }
        [queue waitUntilAllOperationsAreFinished];
        [queue release];
    }
    EXPECT_EQ(runs, 50);
    // The queue's threads may hold their last pool for a moment longer.
    for (int i = 0; i < 500 && disposed < 50; ++i) [NSThread sleepForTimeInterval:0.01];
    EXPECT_EQ(disposed, 50);
    EXPECT_EQ(copied, 50);
}

using BlocksDeathTest = Blocks;

TEST_F(BlocksDeathTest, ReleasingTooOftenIsToldFromTheCount) {
    static Block spent = {_NSConcreteMallocBlock, needsFree, 0, invokeBlock, &descriptor, nullptr};
    EXPECT_DEATH(_Block_release(&spent), "released more often than it was owned");
}

}  // namespace
