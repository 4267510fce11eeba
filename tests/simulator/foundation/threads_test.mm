#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>

#include <atomic>

#include "simulator/runtime/process/pending_work.h"
#include "simulator/runtime/process/process.h"
#include "tests/support/temp_root.h"

@interface Recorder : NSObject {
  @public
    std::atomic<int> onMain, elsewhere;
}
- (void)record;
- (void)recordOnMainAndWait;
- (void)recordOnMain;
- (void)raise;
@end

@implementation Recorder
- (void)record {
    ++([NSThread isMainThread] ? onMain : elsewhere);
}
- (void)recordOnMainAndWait {
    [self performSelectorOnMainThread:@selector(record) withObject:nil waitUntilDone:YES];
    // Waited for: it has run by now.
    if (onMain == 0) ++elsewhere;
}
- (void)recordOnMain {
    [self performSelectorOnMainThread:@selector(record) withObject:nil waitUntilDone:NO];
}
- (void)raise {
    [NSException raise:@"SomeException" format:@"because %d", 3];
}
@end

@interface RaisingOperation : NSOperation
@end
@implementation RaisingOperation
- (void)main {
    [NSException raise:@"SomeException" format:@"because %d", 3];
}
@end

namespace {

class Threads : public testing::Test {
  protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        phone::boot(root_.path(), "com.example.host");
        recorder_ = [[[Recorder alloc] init] autorelease];
    }
    void TearDown() override { [pool_ drain]; }

    NSOperation* operation(SEL selector) {
        return [[[NSInvocationOperation alloc] initWithTarget:recorder_ selector:selector object:nil] autorelease];
    }

    test::TempRoot root_;
    NSAutoreleasePool* pool_ = nil;
    Recorder* recorder_ = nil;
};

TEST_F(Threads, WaitingOnMainFromMainRunsAtOnce) {
    [recorder_ performSelectorOnMainThread:@selector(record) withObject:nil waitUntilDone:YES];
    EXPECT_EQ(recorder_->onMain, 1);
}

TEST_F(Threads, NotWaitingOnMainRunsWithTheRunLoop) {
    [recorder_ recordOnMain];
    EXPECT_EQ(recorder_->onMain, 0);
    [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:1]];
    EXPECT_EQ(recorder_->onMain, 1);
}

TEST_F(Threads, WaitingOnMainFromAnotherThreadWaits) {
    NSOperationQueue* queue = [[[NSOperationQueue alloc] init] autorelease];
    [queue addOperation:operation(@selector(recordOnMainAndWait))];
    EXPECT_TRUE(phone::settle(10));
    EXPECT_EQ(recorder_->onMain, 1);
    EXPECT_EQ(recorder_->elsewhere, 0);
}

TEST_F(Threads, PendingWorkCountsOperationsOfEveryQueue) {
    NSOperationQueue* first = [[[NSOperationQueue alloc] init] autorelease];
    NSOperationQueue* second = [[[NSOperationQueue alloc] init] autorelease];
    [first setSuspended:YES];
    [second setSuspended:YES];
    [first addOperation:operation(@selector(record))];
    [first addOperation:operation(@selector(record))];
    [second addOperation:operation(@selector(record))];
    EXPECT_EQ(phone::pendingWork(), 3);
    EXPECT_FALSE(phone::settle(0.02));
    [first setSuspended:NO];
    [second setSuspended:NO];
    EXPECT_TRUE(phone::settle(10));
    EXPECT_EQ(recorder_->elsewhere, 3);
}

TEST_F(Threads, PendingWorkCountsWhatIsToBePerformedOnMain) {
    [recorder_ recordOnMain];
    NSOperationQueue* queue = [[[NSOperationQueue alloc] init] autorelease];
    [queue addOperation:operation(@selector(recordOnMain))];
    [queue waitUntilAllOperationsAreFinished];
    EXPECT_EQ(phone::pendingWork(), 2);
    EXPECT_TRUE(phone::settle(10));
    EXPECT_EQ(recorder_->onMain, 2);
}

