#include <gmock/gmock.h>
#include "simulator/frameworks/core_foundation/darwin_notifications.h"

#include "simulator/runtime/process/library_loader.h"
#include "tests/support/emptied_dictionaries.h"
#include "tests/support/extension.h"
#include "tests/support/library_path.h"
#include "tests/support/parameter_name.h"
#include "tests/support/property_list.h"

namespace {

using test::kSettingsPath;
using test::propertyList;

constexpr const char* kLogPath = "/tmp/ZelkaCB.log";
constexpr const char* kExists = "com.norvex.ZelkaCB => Info: Settings file exists, checking version..";

std::string updating(int count) {
    return "com.norvex.ZelkaCB => Info: Old settings file found, updating it with latest one. [settings count] => " +
           std::to_string(count);
}

class Bootstrap : public test::ExtensionTest {
  protected:
    NSDictionary* settingsFile() const {
        return [NSDictionary dictionaryWithContentsOfFile:[NSString stringWithUTF8String:kSettingsPath]];
    }

    // The six values as they stand in the file, "1" for true, "-" for a missing one.
    std::string seeded() const {
        NSDictionary* file = settingsFile();
        std::string text;
        for (const char* key : test::kSettingsKeys) {
            id value = [file objectForKey:[NSString stringWithUTF8String:key]];
            text += value == nil ? '-' : [value boolValue] ? '1' : '0';
        }
        return text;
    }

