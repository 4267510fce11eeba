#include "simulator/frameworks/core_foundation/darwin_notifications.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "simulator/runtime/notifications/notification_log.h"
#include "simulator/runtime/process/process.h"
#include "tests/support/temp_root.h"

namespace {

std::mutex lock;
std::vector<std::string> seen;
std::atomic<bool> sawMain{false}, sawOther{false};

std::vector<std::string> seenSoFar() {
    std::lock_guard guard(lock);
    return seen;
}

void note(const std::string& what) {
    std::lock_guard guard(lock);
    seen.push_back(what);
}

void onPost(CFNotificationCenterRef center, void* observer, CFStringRef name, const void* object,
            CFDictionaryRef info) {
    ([NSThread isMainThread] ? sawMain : sawOther) = true;
    const bool bare = center == CFNotificationCenterGetDarwinNotifyCenter() && object == nullptr && info == nil;
    note(std::string([name UTF8String]) + (observer != nullptr ? "!" : "") + (bare ? "" : "?"));
}
void onPostAgain(CFNotificationCenterRef, void*, CFStringRef name, const void*, CFDictionaryRef) {
    note(std::string("again ") + [name UTF8String]);
}

int token;

class DarwinNotifications : public testing::Test {
  protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        phone::boot(root_.path(), "com.example.host");
    }
    void TearDown() override { [pool_ drain]; }

    void observe(NSString* name, CFNotificationCallback callback = onPost, const void* observer = nullptr) {
        CFNotificationCenterAddObserver(center_, observer, callback, name, nullptr,
                                        CFNotificationSuspensionBehaviorDeliverImmediately);
    }
    void post(NSString* name) { CFNotificationCenterPostNotification(center_, name, nullptr, nil, true); }

    test::TempRoot root_;
    NSAutoreleasePool* pool_ = nil;
    CFNotificationCenterRef center_ = CFNotificationCenterGetDarwinNotifyCenter();
};

using Names = std::vector<std::string>;

TEST_F(DarwinNotifications, AProcessGetsItsOwnOnItsMainThread) {
    observe(@"a");
    post(@"a");
    EXPECT_EQ(seenSoFar(), Names{});
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), Names{"a"});
    EXPECT_TRUE(sawMain);
    EXPECT_FALSE(sawOther);
}

TEST_F(DarwinNotifications, OnlyNamesAskedForComeInTheOrderOfPosting) {
    observe(@"a");
    observe(@"b", onPost, &token);
    for (NSString* name in @[ @"b", @"other", @"a", @"ab", @"b" ]) post(name);
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), (Names{"b!", "a", "b!"}));
}

TEST_F(DarwinNotifications, NothingFromBeforeTheRegistrationComes) {
    post(@"a");
    observe(@"a");
    post(@"a");
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), Names{"a"});
}

TEST_F(DarwinNotifications, EveryRegistrationIsDeliveredInTheirOrder) {
    observe(@"a", onPostAgain);
    observe(@"a");
    observe(@"a", onPostAgain);
    post(@"a");
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), (Names{"again a", "a", "again a"}));
}

TEST_F(DarwinNotifications, RegistrationsAreListed) {
    observe(@"a");
    CFNotificationCenterAddObserver(center_, &token, onPostAgain, @"b", nullptr,
                                    CFNotificationSuspensionBehaviorCoalesce);
    const std::vector<phone::DarwinObserver> all = phone::darwinObservers();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_STREQ([all[0].name UTF8String], "a");
    EXPECT_EQ(all[0].callback, onPost);
    EXPECT_EQ(all[0].observer, nullptr);
    EXPECT_EQ(all[0].behaviour, 4);
    EXPECT_STREQ([all[1].name UTF8String], "b");
    EXPECT_EQ(all[1].callback, onPostAgain);
    EXPECT_EQ(all[1].observer, &token);
    EXPECT_EQ(all[1].behaviour, 2);
}

TEST_F(DarwinNotifications, RemovedOnesGetNothing) {
    observe(@"a", onPost, &token);
    observe(@"b", onPost, &token);
    observe(@"a", onPostAgain);
    CFNotificationCenterRemoveObserver(center_, &token, @"a", nullptr);
    post(@"a");
    post(@"b");
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), (Names{"again a", "b!"}));
    CFNotificationCenterRemoveEveryObserver(center_, &token);
    post(@"b");
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar().size(), 2u);
    EXPECT_EQ(phone::darwinObservers().size(), 1u);
}

void removeAll(CFNotificationCenterRef center, void*, CFStringRef, const void*, CFDictionaryRef) {
    note("removing");
    CFNotificationCenterRemoveEveryObserver(center, &token);
}

