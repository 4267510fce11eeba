#include "tests/support/encodings.h"
#include "tests/support/extension.h"
#include "tests/support/property_list.h"

#include <gmock/gmock.h>

#include "simulator/runtime/process/device.h"

namespace {

using test::kSettingsPath;
using test::propertyList;

constexpr const char* kFirstUse =
    "com.norvex.ZelkaCB: Information => __31+[ZLKCBSettings sharedSettings]_block_invoke, [Line 102], Initiallizing "
    "settings for first time..";
constexpr const char* kLoaded =
    "com.norvex.ZelkaCB: Information => -[ZLKCBSettings loadSettings], [Line 88], Loading settings completed..";

class SettingsStore : public test::ExtensionTest {
  protected:
    // The library seeds the file when it is loaded, so what a test wants to find comes after.
    void bootWith(const std::string& file) {
        boot();
        root.write(kSettingsPath, file);
    }

    // The six values in order, as text: "101010".
    std::string values() const {
        ZLKCBSettings* settings = [SettingsClass sharedSettings];
        const BOOL all[] = {[settings isZelkaCBEnabled],        [settings isRoundedPicsEnabled],
                            [settings isMonogramEnabled],       [settings isShowPicturesOnFavorites],
                            [settings isShowPicturesOnRecents], [settings isShowPicturesOnContacts]};
        std::string text;
        for (BOOL value : all) text += value ? '1' : '0';
        return text;
    }
};

TEST_F(SettingsStore, IsNotMadeWhileTheLibraryLoads) {
    boot();
    EXPECT_EQ(loggedLines(kFirstUse), 0);
    EXPECT_EQ(loggedLines(kLoaded), 0);
}

TEST_F(SettingsStore, IsMadeAndLoadedOnceByTheFirstUse) {
    boot();
    ZLKCBSettings* first = [SettingsClass sharedSettings];
    EXPECT_EQ([SettingsClass sharedSettings], first);
    EXPECT_TRUE([first isKindOfClass:objc_getClass("ZLKCBSettings")]);
    EXPECT_EQ(loggedLines(kFirstUse), 1);
    EXPECT_EQ(loggedLines(kLoaded), 1);
    EXPECT_LT(log().find(kFirstUse), log().find(kLoaded));
}

TEST_F(SettingsStore, IsMadeOnceEvenByManyThreads) {
    boot();
    NSOperationQueue* queue = [[NSOperationQueue alloc] init];
    [queue setMaxConcurrentOperationCount:8];
    for (int i = 0; i < 32; ++i) {
        [queue addOperation:[[[NSInvocationOperation alloc] initWithTarget:(id)SettingsClass
                                                                  selector:@selector(sharedSettings)
                                                                    object:nil] autorelease]];
    }
    [queue waitUntilAllOperationsAreFinished];
    [queue release];
    EXPECT_EQ(loggedLines(kFirstUse), 1);
    EXPECT_EQ(loggedLines(kLoaded), 1);
}

TEST_F(SettingsStore, IsAnInstanceOfTheClassThatWasAskedFirst) {
    boot();
    Class subclass = objc_allocateClassPair(objc_getClass("ZLKCBSettings"), "OtherSettings", 0);
    objc_registerClassPair(subclass);
    EXPECT_EQ([[(Class<ZLKCBSettings>)subclass sharedSettings] class], subclass);
    EXPECT_EQ([[SettingsClass sharedSettings] class], subclass);
    EXPECT_EQ(values(), "111111");
}

TEST_F(SettingsStore, LoadsWhatWasSeeded) {
    boot();
    EXPECT_EQ(values(), "111111");
}

// Other programs know them; a phone's file keeps them for years.
TEST_F(SettingsStore, ItsKeysAreTheseSix) {
    EXPECT_THAT(test::kSettingsKeys,
                testing::ElementsAre(testing::StrEq("ZelkaCBEnabled"), testing::StrEq("ZelkaCBEnabledRoundedPictures"),
                                     testing::StrEq("ZelkaCBEnabledMonogramPictures"),
                                     testing::StrEq("ZelkaCBEnabledFavorites"), testing::StrEq("ZelkaCBEnabledRecents"),
                                     testing::StrEq("ZelkaCBEnabledContacts")));
}

// One key on at a time: each property has its own.
TEST_F(SettingsStore, EachKeySetsItsOwnProperty) {
    boot();
    std::string seen;
    for (const char* key : test::kSettingsKeys) {
        root.write(kSettingsPath, propertyList({{key, true}}));
        [[SettingsClass sharedSettings] loadSettings];
        seen += values() + " ";
    }
    EXPECT_EQ(seen, "100000 010000 001000 000100 000010 000001 ");
}

TEST_F(SettingsStore, AnAbsentFileReadsAsAllOff) {
    boot();
    ASSERT_TRUE(std::filesystem::remove(root.host(kSettingsPath)));
    EXPECT_EQ(values(), "000000");
    EXPECT_FALSE([Utils isZelkaCBOnlyOn]);
    EXPECT_FALSE([Utils isRoundedPicsEnabled]);
    EXPECT_FALSE([Utils isMonogramEnabled]);
    EXPECT_EQ(loggedLines(kLoaded), 1);
}

TEST_F(SettingsStore, AReloadTurnsEverythingOffWhenTheFileHasGone) {
    boot();
    ASSERT_EQ(values(), "111111");
    ASSERT_TRUE(std::filesystem::remove(root.host(kSettingsPath)));
    [[SettingsClass sharedSettings] loadSettings];
    EXPECT_EQ(values(), "000000");
    EXPECT_EQ(loggedLines(kLoaded), 2);
}

TEST_F(SettingsStore, GarbageReadsAsAllOff) {
    bootWith("this { is no ( property list \x01\x02");
    EXPECT_EQ(values(), "000000");
}

TEST_F(SettingsStore, AListReadsAsAllOff) {
    bootWith("<?xml version=\"1.0\"?><plist version=\"1.0\"><array><true/></array></plist>");
    EXPECT_EQ(values(), "000000");
}

TEST_F(SettingsStore, ADirectoryInTheFilesPlaceReadsAsAllOff) {
    boot();
    ASSERT_TRUE(std::filesystem::remove(root.host(kSettingsPath)));
    ASSERT_TRUE(std::filesystem::create_directory(root.host(kSettingsPath)));
    EXPECT_EQ(values(), "000000");
}

TEST_F(SettingsStore, NumbersReadAsBooleans) {
    bootWith("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>ZelkaCBEnabled</key><integer>1</integer>"
             "<key>ZelkaCBEnabledRoundedPictures</key><integer>0</integer>"
             "<key>ZelkaCBEnabledRecents</key><real>1</real></dict></plist>");
    EXPECT_EQ(values(), "100010");
}

TEST_F(SettingsStore, AValueWithoutTruthReadsAsOff) {
    bootWith("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>ZelkaCBEnabled</key><array><true/></array>"
             "<key>ZelkaCBEnabledRoundedPictures</key><data>AQ==</data>"
             "<key>ZelkaCBEnabledMonogramPictures</key><string>YES</string>"
             "<key>ZelkaCBEnabledContacts</key><true/></dict></plist>");
    EXPECT_EQ(values(), "001001");
}

TEST_F(SettingsStore, IsReadFromTheRelativePathNotFromTheHomeDirectory) {
    boot();
    // The home directory stays where it was; what "User" leads to from the working directory does not.
    std::filesystem::remove(root.path() / "User");
    root.write("/User/Library/Preferences/com.norvex.ZelkaCB.plist", propertyList({{"ZelkaCBEnabledContacts", true}}));
    EXPECT_EQ(values(), "000001");
}

TEST_F(SettingsStore, IsReadRelativeToTheWorkingDirectory) {
    boot();
    root.write("/elsewhere/User/Library/Preferences/com.norvex.ZelkaCB.plist",
               propertyList({{"ZelkaCBEnabledContacts", true}}));
    std::filesystem::current_path(root.path() / "elsewhere");
    EXPECT_EQ(values(), "000001");
}

TEST_F(SettingsStore, SettersChangeTheirOwnValueOnly) {
    boot();
    ZLKCBSettings* settings = [SettingsClass sharedSettings];
    [settings setIsZelkaCBEnabled:NO];
    EXPECT_EQ(values(), "011111");
    [settings setIsRoundedPicsEnabled:NO];
    [settings setIsMonogramEnabled:NO];
    [settings setIsShowPicturesOnFavorites:NO];
    EXPECT_EQ(values(), "000011");
    [settings setIsShowPicturesOnRecents:NO];
    EXPECT_EQ(values(), "000001");
    [settings setIsShowPicturesOnContacts:NO];
    [settings setIsMonogramEnabled:YES];
    EXPECT_EQ(values(), "001000");
}

TEST_F(SettingsStore, DescribesItselfOnSixLines) {
    boot();
    EXPECT_STREQ([[[SettingsClass sharedSettings] description] UTF8String],
                 "Zelka For Call Enabled: 1\nRound Pictures Enabled: 1\nMonogram Enabled: 1\nZelka on Favorites: 1\n"
                 "Zelka on Recents:1\nZelka on Contacts:1.");
}

TEST_F(SettingsStore, DescriptionHasEachSettingOnItsLine) {
    boot();
    std::string seen;
    for (const char* key : test::kSettingsKeys) {
        root.write(kSettingsPath, propertyList({{key, true}}));
        [[SettingsClass sharedSettings] loadSettings];
        for (NSString* line in [[[SettingsClass sharedSettings] description] componentsSeparatedByString:@"\n"])
            seen += [line rangeOfString:@":1"].length + [line rangeOfString:@": 1"].length > 0 ? '1' : '0';
        seen += ' ';
    }
    EXPECT_EQ(seen, "100000 010000 001000 000100 000010 000001 ");
}

TEST_F(SettingsStore, SettingsDictionaryIsACopyThatTheCallerOwns) {
    boot();
    root.write("/var/mobile/other.plist", propertyList({{"ZelkaCBEnabled", false}, {"another", true}}));
    NSDictionary* stored = [SettingsClass settingsDictionary:@"/var/mobile/other.plist"];
    EXPECT_EQ([stored count], 2u);
    EXPECT_FALSE([[stored objectForKey:@"ZelkaCBEnabled"] boolValue]);
    EXPECT_FALSE([stored isKindOfClass:[NSMutableDictionary class]]);
    EXPECT_EQ([stored retainCount], 1u);
    [stored release];
}

TEST_F(SettingsStore, SettingsDictionaryIsNilWhenNothingCanBeRead) {
    boot();
    root.write("/var/mobile/garbage.plist", "no property list {");
    EXPECT_EQ([SettingsClass settingsDictionary:@"/var/mobile/missing.plist"], nil);
    EXPECT_EQ([SettingsClass settingsDictionary:@"/var/mobile/garbage.plist"], nil);
    EXPECT_EQ([SettingsClass settingsDictionary:@"/var/mobile"], nil);
    EXPECT_EQ([SettingsClass settingsDictionary:nil], nil);
}

TEST_F(SettingsStore, QueriesAskTheSharedSettings) {
    boot();
    EXPECT_TRUE([Utils isZelkaCBOnlyOn]);
    EXPECT_TRUE([Utils isRoundedPicsEnabled]);
    EXPECT_TRUE([Utils isMonogramEnabled]);
    [[SettingsClass sharedSettings] setIsZelkaCBEnabled:NO];
    EXPECT_FALSE([Utils isZelkaCBOnlyOn]);
    [[SettingsClass sharedSettings] setIsRoundedPicsEnabled:NO];
    EXPECT_FALSE([Utils isRoundedPicsEnabled]);
    [[SettingsClass sharedSettings] setIsMonogramEnabled:NO];
    EXPECT_FALSE([Utils isMonogramEnabled]);
}

TEST_F(SettingsStore, MonogramsAreOffBeforeVersion7WhateverTheSetting) {
    root.setDevice("ipad2-6.1");
    boot();
    EXPECT_TRUE([[SettingsClass sharedSettings] isMonogramEnabled]);
    EXPECT_FALSE([Utils isMonogramEnabled]);
    EXPECT_TRUE([Utils isRoundedPicsEnabled]);
}

TEST_F(SettingsStore, BeforeVersion7TheMonogramQueryDoesNotEvenMakeTheSettings) {
    root.setDevice("ipad2-6.1");
    boot();
    EXPECT_FALSE([Utils isMonogramEnabled]);
    EXPECT_EQ(loggedLines(kFirstUse), 0);
}

TEST_F(SettingsStore, HoldsSixBooleansInTheSettingsOrder) {
    boot();
    unsigned count = 0;
    Ivar* variables = class_copyIvarList(objc_getClass("ZLKCBSettings"), &count);
    ASSERT_EQ(count, 6u);
    std::string names;
    for (unsigned i = 0; i < count; ++i) {
        names += std::string(ivar_getName(variables[i])) + " ";
        // BOOL as this machine's runtime spells it, or the phone's.
        EXPECT_THAT(ivar_getTypeEncoding(variables[i]),
                    testing::AnyOf(testing::StrEq(@encode(BOOL)), testing::StrEq("B")));
        EXPECT_EQ(ivar_getOffset(variables[i]), ivar_getOffset(variables[0]) + static_cast<int>(i));
    }
    free(variables);
    EXPECT_EQ(names, "_isZelkaCBEnabled _isRoundedPicsEnabled _isMonogramEnabled _isShowPicturesOnFavorites "
                     "_isShowPicturesOnRecents _isShowPicturesOnContacts ");
}

TEST_F(SettingsStore, DeclaresEachSettingAsANonatomicProperty) {
    boot();
    for (const std::string name :
         {"isZelkaCBEnabled", "isRoundedPicsEnabled", "isMonogramEnabled", "isShowPicturesOnFavorites",
          "isShowPicturesOnRecents", "isShowPicturesOnContacts"}) {
        objc_property_t property = class_getProperty(objc_getClass("ZLKCBSettings"), name.c_str());
        ASSERT_NE(property, nullptr) << name;
        // BOOL as this machine's runtime spells it, or the phone's.
        EXPECT_THAT(property_getAttributes(property),
                    testing::AnyOf("T" + std::string(@encode(BOOL)) + ",N,V_" + name, "TB,N,V_" + name));
    }
}

TEST_F(SettingsStore, EveryOperationAnswersWithTheDeclaredTypes) {
    boot();
    EXPECT_EQ(test::differences(@protocol(ZLKCBSettings), objc_getClass("ZLKCBSettings")), "");
}

}  // namespace
