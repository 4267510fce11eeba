// The package for phones, unpacked.
#import <Foundation/Foundation.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "tests/package/command.h"

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

const std::string kQuotedPackage = std::string("'") + ZELKA_PACKAGE + "'";
constexpr const char* kLibraries = "/Library/MobileSubstrate/DynamicLibraries/";
constexpr const char* kSettings = "/Library/PreferenceLoader/Preferences/";
constexpr const char* kDocuments = "/usr/share/doc/com.norvex.zelkacb/";
constexpr const char* kBundle = "/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/";

// A file or folder as `dpkg-deb --contents` tells it.
struct Entry {
    std::string mode, owner, date;
};

std::map<std::string, Entry> contents() {
    std::map<std::string, Entry> entries;
    for (const std::string& line : test::linesOf(test::outputOf("TZ=UTC dpkg-deb --contents " + kQuotedPackage))) {
        char mode[16], owner[64], size[32], day[16], time[16], path[512];
        EXPECT_EQ(sscanf(line.c_str(), "%15s %63s %31s %15s %15s %511s", mode, owner, size, day, time, path), 6)
            << line;
        entries[std::string(path).substr(1)] = {mode, owner, std::string(day) + " " + time};
    }
    return entries;
}

class Package : public testing::Test {
  protected:
    void SetUp() override {
        char folder[] = "/tmp/package-test-XXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        root = folder;
        test::outputOf("dpkg-deb --extract " + kQuotedPackage + " '" + root + "'");
    }
    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }

    std::string field(const char* name) const {
        std::string value = test::outputOf("dpkg-deb --field " + kQuotedPackage + " " + name);
        if (!value.empty() && value.back() == '\n') value.pop_back();
        return value;
    }
    NSDictionary* propertyList(const std::string& path) const {
        return [NSDictionary dictionaryWithContentsOfFile:[NSString stringWithUTF8String:(root + path).c_str()]];
    }

    std::string root;
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
};

TEST_F(Package, TellsPackageManagersWhatItIs) {
    EXPECT_EQ(field("Package"), "com.norvex.zelkacb");
    EXPECT_EQ(field("Name"), "ZelkaCB");
    EXPECT_EQ(field("Version"), ZELKA_VERSION);
    EXPECT_EQ(field("Architecture"), "iphoneos-arm");
    EXPECT_EQ(field("Section"), "Tweaks");
    EXPECT_EQ(field("Depends"), "firmware (>= 7.0), mobilesubstrate, preferenceloader");
    EXPECT_THAT(field("Maintainer"), testing::MatchesRegex("[A-Za-z ]+ <[a-z]+@[a-z.]+>"));
    EXPECT_THAT(field("Homepage"), testing::StartsWith("https://"));
    EXPECT_THAT(field("Depiction"), testing::StartsWith(field("Homepage")));
    const std::string description = field("Description");
    for (const char* processor : {"armv7", "arm64"}) EXPECT_THAT(description, testing::HasSubstr(processor));
}

TEST_F(Package, ItsPictureIsOneOfItsFiles) {
    const std::string icon = field("Icon");
    ASSERT_THAT(icon, testing::StartsWith("file:///"));
    const std::string picture = test::bytesOf(root + icon.substr(7));
    ASSERT_GT(picture.size(), 24u);
    EXPECT_EQ(picture.substr(1, 3), "PNG");
    EXPECT_EQ(picture[19], 120);
    EXPECT_EQ(picture[23], 120);
}

// Every exception is in the package's own list, with its reason; one that is not needed is reported, too.
TEST_F(Package, LintianFindsNothing) {
    EXPECT_EQ(test::outputOf("lintian --no-cfg --display-info --fail-on error,warning,info,pedantic,experimental "
                             "--tag-display-limit 0 " +
                             kQuotedPackage + " 2>/dev/null"),
              "");
}

TEST_F(Package, ListsWhatHasChangedUpToItsVersion) {
    const std::string changes = test::outputOf("zcat '" + root + kDocuments + "changelog.gz'");
    EXPECT_THAT(changes, testing::StartsWith("com.norvex.zelkacb (" ZELKA_VERSION ") "));
    EXPECT_THAT(changes, testing::HasSubstr(" -- " + field("Maintainer") + "  "));
}

TEST_F(Package, CarriesItsLicence) {
    const std::string copyright = test::bytesOf(root + kDocuments + "copyright");
    const std::vector<std::string> licence = test::linesOf(test::bytesOf(ZELKA_SOURCES "/LICENSE"));
    EXPECT_THAT(copyright, testing::HasSubstr("License: " + licence[0].substr(0, licence[0].find(' '))));
    // Its first line is the name, the third says whose it is.
    for (size_t i = 3; i < licence.size(); ++i) EXPECT_THAT(copyright, testing::HasSubstr(" " + licence[i]));
}

TEST_F(Package, ItsChecksumsAreThoseOfItsFiles) {
    test::outputOf("dpkg-deb --control " + kQuotedPackage + " '" + root + "/DEBIAN'");
    const std::string checked =
        test::outputOf("cd '" + root + "' && md5sum --check --strict DEBIAN/md5sums && rm -r DEBIAN && find . -type f");
    size_t sound = 0, files = 0;
    for (const std::string& line : test::linesOf(checked)) (line.ends_with(": OK") ? sound : files) += 1;
    EXPECT_EQ(sound, files);
    EXPECT_GT(files, 10u);
}

TEST_F(Package, InstalledSizeCoversItsFiles) {
    uintmax_t kilobytes = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        kilobytes += entry.is_regular_file() ? (entry.file_size() + 1023) / 1024 : 1;
    }
    EXPECT_EQ(field("Installed-Size"), std::to_string(kilobytes));
}