TEST_F(DarwinNotifications, ACallbackMayRemoveTheOnesAfterIt) {
    observe(@"a", removeAll);
    observe(@"a", onPost, &token);
    post(@"a");
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), Names{"removing"});
}

TEST_F(DarwinNotifications, CanBeDeliveredOnTheFollowingThread) {
    phone::deliverNotificationsOn(phone::DeliveryThread::watcher);
    observe(@"a");
    post(@"a");
    for (int i = 0; i < 500 && seenSoFar().empty(); ++i) usleep(10000);
    EXPECT_EQ(seenSoFar(), Names{"a"});
    EXPECT_TRUE(sawOther);
    EXPECT_FALSE(sawMain);
}

TEST_F(DarwinNotifications, TenThousandFromFourThreadsAllArrive) {
    observe(@"n");
    std::vector<std::thread> posters;
    for (int t = 0; t < 4; ++t) {
        posters.emplace_back([this] {
            for (int i = 0; i < 2500; ++i) EXPECT_EQ(phone::problemOf(phone::postNotification(root_.path(), "n")), "");
        });
    }
    for (std::thread& poster : posters) poster.join();
    EXPECT_TRUE(phone::settle(30));
    EXPECT_EQ(seenSoFar().size(), 10000u);
}

TEST_F(DarwinNotifications, CrossProcesses) {
    observe(@"from the other");
    const pid_t child = fork();
    if (child == 0) _exit(phone::postNotification(root_.path(), "from the other") ? 0 : 1);
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), Names{"from the other"});
}

TEST_F(DarwinNotifications, AStoppedPosterKeepsNobodyWaiting) {
    observe(@"a");
    const pid_t child = fork();
    if (child == 0) {
        while (true) (void)phone::postNotification(root_.path(), "noise");
    }
    // Stopped at whatever point of posting it is.
    usleep(20000);
    kill(child, SIGSTOP);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(phone::problemOf(phone::postNotification(root_.path(), "a")), "");
    EXPECT_TRUE(phone::settle(10));
    EXPECT_EQ(seenSoFar().size(), 100u);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST_F(DarwinNotifications, AStoppedObserverKeepsNobodyWaitingAndLosesNothing) {
    int ready[2], result[2];
    ASSERT_EQ(pipe(ready), 0);
    ASSERT_EQ(pipe(result), 0);
    const pid_t child = fork();
    if (child == 0) {
        observe(@"a");
        (void)!write(ready[1], "r", 1);
        for (int i = 0; i < 1000 && seenSoFar().size() < 500; ++i) {
            [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                     beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
        }
        const size_t count = seenSoFar().size();
        (void)!write(result[1], &count, sizeof count);
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    kill(child, SIGSTOP);
    for (int i = 0; i < 500; ++i) EXPECT_EQ(phone::problemOf(phone::postNotification(root_.path(), "a")), "");
    kill(child, SIGCONT);
    size_t count = 0;
    ASSERT_EQ(read(result[0], &count, sizeof count), static_cast<ssize_t>(sizeof count));
    EXPECT_EQ(count, 500u);
    waitpid(child, nullptr, 0);
}

TEST_F(DarwinNotifications, ARecordCutShortSpoilsNoOther) {
    observe(@"whole");
    FILE* log = fopen(phone::notificationLogPath(root_.path()).c_str(), "a");
    fputs("\nwho", log);
    fclose(log);
    post(@"whole");
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar(), Names{"whole"});
}

TEST_F(DarwinNotifications, AnEmptiedLogStartsOver) {
    observe(@"a");
    post(@"a");
    EXPECT_TRUE(phone::settle(5));
    ASSERT_EQ(truncate(phone::notificationLogPath(root_.path()).c_str(), 0), 0);
    usleep(50000);
    post(@"a");
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(seenSoFar().size(), 2u);
}

TEST(NotificationLog, PostingToNobodyWorksAndMistakesAreTold) {
    test::TempRoot root;
    EXPECT_EQ(phone::problemOf(phone::postNotification(root.path(), "nobody listens")), "");
    EXPECT_NE(phone::problemOf(phone::postNotification(root.path(), "")), "");
    EXPECT_NE(phone::problemOf(phone::postNotification(root.path(), "two\nlines")), "");
    root.write("/file", "");
    EXPECT_NE(phone::problemOf(phone::postNotification(root.path() / "file", "a")), "");
    EXPECT_EQ(root.read("/var/run/notifications"), "\nnobody listens\n");
}

using DarwinNotificationsDeathTest = DarwinNotifications;

TEST_F(DarwinNotificationsDeathTest, NamelessObserversAreRefused) { EXPECT_DEATH(observe(nil), "without a name"); }

}  // namespace
