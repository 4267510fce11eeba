// How a value that was changed in the Settings app comes to be in its file, beside the notification of the change.
#include <sys/inotify.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "simulator/runtime/notifications/notification_log.h"
#include "tests/simulator/preferences/settings_fixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kNotification = "com.example.lamp/light";
constexpr const char* kOff = "<false/>";

// In which order things happen in two folders of the phone: one queue of the kernel's for both.
class Order {
  public:
    explicit Order(const std::filesystem::path& root) : queue_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        preferences_ =
            inotify_add_watch(queue_, (root / kLampFile).parent_path().c_str(), IN_MOVED_TO | IN_CLOSE_WRITE);
        inotify_add_watch(queue_, phone::notificationLogPath(root).parent_path().c_str(), IN_MODIFY);
    }
    ~Order() { close(queue_); }

    // "file" for each time that a file of preferences got its contents, "notification" for each one posted.
    std::vector<std::string> happened() const {
        std::vector<std::string> order;
        alignas(inotify_event) char buffer[8192];
        for (ssize_t size = 0; (size = read(queue_, buffer, sizeof buffer)) > 0;) {
            for (char* at = buffer; at < buffer + size;) {
                const auto* event = reinterpret_cast<const inotify_event*>(at);
                const bool isFile = event->wd == preferences_;
                const std::string name = event->len > 0 ? event->name : "";
                if (!isFile || name == "com.example.lamp.plist") order.emplace_back(isFile ? "file" : "notification");
                at += sizeof *event + event->len;
            }
        }
        return order;
    }

  private:
    int queue_, preferences_;
};

class Travelling : public SettingsTest {
  protected:
    // A phone with two switches, whose page is shown.
    std::unique_ptr<Host> start(const std::string& device, bool service, const char* second = nullptr) {
        phone::Device made = phone::deviceFromProfile(device).value();
        made.preferencesService = service;
        makePhone(made);
        installList("Lamp", switchItem("Light", "light") + switchItem("Glow", "glow"));
        hosts::HostOptions started = options();
        if (second != nullptr) started.environment.emplace_back("PHONESIM_SECOND", second);
        auto host = std::make_unique<Host>(hosts::HostKind::preferences, started);
        show(*host, "settings/Lamp");
        // The log of notifications exists from the first on.
        EXPECT_EQ(phone::problemOf(phone::postNotification(root_, "com.example.other")), "");
        return host;
    }
    static void flip(Host& host, const char* label) { host.call({{"do", "flip"}, {"label", label}}); }
    std::string file() const { return read(kLampFile); }
};

constexpr const char* kNever = "100000";

TEST_F(Travelling, WithoutAServiceTheFileIsWrittenBeforeTheNotification) {
    const auto host = start("iphone5s-7.1", false);
    const Order order(root_);
    flip(*host, "Light");
    EXPECT_THAT(order.happened(), ElementsAre("file", "notification"));
    EXPECT_THAT(file(), HasSubstr(kOff));
    EXPECT_THAT(read("private/var/run/notifications"), HasSubstr(kNotification));
}

TEST_F(Travelling, WithoutAServiceOtherKeysOfTheFileStay) {
    const auto host = start("iphone5s-7.1", false);
    write(kLampFile, "<?xml version=\"1.0\"?><plist><dict><key>other</key><string>kept</string></dict></plist>");
    flip(*host, "Light");
    EXPECT_THAT(file(), HasSubstr("kept"));
    EXPECT_THAT(file(), HasSubstr(kOff));
}

TEST_F(Travelling, TheServiceWritesAfterTheNotification) {
    const auto host = start("iphone6-8.4", true, kNever);
    const Order order(root_);
    flip(*host, "Light");
    EXPECT_THAT(order.happened(), ElementsAre("notification"));
    EXPECT_EQ(file(), "");
    EXPECT_EQ(row(*host, "Light").at("on"), false) << "the service knows it";
    host->call({{"do", "synchronize"}});
    EXPECT_THAT(order.happened(), ElementsAre("file"));
    EXPECT_THAT(file(), HasSubstr(kOff));
}

TEST_F(Travelling, TheServiceWritesByItselfInTheEnd) {
    const auto host = start("iphone6-8.4", true, "0.001");
    flip(*host, "Light");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (file().empty() && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_THAT(file(), HasSubstr(kOff));
}

TEST_F(Travelling, TheServiceOutlivesTheApp) {
    const auto host = start("iphone6-8.4", true, kNever);
    flip(*host, "Light");
    EXPECT_EQ(host->quit(), 0);
    EXPECT_THAT(file(), HasSubstr(kOff));
}

TEST_F(Travelling, TheServiceWritesWhatItOnceReadOverWhatOthersWroteSince) {
    const auto host = start("iphone6-8.4", true, kNever);
    flip(*host, "Light");
    write(kLampFile,
          "<?xml version=\"1.0\"?><plist><dict><key>glow</key><false/><key>other</key><true/></dict></plist>");
    host->call({{"do", "synchronize"}});
    EXPECT_THAT(file(), testing::Not(HasSubstr("other")));
    EXPECT_EQ(row(*host, "Glow").at("on"), true);
}

TEST_F(Travelling, WhichWayGoesByTheSystemUnlessTheDeviceSaysOtherwise) {
    EXPECT_FALSE(phone::deviceFromProfile("iphone5s-7.1")->preferencesService);
    EXPECT_TRUE(phone::deviceFromProfile("iphone6-8.4")->preferencesService);
    EXPECT_TRUE(phone::deviceFromProfile("iphone6-9.3")->preferencesService);
    for (const auto& [version, service] : {std::pair("7.1.2", false), std::pair("8.0", true), std::pair("9.3", true)}) {
        write("device.plist",
              std::string("<?xml version=\"1.0\"?><plist><dict>") + text("SystemVersion", version) + "</dict></plist>");
        EXPECT_EQ(phone::readDevice(root_)->preferencesService, service) << version;
    }
    write("device.plist", "<?xml version=\"1.0\"?><plist><dict>" + text("SystemVersion", "7.1") +
                              "<key>PreferencesService</key><true/></dict></plist>");
    EXPECT_TRUE(phone::readDevice(root_)->preferencesService);
}

}  // namespace
