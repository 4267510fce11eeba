#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "simulator/frameworks/objc/runtime.h"

namespace {
std::atomic<int> alive{0};
}

@interface Counted : NSObject <NSCopying>
@end
@implementation Counted
- (id)init {
    if ((self = [super init])) ++alive;
    return self;
}
- (id)copyWithZone:(NSZone*)zone {
    return [[Counted allocWithZone:zone] init];
}
- (void)dealloc {
    --alive;
    [super dealloc];
}
@end

// Asks for its association while it goes away, as a view's dealloc may.
@interface AsksWhileDying : NSObject
@end
static char dyingKey;
static id seenWhileDying;
@implementation AsksWhileDying
- (void)dealloc {
    seenWhileDying = objc_getAssociatedObject(self, &dyingKey);
    [super dealloc];
}
@end

namespace {

char keyA, keyB;

class AssociatedObjects : public testing::Test {
  protected:
    void SetUp() override { alive = 0; }
};

TEST_F(AssociatedObjects, RetainKeepsTheValueUntilTheObjectGoes) {
    id object = [[NSObject alloc] init];
    id value = [[Counted alloc] init];
    objc_setAssociatedObject(object, &keyA, value, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    [value release];
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(objc_getAssociatedObject(object, &keyA), value);
    EXPECT_EQ(objc_getAssociatedObject(object, &keyB), nil);
    [object release];
    EXPECT_EQ(alive, 0);
}

TEST_F(AssociatedObjects, ReplacingAndNilReleaseTheValue) {
    id object = [[NSObject alloc] init];
    for (int i = 0; i < 3; ++i) {
        id value = [[Counted alloc] init];
        objc_setAssociatedObject(object, &keyA, value, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
        [value release];
        EXPECT_EQ(alive, 1);
    }
    objc_setAssociatedObject(object, &keyA, nil, OBJC_ASSOCIATION_ASSIGN);
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(objc_getAssociatedObject(object, &keyA), nil);
    [object release];
}

TEST_F(AssociatedObjects, AssignOwnsNothing) {
    id object = [[NSObject alloc] init];
    id value = [[Counted alloc] init];
    objc_setAssociatedObject(object, &keyA, value, OBJC_ASSOCIATION_ASSIGN);
    EXPECT_EQ([value retainCount], 1u);
    [object release];
    EXPECT_EQ(alive, 1);
    [value release];
}

TEST_F(AssociatedObjects, CopyKeepsACopy) {
    for (objc_AssociationPolicy policy : {OBJC_ASSOCIATION_COPY_NONATOMIC, OBJC_ASSOCIATION_COPY}) {
        @autoreleasepool {
            id object = [[NSObject alloc] init];
            id value = [[Counted alloc] init];
            objc_setAssociatedObject(object, &keyA, value, policy);
            EXPECT_NE(objc_getAssociatedObject(object, &keyA), value);
            EXPECT_EQ(alive, 2);
            [value release];
            [object release];
        }
        EXPECT_EQ(alive, 0);
    }
}

TEST_F(AssociatedObjects, AtomicValueOutlivesItsReplacementInThePool) {
    id object = [[NSObject alloc] init];
    @autoreleasepool {
        id value = [[Counted alloc] init];
        objc_setAssociatedObject(object, &keyA, value, OBJC_ASSOCIATION_RETAIN);
        [value release];
        id got = objc_getAssociatedObject(object, &keyA);
        objc_setAssociatedObject(object, &keyA, nil, OBJC_ASSOCIATION_RETAIN);
        EXPECT_EQ([got class], [Counted class]);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
    [object release];
}

TEST_F(AssociatedObjects, AreThereWhileTheObjectsOwnDeallocRuns) {
    id object = [[AsksWhileDying alloc] init];
    id value = [[Counted alloc] init];
    objc_setAssociatedObject(object, &dyingKey, value, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    [object release];
    EXPECT_EQ(seenWhileDying, value);
    EXPECT_EQ([value retainCount], 1u);
    [value release];
}

TEST_F(AssociatedObjects, NewObjectAtAnOldAddressHasNone) {
    const void* address = nullptr;
    {
        id object = [[NSObject alloc] init];
        address = object;
        objc_setAssociatedObject(object, &keyA, @"old", OBJC_ASSOCIATION_ASSIGN);
        [object release];
    }
    EXPECT_EQ(objc_getAssociatedObject(static_cast<id>(const_cast<void*>(address)), &keyA), nil);
}

TEST_F(AssociatedObjects, FoundationsOwnClassesRelease) {
    @autoreleasepool {
        for (Class cls in @[ [NSMutableArray class], [NSMutableString class], [NSMutableData class] ]) {
            id object = [[cls alloc] init];
            id value = [[Counted alloc] init];
            objc_setAssociatedObject(object, &keyA, value, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
            [value release];
            [object release];
        }
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(AssociatedObjects, RemoveAll) {
    id object = [[NSObject alloc] init];
    for (const void* key : {&keyA, &keyB}) {
        id value = [[Counted alloc] init];
        objc_setAssociatedObject(object, key, value, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
        [value release];
    }
    EXPECT_EQ(alive, 2);
    objc_removeAssociatedObjects(object);
    EXPECT_EQ(alive, 0);
    [object release];
}

TEST_F(AssociatedObjects, ManyThreadsOnOneObjectAndMany) {
    id shared = [[NSObject alloc] init];
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([shared] {
            GSRegisterCurrentThread();
            for (int i = 0; i < 2000; ++i) {
                @autoreleasepool {
                    id value = [[Counted alloc] init];
                    objc_setAssociatedObject(shared, &keyA, value, OBJC_ASSOCIATION_RETAIN);
                    [objc_getAssociatedObject(shared, &keyA) class];
                    id own = [[NSObject alloc] init];
                    objc_setAssociatedObject(own, &keyB, value, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
                    [value release];
                    [own release];
                }
            }
            GSUnregisterCurrentThread();
        });
    }
    for (std::thread& thread : threads) thread.join();
    [shared release];
    EXPECT_EQ(alive, 0);
}

TEST_F(AssociatedObjects, NilObjectIsHarmless) {
    objc_setAssociatedObject(nil, &keyA, @"x", OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(objc_getAssociatedObject(nil, &keyA), nil);
}

}  // namespace
