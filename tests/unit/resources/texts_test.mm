// The texts of the settings page, in every language, against what the page and its list ask for.
#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>

#include "settings_page/text_keys.h"
#include "src/settings/setting_rows.h"
#include "tests/support/parameter_name.h"

namespace {

const std::set<std::string> kLanguages = {"ar", "de", "en", "es", "fr", "he", "ja", "ru", "sv", "zh-Hans"};

std::string text(NSString* string) { return [string UTF8String] ?: ""; }

NSDictionary* pageList() {
    NSDictionary* list = [NSDictionary dictionaryWithContentsOfFile:@ZELKA_BUNDLE "/ZelkaCB.plist"];
    EXPECT_NE([[list objectForKey:@"items"] count], 0u);
    return list;
}

// What the framework translates of the list, and what the page's code asks for.
std::set<std::string> wantedKeys() {
    std::set<std::string> keys(zelka::kTextKeys.begin(), zelka::kTextKeys.end());
    for (NSDictionary* item in [pageList() objectForKey:@"items"]) {
        for (NSString* key in @[ @"label", @"footerText" ]) {
            if ([item objectForKey:key]) keys.insert(text([item objectForKey:key]));
        }
    }
    return keys;
}

std::string tablePath(const std::string& language) { return ZELKA_BUNDLE "/" + language + ".lproj/ZelkaCB.strings"; }

NSDictionary* tableOf(const std::string& language) {
    NSString* contents = [NSString stringWithContentsOfFile:[NSString stringWithUTF8String:tablePath(language).c_str()]
                                                   encoding:NSUTF8StringEncoding
                                                      error:NULL];
    return [contents propertyListFromStringsFileFormat];
}

// The places of a text into which something is put, sorted.
std::multiset<std::string> formatsOf(NSString* string) {
    const std::regex format("%([0-9]+\\$)?[-+ #0-9.]*(hh|h|ll|l|q|z)?[@a-zA-Z%]");
    const std::string all = text(string);
    return {std::sregex_token_iterator(all.begin(), all.end(), format), {}};
}

TEST(Texts, AreThereInEveryLanguageAndNoOther) {
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(ZELKA_BUNDLE)) {
        if (entry.path().extension() == ".lproj") found.insert(entry.path().stem());
    }
    EXPECT_EQ(found, kLanguages);
}

class Table : public testing::TestWithParam<std::string> {
  protected:
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
};

TEST_P(Table, HasTheTextsThatAreAskedForAndNoOther) {
    std::set<std::string> keys;
    for (NSString* key in tableOf(GetParam())) keys.insert(text(key));
    EXPECT_EQ(keys, wantedKeys());
}

TEST_P(Table, HasEachTextOnce) {
    std::ifstream file(tablePath(GetParam()));
    size_t lines = 0;
    for (std::string line; std::getline(file, line);) lines += line.rfind('"', 0) == 0;
    EXPECT_EQ(lines, [tableOf(GetParam()) count]);
}

TEST_P(Table, HasNoEmptyText) {
    NSDictionary* table = tableOf(GetParam());
    for (NSString* key in table) {
        NSString* trimmed = [[table objectForKey:key]
            stringByTrimmingCharactersInSet:[NSCharacterSet whitespaceAndNewlineCharacterSet]];
        EXPECT_TRUE([trimmed length] > 0 && [trimmed isEqual:[table objectForKey:key]]) << text(key);
    }
}

TEST_P(Table, PutsInWhatTheEnglishPutsIn) {
    NSDictionary *table = tableOf(GetParam()), *english = tableOf("en");
    for (NSString* key in table) {
        EXPECT_EQ(formatsOf([table objectForKey:key]), formatsOf([english objectForKey:key])) << text(key);
    }
}

TEST_P(Table, NamesSwitchesAndButtonsAsTheyAreLabelled) {
    NSDictionary* table = tableOf(GetParam());
    EXPECT_TRUE([[table objectForKey:@"cannotReadSettings"] containsString:[table objectForKey:@"restoreDefaults"]]);
    EXPECT_TRUE([[table objectForKey:@"picturesFooter"] containsString:[table objectForKey:@"monograms"]]);
}

// Whole sentences are alike in no two languages.
TEST_P(Table, IsTranslated) {
    if (GetParam() == "en") return;
    NSDictionary *table = tableOf(GetParam()), *english = tableOf("en");
    for (NSString* key in table) {
        if ([[english objectForKey:key] length] < 20) continue;
        EXPECT_FALSE([[table objectForKey:key] isEqual:[english objectForKey:key]]) << text(key);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Table, testing::ValuesIn(kLanguages), test::ParameterName());

TEST(PageList, HasASwitchForEverySettingInTheirOrder) {
    @autoreleasepool {
        std::vector<std::string> switches, settings;
        for (NSDictionary* item in [pageList() objectForKey:@"items"]) {
            if (![[item objectForKey:@"cell"] isEqual:@"PSSwitchCell"]) continue;
            switches.push_back(text([item objectForKey:@"key"]));
            EXPECT_EQ(text([item objectForKey:@"get"]), "readPreferenceValue:");
            EXPECT_EQ(text([item objectForKey:@"set"]), "setPreferenceValue:specifier:");
            // With these, the preferences service would write the setting, and the framework post it, whenever it
            // likes.
            EXPECT_FALSE([item objectForKey:@"defaults"]) << switches.back();
            EXPECT_FALSE([item objectForKey:@"PostNotification"]) << switches.back();
        }
        for (const zelka::SettingRow& row : zelka::kSettingRows) settings.emplace_back(row.key);
        EXPECT_EQ(switches, settings);
    }
}

TEST(Entry, ShowsTheBundlesController) {
    @autoreleasepool {
        NSDictionary* file = [NSDictionary dictionaryWithContentsOfFile:@ZELKA_ENTRY "/ZelkaCB.plist"];
        NSDictionary* entry = [file objectForKey:@"entry"];
        EXPECT_TRUE([[entry objectForKey:@"cell"] isEqual:@"PSLinkCell"]);
        EXPECT_TRUE([[entry objectForKey:@"bundle"] isEqual:@"ZelkaCBSettings"]);
        EXPECT_TRUE([[entry objectForKey:@"isController"] boolValue]);
        EXPECT_TRUE([[entry objectForKey:@"label"] isEqual:@"ZelkaCB"]);
        // The page's class, by the two names by which it may be looked up.
        NSDictionary* info = [NSDictionary dictionaryWithContentsOfFile:@ZELKA_BUNDLE "/Info.plist"];
        EXPECT_TRUE([[info objectForKey:@"NSPrincipalClass"] isEqual:@"ZelkaCBSettingsController"]);
        EXPECT_TRUE([[entry objectForKey:@"detail"] isEqual:[info objectForKey:@"NSPrincipalClass"]]);
        EXPECT_TRUE([[info objectForKey:@"CFBundleExecutable"] isEqual:@"ZelkaCBSettings"]);
        EXPECT_TRUE([[info objectForKey:@"CFBundleIdentifier"] isEqual:@"com.norvex.ZelkaCBSettings"]);
        EXPECT_TRUE([[info objectForKey:@"CFBundleShortVersionString"] isEqual:@ZELKA_VERSION]);
        EXPECT_TRUE([[NSFileManager defaultManager]
            fileExistsAtPath:[@ZELKA_ENTRY stringByAppendingPathComponent:[entry objectForKey:@"icon"]]]);
        EXPECT_EQ([file objectForKey:@"items"], nil);
    }
}

}  // namespace
