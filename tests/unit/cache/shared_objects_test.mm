#include "tests/support/extension.h"

namespace {

class SharedObjects : public test::ExtensionTest {
  protected:
    SharedObjects() { boot(); }

    // What the selector of the utility class answers on each of many threads.
    NSSet* askedOnManyThreads(SEL selector) const {
        NSMutableArray* asked = [NSMutableArray array];
        NSOperationQueue* queue = [[[NSOperationQueue alloc] init] autorelease];
        [queue setMaxConcurrentOperationCount:8];
        for (int i = 0; i < 32; ++i) {
            NSInvocationOperation* operation = [[NSInvocationOperation alloc] initWithTarget:(id)Utils
                                                                                    selector:selector
                                                                                      object:nil];
            [asked addObject:operation];
            [queue addOperation:operation];
            [operation release];
        }
        [queue waitUntilAllOperationsAreFinished];
        NSMutableSet* answers = [NSMutableSet set];
        for (NSInvocationOperation* operation in asked) {
            [answers addObject:[NSValue valueWithNonretainedObject:[operation result]]];
        }
        return answers;
    }
};

TEST_F(SharedObjects, TheQueueIsOne) {
    NSOperationQueue* queue = [Utils queue];
    EXPECT_TRUE([queue isKindOfClass:[NSOperationQueue class]]);
    EXPECT_EQ([Utils queue], queue);
    EXPECT_NE(queue, [NSOperationQueue mainQueue]);
    EXPECT_EQ([queue maxConcurrentOperationCount], NSOperationQueueDefaultMaxConcurrentOperationCount);
}

TEST_F(SharedObjects, TheQueueIsOneForManyThreads) { EXPECT_EQ([askedOnManyThreads(@selector(queue)) count], 1u); }

TEST_F(SharedObjects, TheInstanceIsOne) {
    id instance = [Utils ZelkaCBUtilsInstance];
    EXPECT_TRUE([instance isKindOfClass:objc_getClass("ZelkaCBUtils")]);
    EXPECT_EQ([Utils ZelkaCBUtilsInstance], instance);
    EXPECT_EQ([askedOnManyThreads(@selector(ZelkaCBUtilsInstance)) count], 1u);
}

TEST_F(SharedObjects, TheAddressBookIsOne) {
    ABAddressBookRef book = [Utils getAddressBook];
    EXPECT_NE(book, nullptr);
    EXPECT_EQ([Utils getAddressBook], book);
}

TEST_F(SharedObjects, TheAddressBookIsGoneForGoodOnceTheCacheIsCleared) {
    id book = (id)[Utils getAddressBook];
    [book retain];
    const NSUInteger before = [book retainCount];
    [Utils clearImageCache];
    EXPECT_EQ([book retainCount], before - 1);
    EXPECT_EQ([Utils getAddressBook], nullptr);
    [Utils clearImageCache];
    EXPECT_EQ([book retainCount], before - 1);
    [book release];
}

TEST_F(SharedObjects, ClearingBeforeTheFirstUseLeavesTheAddressBookToBeMade) {
    [Utils clearImageCache];
    EXPECT_NE([Utils getAddressBook], nullptr);
}

}  // namespace