// Old package managers on phones read no other compression.
TEST_F(Package, ItsMembersAreGzipped) {
    EXPECT_THAT(test::linesOf(test::outputOf("ar t " + kQuotedPackage)),
                ElementsAre("debian-binary", "control.tar.gz", "data.tar.gz"));
}

TEST_F(Package, RunsNothingWhenItIsInstalled) {
    EXPECT_THAT(test::linesOf(test::outputOf("dpkg-deb --ctrl-tarfile " + kQuotedPackage + " | tar -t")),
                UnorderedElementsAre("./", "./control", "./md5sums"));
}

TEST_F(Package, HasTheFilesOfAPhoneAndNoOther) {
    std::vector<std::string> files;
    for (const auto& [path, entry] : contents()) {
        if (path.back() != '/') files.push_back(path);
    }
    std::vector<std::string> expected = {
        std::string(kLibraries) + "ZelkaCB.dylib", std::string(kLibraries) + "ZelkaCB.plist",
        std::string(kSettings) + "ZelkaCB.plist",  std::string(kBundle) + "ZelkaCB.plist",
        std::string(kDocuments) + "changelog.gz",  std::string(kDocuments) + "copyright",
        "/usr/share/com.norvex.zelkacb/icon.png",  "/usr/share/lintian/overrides/com.norvex.zelkacb",
        std::string(kBundle) + "Info.plist",       std::string(kBundle) + "ZelkaCBSettings"};
    for (const char* language : {"ar", "de", "en", "es", "fr", "he", "ja", "ru", "sv", "zh-Hans"})
        expected.push_back(std::string(kBundle) + language + ".lproj/ZelkaCB.strings");
    for (const char* suffix : {"", "@2x", "@3x"}) {
        expected.push_back(std::string(kSettings) + "ZelkaCB" + suffix + ".png");
        for (const char* picture : {"recent", "sample", "user_monogram", "user_monogram_round"}) {
            expected.push_back(std::string(kBundle) + picture + suffix + ".png");
        }
    }
    EXPECT_THAT(files, testing::UnorderedElementsAreArray(expected));
}

TEST_F(Package, EverythingIsRootsAndReadableByAll) {
    for (const auto& [path, entry] : contents()) {
        const bool isFolder = path.back() == '/',
                   isCode = path.ends_with(".dylib") || path.ends_with("/ZelkaCBSettings");
        EXPECT_EQ(entry.owner, "root/root") << path;
        EXPECT_EQ(entry.mode, isFolder ? "drwxr-xr-x" : isCode ? "-rwxr-xr-x" : "-rw-r--r--") << path;
    }
}

TEST_F(Package, CarriesWhatWasBuilt) {
    EXPECT_EQ(test::bytesOf(root + kLibraries + "ZelkaCB.dylib"), test::bytesOf(ZELKA_PHONE));
    EXPECT_EQ(test::bytesOf(root + kLibraries + "ZelkaCB.plist"), test::bytesOf(ZELKA_FILTER));
    EXPECT_EQ(test::bytesOf(root + kBundle + "ZelkaCBSettings"), test::bytesOf(ZELKA_PAGE_PHONE));
    for (const auto& [folder, place] : {std::pair(ZELKA_BUNDLE, kBundle), std::pair(ZELKA_ENTRY, kSettings)}) {
        for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) {
            // This machine's executable of the page, which the phone's takes the place of.
            if (!file.is_regular_file() || file.path().filename() == "ZelkaCBSettings") continue;
            EXPECT_EQ(test::bytesOf(root + place + std::filesystem::relative(file.path(), folder).string()),
                      test::bytesOf(file.path()))
                << file.path();
        }
    }
}

TEST_F(Package, OnlyTheTwoServedProcessesAreNamed) {
    NSArray* bundles =
        [[propertyList(std::string(kLibraries) + "ZelkaCB.plist") objectForKey:@"Filter"] objectForKey:@"Bundles"];
    EXPECT_TRUE(([bundles isEqual:@[ @"com.apple.springboard", @"net.vantrel.callbarviewservice" ]]));
}

TEST_F(Package, TheSettingsIconsFitTheirScales) {
    for (const auto& [suffix, side] : std::map<std::string, int>{{"", 29}, {"@2x", 58}, {"@3x", 87}}) {
        const std::string picture = test::bytesOf(root + kSettings + "ZelkaCB" + suffix + ".png");
        ASSERT_GT(picture.size(), 24u);
        EXPECT_EQ(picture.substr(1, 3), "PNG");
        EXPECT_EQ(static_cast<unsigned char>(picture[19]), side);
        EXPECT_EQ(static_cast<unsigned char>(picture[23]), side);
    }
}

// Dates are the given moment's, and nothing else of the time or place of the making gets in.
TEST_F(Package, TheSameInputsGiveTheSameBytes) {
    const auto make = [&](const std::string& name) {
        const std::string path = root + "/" + name;
        test::outputOf("cd / && SOURCE_DATE_EPOCH=1400000000 '" ZELKA_MAKE_PACKAGE "' '" ZELKA_PHONE
                       "' '" ZELKA_PAGE_PHONE "' '" ZELKA_BUNDLE "' '" ZELKA_ENTRY "' '" ZELKA_CONTROL "' '" +
                       path + "'");
        return test::bytesOf(path);
    };
    const std::string first = make("first.deb"), second = make("second.deb");
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(first, second);
    const std::string dates = test::outputOf("TZ=UTC dpkg-deb --contents '" + root + "/first.deb'");
    for (const std::string& line : test::linesOf(dates)) EXPECT_THAT(line, testing::HasSubstr(" 2014-05-13 16:53 "));
}

}  // namespace
