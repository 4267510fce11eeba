// The picture of a host's window that is kept up to date.
#include <gmock/gmock.h>
#include <poll.h>
#include <signal.h>

#include <fstream>
#include <iterator>

#include "tests/simulator/hosts/host_fixture.h"

namespace {

using hosts::HostKind;
using hosts::HostProcess;
using testing::HasSubstr;

class WatchTest : public HostTest {
  protected:
    std::filesystem::path out() const { return root_ / "watched.png"; }
    std::string picture() const {
        std::ifstream stream(out(), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    Json watch() const { return {{"do", "watch"}, {"out", out().string()}, {"interval", 0.01}}; }
    static std::vector<Json> nextEvents(HostProcess& host) {
        for (;;) {
            if (std::vector<Json> events = host.events(); !events.empty()) return events;
            struct pollfd wait {
                host.eventsDescriptor(), POLLIN, 0
            };
            if (poll(&wait, 1, 20000) <= 0) return {};
        }
    }
};

TEST_F(WatchTest, WritesThePictureAtOnceAndWhenTheScreenChanges) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    host.call({{"do", "show"}, {"screen", "recents"}});
    host.call(watch());
    const std::string before = picture();
    EXPECT_EQ(before.substr(1, 3), "PNG");
    host.call({{"do", "show"}, {"screen", "contacts"}});
    EXPECT_EQ(nextEvents(host), std::vector<Json>{Json({{"event", "picture"}})});
    EXPECT_TRUE(picture() != before);
    host.call({{"do", "shot"}, {"out", (root_ / "shot.png").string()}});
    std::ifstream shot(root_ / "shot.png", std::ios::binary);
    EXPECT_TRUE(picture() == std::string(std::istreambuf_iterator<char>(shot), {}));
}

TEST_F(WatchTest, TellsNothingWhenTheScreenStaysAsItIs) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    host.call({{"do", "show"}, {"screen", "recents"}});
    host.call(watch());
    host.call({{"do", "reload"}});
    host.call({{"do", "settle"}, {"timeout", 10}});
    host.call({{"do", "info"}});
    // Whatever the commands before led to comes before what this one leads to.
    host.call({{"do", "show"}, {"screen", "favorites"}});
    EXPECT_EQ(nextEvents(host).size(), 1u);
}

TEST_F(WatchTest, TellsWhyThePictureCannotBeWritten) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    EXPECT_THAT(errorOf(host, {{"do", "watch"}, {"out", "relative.png"}, {"interval", 1}}), HasSubstr("absolute path"));
    EXPECT_THAT(errorOf(host, {{"do", "watch"}, {"out", out().string()}}), HasSubstr("above 0"));
    EXPECT_THAT(errorOf(host, {{"do", "watch"}, {"out", "/no/such/folder.png"}, {"interval", 1}}),
                HasSubstr("/no/such/folder.png"));
    const std::filesystem::path folder = root_ / "pictures";
    std::filesystem::create_directory(folder);
    host.call({{"do", "watch"}, {"out", (folder / "a.png").string()}, {"interval", 0.01}});
    std::filesystem::remove_all(folder);
    host.call({{"do", "show"}, {"screen", "contacts"}});
    const std::vector<Json> events = nextEvents(host);
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events[0].at("event"), "problem");
    EXPECT_THAT(events[0].at("text").get<std::string>(), HasSubstr("pictures/a.png: No such file"));
}

TEST_F(WatchTest, EventsTellWhenTheHostHasEnded) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    EXPECT_TRUE(host.events().empty());
    kill(host.pid(), SIGKILL);
    try {
        nextEvents(host);
        FAIL() << "still there";
    } catch (const hosts::HostError& error) {
        EXPECT_THAT(error.what(), HasSubstr("springboard: ended: Killed"));
    }
}

}  // namespace
