// The Settings app of the stand-in phone, as the remote control sees it.
#include "tests/simulator/preferences/settings_fixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using SettingsApp = SettingsTest;

TEST_F(SettingsApp, ListsTheInstalledEntries) {
    makePhone();
    installList("Lamp", switchItem("Light", "light"));
    installList("Clock", "");
    write("Library/PreferenceLoader/Preferences/Broken.plist", "no property list");
    Host host(hosts::HostKind::preferences, options());
    const Json first = show(host, "settings");
    EXPECT_EQ(first.at("title"), "Settings");
    EXPECT_EQ(first.at("back"), nullptr);
    ASSERT_EQ(first.at("rows").size(), 2u);
    EXPECT_EQ(first.at("rows")[0].at("label"), "Clock");
    EXPECT_EQ(first.at("rows")[1].at("label"), "Lamp");
    EXPECT_THAT(host.standardError(), HasSubstr("Broken.plist: has no dictionary \"entry\""));
    EXPECT_EQ(host.quit(), 0);
}

TEST_F(SettingsApp, APlainListShowsItsItems) {
    makePhone();
    installList("Lamp",
                dictionary(text("cell", "PSGroupCell") + text("label", "Room") + text("footerText", "Bright.")) +
                    switchItem("Light", "light") + switchItem("Glow", "glow") +
                    dictionary(text("cell", "PSGroupCell")) + switchItem("Timer", "timer"));
    write(kLampFile, "<?xml version=\"1.0\"?><plist><dict><key>glow</key><false/></dict></plist>");
    Host host(hosts::HostKind::preferences, options());
    const Json page = show(host, "settings/lamp");
    EXPECT_EQ(page.at("title"), "Lamp title");
    EXPECT_EQ(page.at("back"), "Settings");
    ASSERT_EQ(page.at("rows").size(), 3u);
    const Json& light = page.at("rows")[0];
    EXPECT_EQ(light.at("header"), "Room");
    EXPECT_EQ(light.at("footer"), "Bright.");
    EXPECT_EQ(light.at("on"), true) << "the default";
    EXPECT_EQ(light.at("frame"), Json({0, 55.5, 375, 44}));
    EXPECT_EQ(page.at("rows")[1].at("on"), false) << "the stored value";
    EXPECT_EQ(page.at("rows")[2].at("section"), 1);
    host.call({{"do", "back"}});
    EXPECT_EQ(this->page(host).at("title"), "Settings");
    EXPECT_THAT(errorOf(host, {{"do", "back"}}), HasSubstr("nothing to go back to"));
}

TEST_F(SettingsApp, ABundlesPageIsShownInThePhonesLanguage) {
    makePhone("iphone6-8.4", "de");
    installBundle();
    Host host(hosts::HostKind::preferences, options());
    const Json page = show(host, "settings/test page");
    EXPECT_EQ(page.at("title"), "Prüfung");
    EXPECT_EQ(page.at("back"), "Einstellungen");
    EXPECT_EQ(row(host, "Töne").at("cell"), "PSSwitchTableCell");
    EXPECT_EQ(row(host, "volume").at("value"), "loud") << "a text that the table lacks stays";
}

TEST_F(SettingsApp, ATableMayBeAPropertyListAndAnUnknownLanguageIsEnglish) {
    makePhone("iphone6-9.3", "ar", true);
    installBundle();
    {
        Host host(hosts::HostKind::preferences, options());
        EXPECT_EQ(show(host, "settings/Test Page").at("title"), "اختبار");
    }
    phone::Device device = phone::readDevice(root_).value();
    device.language = "pt-BR";
    ASSERT_EQ(phone::problemOf(phone::writeDevice(root_, device)), "");
    Host host(hosts::HostKind::preferences, options());
    EXPECT_EQ(show(host, "settings/Test Page").at("title"), "Test");
}

TEST_F(SettingsApp, ALanguageIsFoundByItsCode) {
    makePhone("iphone6-8.4", "he", true);
    installBundle();
    Host host(hosts::HostKind::preferences, options());
    EXPECT_EQ(show(host, "settings/Test Page").at("title"), "בדיקה");
}

