// Settings that another process flips while the lists are on the screen.
#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/phone/phone_test.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

class LiveSettings : public PhoneTest, public testing::WithParamInterface<HostKind> {};

INSTANTIATE_TEST_SUITE_P(Hosts, LiveSettings, testing::Values(HostKind::springBoard, HostKind::callBarViewService),
                         test::ParameterName());

TEST_P(LiveSettings, RecentsFlippedOffAndOnRedrawTheVisibleRows) {
    makePhone();
    HostProcess host(GetParam(), options());
    EXPECT_EQ(sourceOf(rowOf(show(host, "recents"), kAnn)), "photo");
    set("ZelkaCBEnabledRecents", false);
    for (const Json& row : rows(host)) EXPECT_EQ(row.at("hasPictureView"), false);
    set("ZelkaCBEnabledRecents", true);
    const Json again = rows(host);
    EXPECT_EQ(sourceOf(rowOf(again, kAnn)), "photo");
    for (const Json& row : again) {
        EXPECT_EQ(row.at("hasPictureView"), true);
        EXPECT_EQ(row.at("pictureInContentView"), false);
        EXPECT_EQ(row.at("frames").at("picture"), Json({2, 4, 40, 40}));
    }
}

TEST_P(LiveSettings, ContactsFlippedOffAndOnRedrawTheVisibleRows) {
    makePhone();
    HostProcess host(GetParam(), options());
    EXPECT_EQ(sourceOf(rowOf(show(host, "contacts"), kAnn)), "photo");
    set("ZelkaCBEnabledContacts", false);
    for (const Json& row : rows(host)) EXPECT_EQ(row.at("hasPictureView"), false);
    set("ZelkaCBEnabledContacts", true);
    EXPECT_EQ(sourceOf(rowOf(rows(host), kAnn)), "photo");
}

TEST_P(LiveSettings, RoundedFlippedOffRedrawsTheSamePicturesSquare) {
    makePhone();
    HostProcess host(GetParam(), options());
    for (const char* screen : {"recents", "contacts"}) {
        set("ZelkaCBEnabledRoundedPictures", true);
        for (const Json& row : show(host, screen)) EXPECT_EQ(row.at("picture").at("corner"), 0) << row;
        set("ZelkaCBEnabledRoundedPictures", false);
        for (const Json& row : rows(host)) EXPECT_EQ(row.at("picture").at("corner"), 255) << row;
    }
}

TEST_P(LiveSettings, MonogramsFlippedOffGiveTheDefaultPicture) {
    makePhone();
    HostProcess host(GetParam(), options());
    for (const char* screen : {"recents", "contacts"}) {
        set("ZelkaCBEnabledMonogramPictures", true);
        EXPECT_EQ(sourceOf(rowOf(show(host, screen), kBob)), "monogram");
        set("ZelkaCBEnabledMonogramPictures", false);
        const Json off = rows(host);
        EXPECT_EQ(sourceOf(rowOf(off, kBob)), "default");
        EXPECT_EQ(sourceOf(rowOf(off, kAnn)), "photo");
    }
}

TEST_P(LiveSettings, TheMasterSwitchTakesAllPicturesAway) {
    makePhone();
    HostProcess host(GetParam(), options());
    for (const char* screen : {"recents", "contacts"}) {
        set("ZelkaCBEnabled", true);
        show(host, screen);
        set("ZelkaCBEnabled", false);
        for (const Json& row : rows(host)) EXPECT_EQ(row.at("hasPictureView"), false);
    }
}

TEST_P(LiveSettings, EveryNotificationIsLoggedAndReloadsEverything) {
    makePhone();
    HostProcess host(GetParam(), options());
    show(host, "contacts");
    // The file changes one setting, the notification is another's.
    write(kSettingsFile,
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>ZelkaCBEnabled</key><false/></dict>"
          "</plist>");
    post("com.norvex.ZelkaCBRecentsEnabledNotification");
    for (const Json& row : rows(host)) EXPECT_EQ(row.at("hasPictureView"), false);
    EXPECT_EQ(count(log(), "Got 'com.norvex.ZelkaCBRecentsEnabledNotification' notification..."), 1);
}

using LiveSettingsOnce = PhoneTest;