    // The names observed, in the order of their registration.
    std::vector<std::string> observed() const {
        std::vector<std::string> names;
        for (const phone::DarwinObserver& each : phone::darwinObservers()) names.emplace_back([each.name UTF8String]);
        return names;
    }
};

const std::vector<std::string> kObserved = {
    "__ABDataBaseChangedByOtherProcessNotification",        "com.norvex.ZelkaCBEnabledNotification",
    "com.norvex.ZelkaCBRoundedPicturesEnabledNotification", "com.norvex.ZelkaCBMonogramPicturesEnabledNotification",
    "com.norvex.ZelkaCBFavoritesEnabledNotification",       "com.norvex.ZelkaCBRecentsEnabledNotification",
    "com.norvex.ZelkaCBContactsEnabledNotification"};

TEST_F(Bootstrap, WithoutSettingsFileOneWithExactlyTheSixKeysOnIsMade) {
    boot();
    EXPECT_EQ(seeded(), "111111");
    EXPECT_EQ([settingsFile() count], 6u);
    for (id value in [settingsFile() allValues]) EXPECT_TRUE([value isKindOfClass:[NSNumber class]]);
    EXPECT_EQ(loggedLines(kExists), 0);
}

TEST_F(Bootstrap, ServesTheViewServiceToo) {
    boot("net.vantrel.callbarviewservice");
    EXPECT_EQ(seeded(), "111111");
    EXPECT_TRUE(root.exists(kLogPath));
}

TEST_F(Bootstrap, AValueThatIsThereIsNotChangedAndMissingOnesAreAdded) {
    root.write(kSettingsPath, propertyList({{"ZelkaCBEnabledRecents", false}}));
    boot();
    EXPECT_EQ(seeded(), "111101");
    EXPECT_EQ(loggedLines(kExists), 1);
    EXPECT_EQ(loggedLines(updating(1)), 1);
    EXPECT_LT(log().find(kExists), log().find(updating(1)));
}

TEST_F(Bootstrap, ACompleteFileKeepsItsValues) {
    root.write(kSettingsPath, propertyList({{"ZelkaCBEnabled", true},
                                            {"ZelkaCBEnabledRoundedPictures", false},
                                            {"ZelkaCBEnabledMonogramPictures", true},
                                            {"ZelkaCBEnabledFavorites", false},
                                            {"ZelkaCBEnabledRecents", true},
                                            {"ZelkaCBEnabledContacts", false}}));
    boot();
    EXPECT_EQ(seeded(), "101010");
    EXPECT_EQ(loggedLines(updating(6)), 1);
}

// What points at the old file keeps its bytes: the new one is written beside it and takes its place.
TEST_F(Bootstrap, ACompleteFileIsWrittenAnewAllTheSame) {
    const std::string before = propertyList({{"ZelkaCBEnabled", true},
                                             {"ZelkaCBEnabledRoundedPictures", false},
                                             {"ZelkaCBEnabledMonogramPictures", true},
                                             {"ZelkaCBEnabledFavorites", false},
                                             {"ZelkaCBEnabledRecents", true},
                                             {"ZelkaCBEnabledContacts", false}});
    root.write(kSettingsPath, before);
    std::filesystem::create_hard_link(root.host(kSettingsPath), root.host("/tmp/old.plist"));
    boot();
    EXPECT_FALSE(std::filesystem::equivalent(root.host(kSettingsPath), root.host("/tmp/old.plist")));
    EXPECT_EQ(root.read("/tmp/old.plist"), before);
    EXPECT_EQ(seeded(), "101010");
}

TEST_F(Bootstrap, OtherKeysAndValuesOfOtherTypesAreKept) {
    root.write(kSettingsPath,
               "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>theme</key><string>dark</string>"
               "<key>ZelkaCBEnabled</key><string>perhaps</string><key>ZelkaCBEnabledContacts</key><integer>0</integer>"
               "</dict></plist>");
    boot();
    EXPECT_TRUE([[settingsFile() objectForKey:@"theme"] isEqual:@"dark"]);
    EXPECT_TRUE([[settingsFile() objectForKey:@"ZelkaCBEnabled"] isEqual:@"perhaps"]);
    EXPECT_EQ(seeded(), "011110");
    EXPECT_EQ([settingsFile() count], 7u);
    EXPECT_EQ(loggedLines(updating(3)), 1);
}

TEST_F(Bootstrap, AFileThatIsNoPropertyListIsReplaced) {
    root.write(kSettingsPath, "this { is no ( property list \x01\x02");
    boot();
    EXPECT_EQ(seeded(), "111111");
    EXPECT_EQ([settingsFile() count], 6u);
    EXPECT_EQ(loggedLines(kExists), 1);
    EXPECT_EQ(loggedLines(updating(0)), 1);
}

TEST_F(Bootstrap, AnEmptyFileIsReplaced) {
    root.write(kSettingsPath, "");
    boot();
    EXPECT_EQ(seeded(), "111111");
    EXPECT_EQ(loggedLines(updating(0)), 1);
}

TEST_F(Bootstrap, AListIsReplaced) {
    root.write(kSettingsPath, "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><true/></array></plist>");
    boot();
    EXPECT_EQ(seeded(), "111111");
    EXPECT_EQ(loggedLines(updating(0)), 1);
}

TEST_F(Bootstrap, ADirectoryInTheFilesPlaceCountsAsAFile) {
    std::filesystem::create_directories(root.host(kSettingsPath) + "/inside");
    boot();
    EXPECT_EQ(loggedLines(kExists), 1);
    EXPECT_EQ(loggedLines(updating(0)), 1);
    EXPECT_EQ(observed(), kObserved);
}

TEST_F(Bootstrap, StartsAllTheSameWhenTheFileCannotBeWritten) {
    std::filesystem::remove_all(root.host("/var/mobile/Library/Preferences"));
    root.write("/var/mobile/Library/Preferences", "a file in the folder's place");
    boot();
    EXPECT_EQ(observed(), kObserved);
    EXPECT_FALSE([Utils isZelkaCBOnlyOn]);
}

TEST_F(Bootstrap, StartsAllTheSameWhenTheLogCannotBeOpened) {
    std::filesystem::create_directories(root.host(kLogPath));
    boot();
    EXPECT_EQ(seeded(), "111111");
    EXPECT_EQ(observed(), kObserved);
}

TEST_F(Bootstrap, SeedsInTheHomeDirectory) {
    // Where the settings are read from later is another path, which leads elsewhere here.
    std::filesystem::remove(root.path() / "User");
    boot();
    EXPECT_EQ(seeded(), "111111");
    EXPECT_FALSE(root.exists("/User/Library/Preferences/com.norvex.ZelkaCB.plist"));
}

TEST_F(Bootstrap, TheSeededDictionaryIsEmptiedBeforeItGoes) {
    bootPhone("com.apple.springboard");
    test::watchEmptiedDictionaries();
    loadExtension();
    NSArray* emptied = test::emptiedDictionariesWith(@"ZelkaCBEnabled");
    ASSERT_EQ([emptied count], 1u);
    EXPECT_EQ([[emptied objectAtIndex:0] count], 6u);
    EXPECT_EQ(seeded(), "111111");
}

TEST_F(Bootstrap, AppendsToTheLogFile) {
    root.write(kLogPath, "an earlier line\n");
    root.write(kSettingsPath, propertyList({}));
    boot();
    NSLog(@"a line of the host's");
    EXPECT_EQ(log().find("an earlier line\n"), 0u);
    EXPECT_EQ(loggedLines(kExists), 1);
    EXPECT_EQ(loggedLines("a line of the host's"), 1);
}

TEST_F(Bootstrap, ObservesSevenNotificationsInOrder) {
    boot();
    EXPECT_EQ(observed(), kObserved);
    const auto observers = phone::darwinObservers();
    for (const phone::DarwinObserver& each : observers) {
        EXPECT_EQ(each.observer, nullptr);
        EXPECT_EQ(each.behaviour, CFNotificationSuspensionBehaviorDeliverImmediately);
        EXPECT_EQ(each.callback == observers[0].callback, &each == &observers[0]);
        EXPECT_TRUE(&each == &observers[0] || each.callback == observers[1].callback);
    }
}

TEST_F(Bootstrap, AProcessThatIsNotServedIsObservedForAndLeftAlone) {
    boot("com.apple.mobilephone");
    EXPECT_EQ(observed(), kObserved);
    EXPECT_FALSE(root.exists(kLogPath));
    EXPECT_FALSE(root.exists(kSettingsPath));
}

TEST_F(Bootstrap, ASettingsFileIsLeftAsItIsInAProcessThatIsNotServed) {
    const std::string before = propertyList({{"ZelkaCBEnabledRecents", false}});
    root.write(kSettingsPath, before);
    std::filesystem::create_hard_link(root.host(kSettingsPath), root.host("/tmp/old.plist"));
    boot("com.apple.mobilephone");
    EXPECT_EQ(root.read(kSettingsPath), before);
    EXPECT_TRUE(std::filesystem::equivalent(root.host(kSettingsPath), root.host("/tmp/old.plist"))) << "written anew";
}

class NearlyServed : public Bootstrap, public testing::WithParamInterface<const char*> {};

// Letter case and length of the identifier count.
TEST_P(NearlyServed, AnIdentifierThatOnlyResemblesAServedOneIsNotServed) {
    boot(GetParam());
    EXPECT_EQ(observed(), kObserved);
    EXPECT_FALSE(root.exists(kLogPath));
    EXPECT_FALSE(root.exists(kSettingsPath));
}

INSTANTIATE_TEST_SUITE_P(Identifiers, NearlyServed,
                         testing::Values("com.apple.SpringBoard", "com.apple.springboard.helper", "com.apple.spring",
                                         "net.vantrel.CallBarViewService", "net.vantrel.callbarviewservice2",
                                         "net.vantrel.callbar"),
                         test::ParameterName());

TEST_F(Bootstrap, NothingHappensInAProcessWithoutIdentifier) {
    boot("");
    EXPECT_TRUE(observed().empty());
    EXPECT_FALSE(root.exists(kLogPath));
    EXPECT_FALSE(root.exists(kSettingsPath));
}

TEST_F(Bootstrap, WhatEndsTheProcessIsSeenThoughStandardErrorIsTheLog) {
    EXPECT_DEATH(
        {
            boot();
            fputs("the last words\n", stderr);
            abort();
        },
        "the last words");
    EXPECT_EXIT(
        {
            boot();
            fputs("the last words\n", stderr);
            exit(3);
        },
        testing::ExitedWithCode(3), "the last words");
}

TEST_F(Bootstrap, DoesNotMakeTheSettings) {
    boot();
    EXPECT_EQ(loggedLines("Initiallizing settings for first time.."), 0);
}

TEST_F(Bootstrap, WithoutCallBarsClassesTheSystemClassesAreHookedAll) {
    boot("com.apple.mobilephone");
    ASSERT_EQ(objc_getClass("CallBarABViewController"), Nil);
    const std::pair<const char*, const char*> hooked[] = {
        {"ABMonogrammer", "_copyMonogramWithInitials:"},
        {"ABMonogrammer", "_copyMonogramWithImageData:"},
        {"ABMonogrammer", "monogramForPerson:isPersonImage:"},
        {"ABMembersViewController", "viewDidAppear:"},
        {"ABMemberCell", "_drawText:withColor:shadowColor:shadowOffset:atPoint:forWidth:withFont:lineBreakMode:"},
        {"ABMemberCell", "layoutSubviews"},
        {"ABMembersDataSource", "tableView:cellForRowAtIndexPath:"},
        {"ABMembersFilteredDataSource", "tableView:cellForRowAtIndexPath:"}};
    for (const auto& [name, selector] : hooked) {
        IMP implementation = class_getMethodImplementation(objc_getClass(name), sel_registerName(selector));
        EXPECT_EQ(phone::libraryOf(reinterpret_cast<void*>(implementation)), test::libraryPath()) << name << selector;
    }
}

}  // namespace