TEST_F(SettingsApp, AFlipReachesThePageAndReloadsARow) {
    makePhone();
    installBundle();
    Host host(hosts::HostKind::preferences, options());
    show(host, "settings/Test Page");
    EXPECT_EQ(row(host, "Sound").at("on"), false);
    EXPECT_EQ(row(host, "Volume").at("enabled"), false);
    EXPECT_EQ(host.call({{"do", "flip"}, {"label", "Sound"}}).at("on"), true);
    EXPECT_EQ(row(host, "Volume").at("enabled"), true);
    EXPECT_EQ(row(host, "preview").at("cell"), "TestPreviewCell");
    EXPECT_EQ(row(host, "preview").at("frame")[3], 60);
    EXPECT_THAT(errorOf(host, {{"do", "flip"}, {"label", "Volume"}}), HasSubstr("the row has no switch"));
    EXPECT_THAT(errorOf(host, {{"do", "flip"}, {"label", "Nothing"}}), HasSubstr("no row \"Nothing\""));
}

TEST_F(SettingsApp, AnAlertIsInFrontUntilAButtonIsPressed) {
    makePhone();
    installBundle();
    Host host(hosts::HostKind::preferences, options());
    show(host, "settings/Test Page");
    EXPECT_EQ(page(host).at("alert"), nullptr);
    EXPECT_THAT(errorOf(host, {{"do", "press"}, {"button", "Yes"}}), HasSubstr("there is no alert"));
    host.call({{"do", "tap"}, {"label", "Reset"}});
    EXPECT_EQ(page(host).at("alert"),
              Json({{"title", "Reset"}, {"message", "Really?"}, {"buttons", Json::array({"No", "Yes"})}}));
    EXPECT_THAT(errorOf(host, {{"do", "flip"}, {"label", "Sound"}}), HasSubstr("in front is the alert \"Reset\""));
    EXPECT_THAT(errorOf(host, {{"do", "press"}, {"button", "Maybe"}}), HasSubstr("no button \"Maybe\""));
    host.call({{"do", "press"}, {"button", "Yes"}});
    EXPECT_EQ(page(host).at("alert"), nullptr);
    EXPECT_EQ(row(host, "Volume").at("value"), "pressed 1");
}

TEST_F(SettingsApp, ADisabledSwitchIsNotFlipped) {
    makePhone();
    installList("Lamp", switchItem("Light", "light", "<key>enabled</key><false/>"));
    Host host(hosts::HostKind::preferences, options());
    show(host, "settings/Lamp");
    EXPECT_EQ(row(host, "Light").at("enabled"), false);
    EXPECT_THAT(errorOf(host, {{"do", "flip"}, {"label", "Light"}}), HasSubstr("the switch is disabled"));
}

TEST_F(SettingsApp, WhatIsMissingIsSaid) {
    makePhone();
    installList("Odd", dictionary(text("cell", "PSSliderCell")));
    installBundle();
    const auto error = [&](const char* screen) {
        Host host(hosts::HostKind::preferences, options());
        return errorOf(host, {{"do", "show"}, {"screen", screen}});
    };
    EXPECT_THAT(error("settings/Odd"), HasSubstr("no cells of the kind PSSliderCell"));
    EXPECT_THAT(error("settings/Nobody"), HasSubstr("has no entry \"Nobody\""));
    EXPECT_THAT(error("recents"), HasSubstr("there is no screen \"recents\""));
    write("Library/PreferenceBundles/TestPage.bundle/TestPage", "no library");
    EXPECT_THAT(error("settings/Test Page"), HasSubstr("its executable TestPage cannot be loaded"));
    std::filesystem::remove_all(root_ / "Library/PreferenceBundles/TestPage.bundle");
    EXPECT_THAT(error("settings/Test Page"),
                HasSubstr("no TestPage.bundle in /Library/PreferenceBundles or /System/Library/PreferenceBundles"));
}

}  // namespace
