#include "tests/golden/golden.h"

#include "simulator/runtime/process/device.h"
#include "tests/phone/phone_test.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

struct Screen {
    const char* name;
    const char* device;
    const char* screen;
    int divisor;
    bool rightToLeft = false;
    bool editing = false;
    const char* off = nullptr;  // a setting that is off
};

void PrintTo(const Screen& screen, std::ostream* out) { *out << screen.name; }

class Golden : public PhoneTest, public testing::WithParamInterface<Screen> {};

TEST_P(Golden, ScreenLooksAsKept) {
    const Screen& screen = GetParam();
    makePhone(screen.device, screen.rightToLeft);
    write("private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist",
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><dict><key>ABUid</key><integer>1</integer></dict>"
          "<dict><key>ABUid</key><integer>2</integer></dict><dict><key>ABUid</key><integer>6</integer></dict>"
          "</array></plist>");
    if (screen.off != nullptr) set(screen.off, false);
    hosts::HostOptions fixed = options();
    fixed.environment.emplace_back("PHONESIM_RANDOM", "0");
    HostProcess host(HostKind::springBoard, fixed);
    show(host, screen.screen, screen.editing);
    const std::filesystem::path shot = folder_ / "shot.png";
    host.call({{"do", "shot"}, {"out", shot.string()}});
    EXPECT_EQ(compareWithGolden(shot, screen.divisor, screen.name), "");
}

INSTANTIATE_TEST_SUITE_P(Screens, Golden,
                         testing::Values(Screen{"recents", "iphone6-8.4", "recents", 2},
                                         Screen{"missed", "iphone6-8.4", "missed", 2},
                                         Screen{"contacts", "iphone6-8.4", "contacts", 2},
                                         Screen{"favorites", "iphone6-8.4", "favorites", 2},
                                         Screen{"search", "iphone6-8.4", "search t", 2},
                                         Screen{"recents_editing", "iphone6-8.4", "recents", 2, false, true},
                                         Screen{"contacts_editing", "iphone6-8.4", "contacts", 2, false, true},
                                         Screen{"recents_square", "iphone6-8.4", "recents", 2, false, false,
                                                "ZelkaCBEnabledRoundedPictures"},
                                         Screen{"favorites_square", "iphone6-8.4", "favorites", 2, false, false,
                                                "ZelkaCBEnabledRoundedPictures"},
                                         Screen{"recents_without_monograms", "iphone6-8.4", "recents", 2, false, false,
                                                "ZelkaCBEnabledMonogramPictures"},
                                         Screen{"recents_right_to_left", "iphone6-8.4", "recents", 2, true},
                                         Screen{"recents_system7", "iphone5s-7.1", "recents", 2},
                                         Screen{"contacts_system7", "iphone5s-7.1", "contacts", 2},
                                         Screen{"recents_large", "iphone6plus-9.3", "recents", 3},
                                         Screen{"recents_tablet_system6", "ipad2-6.1", "recents", 2}),
                         ParameterName());

// The page in the Settings app.
struct Page {
    const char* name;
    const char* device;
    const char* language;
    int divisor;
    bool rightToLeft = false;
    const char* off = nullptr;  // a setting that is off
    double offset = 0;          // that it is scrolled to, in points
};

void PrintTo(const Page& page, std::ostream* out) { *out << page.name; }

class GoldenSettings : public PhoneTest, public testing::WithParamInterface<Page> {};

TEST_P(GoldenSettings, PageLooksAsKept) {
    const Page& page = GetParam();
    makePhone(page.device, page.rightToLeft);
    phone::Device device = phone::readDevice(root_).value();
    device.language = page.language;
    must(phone::writeDevice(root_, device));
    if (page.off != nullptr) set(page.off, false);
    HostProcess host(HostKind::preferences, options());
    host.call({{"do", "show"}, {"screen", "settings/zelkacb"}});
    host.call({{"do", "scroll"}, {"offset", page.offset}});
    host.call({{"do", "settle"}, {"timeout", 20}});
    const std::filesystem::path shot = folder_ / "shot.png";
    host.call({{"do", "shot"}, {"out", shot.string()}});
    EXPECT_EQ(compareWithGolden(shot, page.divisor, page.name), "");
}

INSTANTIATE_TEST_SUITE_P(Pages, GoldenSettings,
                         testing::Values(Page{"settings", "iphone6-8.4", "en", 2},
                                         Page{"settings_end", "iphone6-8.4", "en", 2, false, nullptr, 1000},
                                         Page{"settings_off", "iphone6-8.4", "en", 2, false, "ZelkaCBEnabled"},
                                         Page{"settings_square", "iphone6-8.4", "en", 2, false,
                                              "ZelkaCBEnabledRoundedPictures"},
                                         Page{"settings_german_system7", "iphone5s-7.1", "de", 2},
                                         Page{"settings_arabic_large", "iphone6plus-9.3", "ar", 3, true},
                                         Page{"settings_arabic_system8", "iphone6-8.4", "ar", 2, true},
                                         Page{"settings_japanese", "iphone6-9.3", "ja", 2}),
                         ParameterName());

}  // namespace
}  // namespace test