TEST_F(LiveSettingsOnce, TheToolsSetReachesBothServedProcesses) {
    makePhone();
    HostProcess shell(HostKind::springBoard, options());
    HostProcess service(HostKind::callBarViewService, options());
    show(shell, "recents");
    show(service, "contacts");
    const std::string command =
        std::string(PHONESIM) + " set " + root_.string() + " ZelkaCBEnabledMonogramPictures off";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(sourceOf(rowOf(rows(shell), kBob)), "default");
    EXPECT_EQ(sourceOf(rowOf(rows(service), kBob)), "default");
    EXPECT_EQ(count(log(), "Got 'com.norvex.ZelkaCBMonogramPicturesEnabledNotification' notification..."), 2);
}

TEST_F(LiveSettingsOnce, ADeliveryBeforeAnyScreenWasShownOnlyLoadsTheSettings) {
    makePhone();
    HostProcess service(HostKind::callBarViewService, options());
    set("ZelkaCBEnabledRecents", false);
    settle(service);
    EXPECT_EQ(count(log(), "Initiallizing settings for first time.."), 1);
    EXPECT_EQ(count(log(), "Loading settings completed.."), 2);
    for (const Json& row : show(service, "recents")) EXPECT_EQ(row.at("hasPictureView"), false);
}

TEST_F(LiveSettingsOnce, TwoSettingsChangedAtOnceAreTwoReloads) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    show(host, "recents");
    const int before = count(log(), "Loading settings completed..");
    // One file for both, so that what the first reload queues goes by the new settings already.
    switches_["ZelkaCBEnabledRoundedPictures"] = false;
    set("ZelkaCBEnabledMonogramPictures", false);
    post("com.norvex.ZelkaCBRoundedPicturesEnabledNotification");
    const Json after = rows(host);
    EXPECT_EQ(count(log(), "Loading settings completed..") - before, 2);
    EXPECT_EQ(sourceOf(rowOf(after, kBob)), "default");
    EXPECT_EQ(rowOf(after, kAnn).at("picture").at("corner"), 255);
}

TEST_F(LiveSettingsOnce, ARecentsNotificationAlsoRedrawsTheFavouritesStrip) {
    makePhone();
    write("private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist",
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><dict><key>ABUid</key><integer>2</integer></dict>"
          "</array></plist>");
    HostProcess shell(HostKind::springBoard, options());
    EXPECT_EQ(sourceOf(show(shell, "favorites").at(0)), "system monogram");
    switches_["ZelkaCBEnabledRoundedPictures"] = false;
    set("ZelkaCBEnabledRecents", true);
    EXPECT_EQ(sourceOf(favorites(shell).at(0)), "monogram");
}

TEST_F(LiveSettingsOnce, FavouritesAreTheSystemsInTheViewService) {
    makePhone();
    write("private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist",
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><dict><key>ABUid</key><integer>2</integer></dict>"
          "</array></plist>");
    switches_["ZelkaCBEnabledRoundedPictures"] = false;
    set("ZelkaCBEnabledFavorites", true);
    HostProcess service(HostKind::callBarViewService, options());
    EXPECT_EQ(sourceOf(show(service, "favorites").at(0)), "system monogram");
}

TEST_F(LiveSettingsOnce, TheSystemsOwnGeneratorIsNeverTouched) {
    makePhone();
    switches_["ZelkaCBEnabledRoundedPictures"] = false;
    set("ZelkaCBEnabledFavorites", true);
    HostProcess shell(HostKind::springBoard, options());
    const Json systems = shell.call({{"do", "monogram"}, {"generator", "system"}, {"contact", kBob}});
    const Json own = shell.call({{"do", "monogram"}, {"generator", "callbar"}, {"contact", kBob}});
    EXPECT_EQ(sourceOf(systems), "system monogram");
    EXPECT_EQ(sourceOf(own), "monogram");
    set("ZelkaCBEnabledFavorites", false);
    settle(shell);
    EXPECT_EQ(shell.call({{"do", "monogram"}, {"generator", "callbar"}, {"contact", kBob}}).at("picture").at("hash"),
              systems.at("picture").at("hash"));
}

TEST_F(LiveSettingsOnce, TwoHundredChangesInARowAreAllDeliveredAndTheLastOneHolds) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    show(host, "recents");
    const int before = count(log(), "Loading settings completed..");
    for (int i = 0; i < 200; ++i) set("ZelkaCBEnabledRecents", i % 2 == 1);
    const Json after = rows(host);
    EXPECT_EQ(count(log(), "Loading settings completed..") - before, 200);
    EXPECT_EQ(sourceOf(rowOf(after, kAnn)), "photo");
}

}  // namespace
}  // namespace test
