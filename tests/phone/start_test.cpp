// Starting processes: what the library leaves behind in the served ones, and that it leaves others alone.
#include <gmock/gmock.h>

#include <filesystem>

#include "tests/phone/phone_test.h"
#include "tests/support/parameter_name.h"
#include "tests/support/property_list.h"

namespace test {
namespace {

using testing::HasSubstr;
using testing::Not;

class Start : public PhoneTest {
  protected:
    std::string settingsText() const { return read(kSettingsFile); }
};

TEST_F(Start, ASettingsFileIsMadeAndPicturesAreOn) {
    makePhone();
    ASSERT_FALSE(std::filesystem::exists(host(kSettingsFile)));
    HostProcess host(HostKind::springBoard, options());
    for (const char* key : kSettingsKeys) EXPECT_THAT(settingsText(), HasSubstr(key));
    EXPECT_EQ(count(settingsText(), "<true/>"), 6);
    EXPECT_EQ(sourceOf(rowOf(show(host, "recents"), kAnn)), "photo");
}

TEST_F(Start, AnOffSwitchStaysOffAndTheMissingOnesAreAddedAsOn) {
    makePhone();
    write(kSettingsFile, propertyList({{"ZelkaCBEnabledRecents", false}}));
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(count(settingsText(), "<true/>"), 5);
    EXPECT_EQ(count(settingsText(), "<false/>"), 1);
    for (const Json& row : show(host, "recents")) EXPECT_EQ(row.at("hasPictureView"), false);
    EXPECT_EQ(sourceOf(rowOf(show(host, "contacts"), kAnn)), "photo");
    EXPECT_THAT(log(), HasSubstr("[settings count] => 1\n"));
}

TEST_F(Start, NumbersAndTextsSwitchAsTheirTruthValueSays) {
    makePhone();
    write(kSettingsFile,
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
          "<key>ZelkaCBEnabled</key><integer>1</integer>"
          "<key>ZelkaCBEnabledRecents</key><string>YES</string>"
          "<key>ZelkaCBEnabledContacts</key><integer>0</integer></dict></plist>");
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(sourceOf(rowOf(show(host, "recents"), kAnn)), "photo");
    for (const Json& row : show(host, "contacts")) EXPECT_EQ(row.at("hasPictureView"), false);
}

struct BadFile {
    const char* name;
    const char* contents;
};

void PrintTo(const BadFile& file, std::ostream* out) { *out << file.name; }

class BadSettings : public Start, public testing::WithParamInterface<BadFile> {};

// A file that is no dictionary is replaced, so that everything is on.
TEST_P(BadSettings, AreReplacedAndTheHostShowsPictures) {
    makePhone();
    write(kSettingsFile, GetParam().contents);
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(count(settingsText(), "<true/>"), 6);
    EXPECT_THAT(log(), HasSubstr("[settings count] => 0\n"));
    EXPECT_EQ(sourceOf(rowOf(show(host, "recents"), kAnn)), "photo");
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadSettings,
    testing::Values(BadFile{"Empty", ""}, BadFile{"Garbage", "\x01\x02 { not ( a list"},
                    BadFile{"Truncated", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Ze"},
                    BadFile{"Array", "<?xml version=\"1.0\"?><plist version=\"1.0\"><array/></plist>"},
                    BadFile{"BinaryHeader", "bplist00\xff\xff\xff\xff"}),
    test::ParameterName());

// Values that have no truth value count as off, and nothing raises.
TEST_F(Start, ValuesOfOtherTypesAreKeptAndTheHostLives) {
    makePhone();
    write(kSettingsFile,
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
          "<key>ZelkaCBEnabledRecents</key><array><true/></array>"
          "<key>ZelkaCBEnabledContacts</key><dict/>"
          "<key>ZelkaCBEnabledFavorites</key><data>AAAA</data>"
          "<key>ZelkaCBEnabledMonogramPictures</key><date>2015-06-09T12:00:00Z</date></dict></plist>");
    HostProcess host(HostKind::springBoard, options());
    for (const char* screen : {"recents", "contacts", "favorites"}) show(host, screen);
    EXPECT_TRUE(host.running());
    EXPECT_THAT(settingsText(), HasSubstr("<data>"));
}

TEST_F(Start, ADirectoryInTheSettingsFilesPlaceMeansEverythingIsOff) {
    makePhone();
    std::filesystem::create_directories(host(kSettingsFile) + "/inside");
    HostProcess host(HostKind::springBoard, options());
    for (const char* screen : {"recents", "contacts"})
        for (const Json& row : show(host, screen)) EXPECT_EQ(row.at("hasPictureView"), false);
    EXPECT_TRUE(host.running());
}

TEST_F(Start, ASettingsFileThatCannotBeWrittenIsNoHarm) {
    makePhone();
    const std::filesystem::path preferences = std::filesystem::path(host(kSettingsFile)).parent_path();
    std::filesystem::remove_all(preferences);
    write("private/var/mobile/Library/Preferences", "a file in the folder's place");
    HostProcess host(HostKind::springBoard, options());
    for (const Json& row : show(host, "recents")) EXPECT_EQ(row.at("hasPictureView"), false);
}

TEST_F(Start, PicturesComeWhenTheFileAppearsAndAChangeIsPosted) {
    makePhone();
    std::filesystem::create_directories(host(kSettingsFile));
    HostProcess host(HostKind::springBoard, options());
    for (const Json& row : show(host, "recents")) EXPECT_EQ(row.at("hasPictureView"), false);
    std::filesystem::remove_all(this->host(kSettingsFile));
    set("ZelkaCBEnabled", true);
    EXPECT_EQ(sourceOf(rowOf(rows(host), kAnn)), "photo");
}

TEST_F(Start, BothProcessesAppendToOneLog) {
    makePhone();
    write("private/var/tmp/ZelkaCB.log", "an earlier line\n");
    HostProcess shell(HostKind::springBoard, options());
    HostProcess service(HostKind::callBarViewService, options());
    show(service, "recents");
    EXPECT_THAT(log(), testing::StartsWith("an earlier line\n"));
    EXPECT_EQ(count(log(), "Creating image cache for com.apple.springboard."), 1);
    EXPECT_EQ(count(log(), "Creating image cache for net.vantrel.callbarviewservice."), 1);
    EXPECT_EQ(count(log(), "loading...."), 1);
}

// CallBar's classes do not exist in other processes; the stand-in's program has them under any identifier, so the
// filter is what keeps the library out.
TEST_F(Start, TheFilterKeepsTheLibraryOutOfOtherProcesses) {
    makePhone();
    HostProcess other(HostKind::springBoard, optionsAs("com.apple.Springboard"));
    EXPECT_EQ(other.call({{"do", "info"}}).at("libraries"), Json::array());
    for (const Json& row : show(other, "recents")) EXPECT_EQ(row.at("hasPictureView"), false);
    EXPECT_EQ(log(), "");
    EXPECT_FALSE(std::filesystem::exists(host(kSettingsFile)));
}

}  // namespace
}  // namespace test