TEST_F(Threads, QueuesThatWentAwayAreForgotten) {
    for (int i = 0; i < 20; ++i) {
        NSOperationQueue* queue = [[NSOperationQueue alloc] init];
        [queue addOperation:operation(@selector(record))];
        [queue waitUntilAllOperationsAreFinished];
        [queue release];
    }
    EXPECT_TRUE(phone::settle(10));
}

TEST_F(Threads, OneAtATimeKeepsTheOrder) {
    NSOperationQueue* queue = [[[NSOperationQueue alloc] init] autorelease];
    [queue setMaxConcurrentOperationCount:1];
    NSMutableString* order = [NSMutableString string];
    for (NSString* name in @[ @"a", @"b", @"c", @"d" ]) {
        [queue addOperation:[[[NSInvocationOperation alloc] initWithTarget:order
                                                                  selector:@selector(appendString:)
                                                                    object:name] autorelease]];
    }
    EXPECT_TRUE(phone::settle(10));
    EXPECT_STREQ([order UTF8String], "abcd");
}

using ThreadsDeathTest = Threads;

void* raise(void*) {
    GSRegisterCurrentThread();
    [NSException raise:@"SomeException" format:@"because %d", 3];
    return nullptr;
}

// On a thread of its own, where nothing of the test program catches it.
void raiseUncaught() {
    pthread_t thread;
    pthread_create(&thread, nullptr, raise, nullptr);
    pthread_join(thread, nullptr);
}

// Nobody is there to catch what is raised in the middle of Foundation's own work.
constexpr const char* kEnd = "SomeException.*because 3.*\n.*uncaught exception";

TEST_F(ThreadsDeathTest, RaisingInAPerformedMethodEndsTheProcess) {
    EXPECT_EXIT(
        {
            [recorder_ performSelectorOnMainThread:@selector(raise) withObject:nil waitUntilDone:NO];
            phone::settle(5);
        },
        testing::KilledBySignal(SIGABRT), kEnd);
}

TEST_F(ThreadsDeathTest, RaisingLaterEndsTheProcess) {
    EXPECT_EXIT(
        {
            [recorder_ performSelector:@selector(raise) withObject:nil afterDelay:0];
            [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:1]];
        },
        testing::KilledBySignal(SIGABRT), kEnd);
}

TEST_F(ThreadsDeathTest, RaisingInATimerEndsTheProcess) {
    EXPECT_EXIT(
        {
            [NSTimer scheduledTimerWithTimeInterval:0
                                             target:recorder_
                                           selector:@selector(raise)
                                           userInfo:nil
                                            repeats:NO];
            [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:1]];
        },
        testing::KilledBySignal(SIGABRT), kEnd);
}

TEST_F(ThreadsDeathTest, RaisingInAnObserverEndsTheProcess) {
    EXPECT_EXIT(
        {
            [[NSNotificationCenter defaultCenter] addObserver:recorder_
                                                     selector:@selector(raise)
                                                         name:@"happened"
                                                       object:nil];
            [[NSNotificationCenter defaultCenter] postNotificationName:@"happened" object:nil];
        },
        testing::KilledBySignal(SIGABRT), kEnd);
}

TEST_F(ThreadsDeathTest, RaisingInAnOperationEndsTheProcess) {
    EXPECT_EXIT(
        {
            NSOperationQueue* queue = [[NSOperationQueue alloc] init];
            [queue addOperation:[[[RaisingOperation alloc] init] autorelease]];
            phone::settle(5);
        },
        testing::KilledBySignal(SIGABRT), kEnd);
}

TEST_F(ThreadsDeathTest, UncaughtExceptionsAreNamedAndEndTheProcess) {
    EXPECT_EXIT(raiseUncaught(), testing::KilledBySignal(SIGABRT), "'SomeException', reason: 'because 3'");
}

}  // namespace
