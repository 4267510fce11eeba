#include "simulator/runtime/notifications/notification_watcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>

#include "simulator/runtime/notifications/notification_log.h"
#include "tests/support/temp_root.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

bool readable(const phone::NotificationWatcher& watcher) {
    struct pollfd wait {
        watcher.descriptor(), POLLIN, 0
    };
    return poll(&wait, 1, 0) > 0;
}

TEST(NotificationWatcher, AnswersWhatArrivedWithoutWaiting) {
    const test::TempRoot root;
    ASSERT_EQ(phone::problemOf(phone::postNotification(root.path(), "before")), "");
    phone::NotificationWatcher watcher;
    ASSERT_EQ(phone::problemOf(watcher.open(root.path())), "");
    EXPECT_THAT(watcher.arrived(), IsEmpty());
    EXPECT_FALSE(readable(watcher));
    ASSERT_EQ(phone::problemOf(phone::postNotification(root.path(), "one")), "");
    ASSERT_EQ(phone::problemOf(phone::postNotification(root.path(), "two")), "");
    EXPECT_TRUE(readable(watcher));
    EXPECT_THAT(watcher.arrived(), ElementsAre("one", "two"));
    EXPECT_FALSE(readable(watcher));
    EXPECT_THAT(watcher.arrived(), IsEmpty());
}

}  // namespace
