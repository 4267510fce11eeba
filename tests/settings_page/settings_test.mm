// What the page does with the settings: reads, writes, announces.
#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <vector>

#include "simulator/frameworks/foundation/replace_method.h"
#include "tests/settings_page/page.h"
#include "tests/support/property_list.h"

namespace {

using test::kSettingsPath;
using test::propertyList;
using zelka::Setting;

constexpr const char* kOthers =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict><key>ZelkaCBEnabledRecents</key><false/>"
    "<key>another</key><array><string>kept</string></array></dict></plist>";

class PageSettings : public test::PageTest {
  protected:
    std::string shown() const {
        std::string text;
        for (const zelka::SettingRow& row : zelka::kSettingRows) text += isOn(row.setting) ? '1' : '0';
        return text;
    }
    std::string alertMessage() const { return [[[UIAlertView _frontmost] message] UTF8String] ?: ""; }
};

TEST_F(PageSettings, AreTheStandardOnesWithoutAFile) {
    open();
    EXPECT_EQ(shown(), "111111");
    EXPECT_FALSE(root.exists(kSettingsPath));
}

TEST_F(PageSettings, AreTheFiles) {
    root.write(kSettingsPath, propertyList({{"ZelkaCBEnabled", true},
                                            {"ZelkaCBEnabledRoundedPictures", false},
                                            {"ZelkaCBEnabledMonogramPictures", true},
                                            {"ZelkaCBEnabledFavorites", false},
                                            {"ZelkaCBEnabledRecents", true},
                                            {"ZelkaCBEnabledContacts", false}}));
    open();
    EXPECT_EQ(shown(), "101010");
}

// Other programs may have written numbers or texts; what has no truth value is off for the library, too.
TEST_F(PageSettings, AreReadAsTheLibraryReadsThem) {
    root.write(kSettingsPath, "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist "
                              "version=\"1.0\"><dict><key>ZelkaCBEnabled</key><integer>1</integer>"
                              "<key>ZelkaCBEnabledRoundedPictures</key><integer>0</integer>"
                              "<key>ZelkaCBEnabledMonogramPictures</key><string>YES</string>"
                              "<key>ZelkaCBEnabledFavorites</key><array/>"
                              "<key>ZelkaCBEnabledRecents</key><string>no</string></dict></plist>");
    open();
    EXPECT_EQ(shown(), "101001");
}

class PageSwitch : public PageSettings, public testing::WithParamInterface<size_t> {
  protected:
    const zelka::SettingRow& setting() const { return zelka::kSettingRows[GetParam()]; }
    // All on but this one.
    std::string others() const {
        std::string values(zelka::kSettingRows.size(), '1');
        values[GetParam()] = '0';
        return values;
    }
};

TEST_P(PageSwitch, WritesItsSettingAndPostsItsNotification) {
    open();
    flip(setting().setting);
    EXPECT_EQ(storedValues(), others());
    EXPECT_EQ(posted(), setting().notification);
    flip(setting().setting);
    EXPECT_EQ(storedValues(), "111111");
    EXPECT_EQ(posted(), std::string(setting().notification) + " " + setting().notification);
}

TEST_P(PageSwitch, StaysAsItWasLeft) {
    open();
    flip(setting().setting);
    leave();
    open();
    EXPECT_EQ(shown(), others());
}

INSTANTIATE_TEST_SUITE_P(All, PageSwitch, testing::Range<size_t>(0, zelka::kSettingRows.size()));

TEST_F(PageSettings, KeepTheKeysThatThePageDoesNotKnow) {
    root.write(kSettingsPath, kOthers);
    open();
    flip(Setting::contacts);
    EXPECT_EQ(storedValues(), "111100");
    EXPECT_TRUE([[file() objectForKey:@"another"] isEqual:@[ @"kept" ]]);
    EXPECT_EQ([file() count], zelka::kSettingRows.size() + 1);
    for (const char* key : test::kSettingsKeys)
        EXPECT_TRUE([[file() objectForKey:[NSString stringWithUTF8String:key]] isKindOfClass:[NSNumber class]]) << key;
}

// Between the page's reading and its writing nothing of another program's change is lost.
TEST_F(PageSettings, AreReadAnewBeforeTheyAreWritten) {
    open();
    flip(Setting::recents);
    root.write(kSettingsPath, propertyList({{"ZelkaCBEnabledFavorites", false}, {"ZelkaCBEnabledRecents", true}}));
    flip(Setting::contacts);
    EXPECT_EQ(storedValues(), "111010");
}

// Whoever has the old file open goes on reading the whole of it.
TEST_F(PageSettings, ReplaceTheFileAsAWhole) {
    root.write(kSettingsPath, kOthers);
    const std::string second = root.host("/var/mobile/second");
    std::filesystem::create_hard_link(root.host(kSettingsPath), second);
    open();
    flip(Setting::enabled);
    EXPECT_EQ(root.read("/var/mobile/second"), kOthers);
    EXPECT_EQ(storedValues(), "011101");
    int files = 0;
    for ([[maybe_unused]] const auto& entry :
         std::filesystem::directory_iterator(root.host("/var/mobile/Library/Preferences")))
        ++files;
    EXPECT_EQ(files, 1) << "a part of a file was left behind";
}

BOOL (*writeBefore)(id, SEL, NSString*, BOOL);
std::function<std::string()> look;
std::vector<std::string> seenWhileWriting;

BOOL noteWriting(id self, SEL selector, NSString* path, BOOL atomically) {
    seenWhileWriting.push_back(look());
    return writeBefore(self, selector, path, atomically);
}

TEST_F(PageSettings, AreWrittenBeforeTheyAreAnnounced) {
    open();
    writeBefore = phone::replaceMethod(objc_getClass("NSDictionary"), "writeToFile:atomically:", noteWriting);
    look = [this] { return posted(); };
    flip(Setting::recents);
    EXPECT_THAT(seenWhileWriting, testing::ElementsAre(""));
    EXPECT_NE(posted(), "");
}

TEST_F(PageSettings, ThatCannotBeReadAreAllOffAndLeftAsTheyAre) {
    root.write(kSettingsPath, "half a fi");
    open();
    EXPECT_EQ(shown(), "000000");
    flip(Setting::enabled);
    EXPECT_EQ(alertMessage(), english("cannotReadSettings"));
    EXPECT_EQ(shown(), "000000");
    EXPECT_EQ(root.read(kSettingsPath), "half a fi");
    EXPECT_EQ(posted(), "");
}

TEST_F(PageSettings, ThatCannotBeWrittenAreSaidSoAndGoBack) {
    open();
    std::filesystem::remove_all(root.host("/var/mobile/Library/Preferences"));
    flip(Setting::recents);
    EXPECT_EQ(alertMessage(), english("cannotWriteSettings"));
    EXPECT_EQ(shown(), "111111");
    EXPECT_EQ(posted(), "");
}

TEST_F(PageSettings, LeaveTheOtherSwitchesNothingToSwitchWhileTheMainSwitchIsOff) {
    open();
    const auto enabled = [this] {
        std::string text;
        for (const zelka::SettingRow& setting : zelka::kSettingRows)
            text += [[(PSControlTableCell*)cell(row(setting.setting)) control] isEnabled] ? '1' : '0';
        return text;
    };
    EXPECT_EQ(enabled(), "111111");
    flip(Setting::enabled);
    EXPECT_EQ(enabled(), "100000");
    EXPECT_EQ(shown(), "011111");
    leave();
    open();
    EXPECT_EQ(enabled(), "100000");
    flip(Setting::enabled);
    EXPECT_EQ(enabled(), "111111");
}

TEST_F(PageSettings, AreRestoredWhenTheUserSaysYes) {
    root.write(kSettingsPath, kOthers);
    open();
    flip(Setting::enabled);
    tap("restoreDefaults");
    ASSERT_EQ(alertMessage(), english("restoreDefaultsQuestion"));
    [[UIAlertView _frontmost] _pressButtonAtIndex:0];
    EXPECT_EQ(storedValues(), "011101");
    const std::string before = posted();
    tap("restoreDefaults");
    [[UIAlertView _frontmost] _pressButtonAtIndex:1];
    EXPECT_EQ(storedValues(), "111111");
    EXPECT_EQ(shown(), "111111");
    EXPECT_TRUE([[file() objectForKey:@"another"] isEqual:@[ @"kept" ]]);
    std::string all;
    for (const zelka::SettingRow& setting : zelka::kSettingRows) all += std::string(" ") + setting.notification;
    EXPECT_EQ(posted(), before + all);
}

TEST_F(PageSettings, ThatCannotBeReadAreReplacedWhenTheUserRestoresThem) {
    root.write(kSettingsPath, "half a fi");
    open();
    tap("restoreDefaults");
    [[UIAlertView _frontmost] _pressButtonAtIndex:1];
    EXPECT_EQ(storedValues(), "111111");
    EXPECT_EQ(shown(), "111111");
    EXPECT_EQ([UIAlertView _frontmost], nil);
}

TEST_F(PageSettings, ThatCannotBeRestoredAreSaidSo) {
    open();
    std::filesystem::remove_all(root.host("/var/mobile/Library/Preferences"));
    tap("restoreDefaults");
    [[UIAlertView _frontmost] _pressButtonAtIndex:1];
    EXPECT_EQ(alertMessage(), english("cannotWriteSettings"));
    EXPECT_EQ(posted(), "");
}

}  // namespace
