#include "simulator/maker/make_root.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "simulator/maker/common/read_file.h"
#include "simulator/runtime/process/device.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

class MakeRoot : public testing::Test {
  protected:
    MakeRoot() {
        options.root = bench.root();
        options.noCalls = true;
        options.device = "iphone5s-7.1";
    }
    std::string make() { return phone::problemOf(maker::makeRoot(options)); }
    void failToMake() {
        options.contacts = {bench.path() / "gone.vcf"};
        EXPECT_THAT(make(), HasSubstr("gone.vcf"));
        options.contacts.clear();
    }

    test::Workbench bench;
    maker::RootOptions options;
};

TEST_F(MakeRoot, IsShapedLikeAPhonesFileSystem) {
    ASSERT_EQ(make(), "");
    EXPECT_TRUE(maker::isRoot(bench.root()));
    EXPECT_EQ(fs::read_symlink(bench.root() / "var"), "private/var");
    EXPECT_EQ(fs::canonical(bench.root() / "User"), bench.root() / "private/var/mobile");
    EXPECT_EQ(fs::canonical(bench.root() / "tmp"), bench.root() / "private/var/tmp");
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT count(*) FROM ABPerson"), ElementsAre("0"));
    EXPECT_THAT(test::queryImages(bench.root(), "SELECT count(*) FROM ABThumbnailImage"), ElementsAre("0"));
    EXPECT_THAT(test::queryCalls(bench.root(), "SELECT count(*) FROM call"), ElementsAre("0"));
    EXPECT_THAT(bench.names(), ElementsAre("phone"));
}

TEST_F(MakeRoot, IsTheDeviceThatWasAskedFor) {
    options.device = "iphone6plus-9.3";
    options.region = "DE";
    options.rightToLeft = true;
    ASSERT_EQ(make(), "");
    phone::Device device = phone::readDevice(bench.root()).value();
    EXPECT_EQ(device.scale, 3);
    EXPECT_EQ(device.region, "DE");
    EXPECT_TRUE(device.rightToLeft);
}

TEST_F(MakeRoot, RefusesUnknownDevicesAndCountries) {
    options.device = "iphone99";
    EXPECT_THAT(make(), testing::AllOf(HasSubstr("no device profile \"iphone99\""), HasSubstr("iphone6-8.4")));
    options.device.clear();
    options.region = "Texas";
    EXPECT_THAT(make(), HasSubstr("\"Texas\" is no country"));
    EXPECT_THAT(bench.names(), ElementsAre());
}

TEST_F(MakeRoot, InstallsACopyOfTheExtension) {
    options.extension.library = bench.write("build/ZelkaCB.so", "library");
    options.extension.filter = bench.write("build/ZelkaCB.plist", "filter");
    options.extension.settingsBundle = bench.write("build/ZelkaCBSettings.bundle/recent.png", "picture").parent_path();
    ASSERT_EQ(make(), "");
    fs::path folder = bench.root() / "Library/MobileSubstrate/DynamicLibraries";
    EXPECT_FALSE(fs::is_symlink(folder / "ZelkaCB.so"));
    EXPECT_EQ(maker::readFile(folder / "ZelkaCB.so").value(), "library");
    EXPECT_EQ(maker::readFile(folder / "ZelkaCB.plist").value(), "filter");
    EXPECT_EQ(
        maker::readFile(bench.root() / "System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent.png").value(),
        "picture");
}

TEST_F(MakeRoot, SaysWhatIsNotBuilt) {
    options.extension.library = bench.path() / "ZelkaCB.so";
    EXPECT_THAT(make(), HasSubstr("ZelkaCB.so: is not there; build the project first"));
    EXPECT_THAT(bench.names(), ElementsAre());
}

TEST_F(MakeRoot, AnEmptyDirectoryBecomesARoot) {
    fs::create_directory(bench.root());
    EXPECT_EQ(make(), "");
    EXPECT_TRUE(maker::isRoot(bench.root()));
}

TEST_F(MakeRoot, ATrailingSlashAndMissingFoldersAboveAreFine) {
    options.root = bench.path() / "a/b/";
    EXPECT_EQ(make(), "");
    EXPECT_TRUE(maker::isRoot(bench.path() / "a/b"));
}

TEST_F(MakeRoot, NeverReplacesWhatIsNoRoot) {
    bench.write("phone/letter.txt", "dear");
    options.force = true;
    EXPECT_THAT(make(), HasSubstr("exists and is not a phone root"));
    EXPECT_EQ(maker::readFile(bench.root() / "letter.txt").value(), "dear");
    options.root = bench.write("file", "x");
    EXPECT_THAT(make(), HasSubstr("exists and is not a phone root"));
    options.root = bench.path() / "dangling";
    fs::create_symlink("nowhere", options.root);
    EXPECT_THAT(make(), HasSubstr("exists and is not a phone root"));
    options.root = "/";
    EXPECT_THAT(make(), HasSubstr("needs a directory of its own"));
}

TEST_F(MakeRoot, ReplacesARootByForceOnly) {
    ASSERT_EQ(make(), "");
    bench.write("phone/tmp/old", "old");
    EXPECT_THAT(make(), HasSubstr("is a phone root already"));
    EXPECT_TRUE(fs::exists(bench.root() / "tmp/old"));
    options.force = true;
    EXPECT_EQ(make(), "");
    EXPECT_FALSE(fs::exists(bench.root() / "tmp/old"));
    EXPECT_THAT(bench.names(), ElementsAre("phone"));
}

TEST_F(MakeRoot, AFailureLeavesTheOldRootAsItWas) {
    ASSERT_EQ(make(), "");
    bench.write("phone/tmp/old", "old");
    options.force = true;
    failToMake();
    EXPECT_EQ(maker::readFile(bench.root() / "tmp/old").value(), "old");
    EXPECT_TRUE(maker::isRoot(bench.root()));
    EXPECT_THAT(bench.names(), ElementsAre("phone"));
}

TEST_F(MakeRoot, AFailureLeavesNothingBehind) {
    failToMake();
    EXPECT_THAT(bench.names(), ElementsAre());
}

TEST_F(MakeRoot, AFailureLeavesNoFoldersAboveThatItMade) {
    fs::create_directory(bench.path() / "there");
    options.root = bench.path() / "there/deep/er/phone";
    failToMake();
    EXPECT_TRUE(fs::is_empty(bench.path() / "there"));
    EXPECT_EQ(make(), "");
    EXPECT_TRUE(maker::isRoot(options.root));
}

TEST_F(MakeRoot, ALinkToARootStaysAndTheRootIsReplaced) {
    ASSERT_EQ(make(), "");
    bench.write("phone/tmp/old", "old");
    options.root = bench.path() / "link";
    fs::create_directory_symlink("phone", options.root);
    EXPECT_THAT(make(), HasSubstr("is a phone root already"));
    options.force = true;
    EXPECT_EQ(make(), "");
    EXPECT_EQ(fs::read_symlink(options.root), "phone");
    EXPECT_TRUE(maker::isRoot(bench.root()));
    EXPECT_FALSE(fs::exists(bench.root() / "tmp/old"));
    EXPECT_THAT(bench.names(), ElementsAre("link", "phone"));
}

TEST_F(MakeRoot, TakesContactsFromOneSourceOnly) {
    options.contacts = {bench.write("c.vcf", "BEGIN:VCARD\nEND:VCARD\n")};
    options.contactsCount = 3;
    EXPECT_THAT(make(), HasSubstr("only one"));
}

TEST_F(MakeRoot, GeneratedBooksAreTheSameForTheSameSeed) {
    constexpr const char* people =
        "SELECT p.First, p.Last, p.Organization, p.PersonLink, v.value FROM ABPerson p JOIN ABMultiValue v ON "
        "v.record_id = p.ROWID ORDER BY p.ROWID, v.UID";
    options.contactsCount = 200;
    options.noCalls = false;
    options.now = 1433151660;
    ASSERT_EQ(make(), "");
    auto first = test::queryBook(bench.root(), people);
    auto firstCalls = test::queryCalls(bench.root(), "SELECT * FROM call");
    options.force = true;
    ASSERT_EQ(make(), "");
    EXPECT_EQ(test::queryBook(bench.root(), people), first);
    EXPECT_EQ(test::queryCalls(bench.root(), "SELECT * FROM call"), firstCalls);
    options.seed = 2;
    ASSERT_EQ(make(), "");
    EXPECT_NE(test::queryBook(bench.root(), people), first);
}

TEST_F(MakeRoot, GeneratedBooksHavePicturesLinksAndNumbersOfTheirOwn) {
    options.contactsCount = 300;
    maker::RootReport report = maker::makeRoot(options).value();
    EXPECT_EQ(report.contacts, 300);
    EXPECT_EQ(report.pictures, 100);
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT count(*) FROM ABPersonLink"), ElementsAre("6"));
    EXPECT_THAT(test::queryBook(bench.root(),
                                "SELECT value FROM ABMultiValue WHERE property IN (3, 4) GROUP BY value "
                                "HAVING count(*) > 1"),
                ElementsAre());
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT count(*) FROM ABMultiValue WHERE value IS NULL"),
                ElementsAre("60"));
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT count(*) FROM ABMultiValue WHERE label IS NULL"),
                ElementsAre("38"));
    EXPECT_THAT(
        test::queryBook(bench.root(), "SELECT DISTINCT typeof(CreationDate), typeof(ModificationDate) FROM ABPerson"),
        ElementsAre("integer", "integer"));
    std::string thumbnail = test::queryImages(bench.root(), "SELECT data FROM ABThumbnailImage LIMIT 1").at(0);
    EXPECT_EQ(test::look(thumbnail).width, 160);
}

TEST_F(MakeRoot, TellsHowFarLongWorkIs) {
    options.contactsCount = 250;
    long last = 0;
    long steps = 0;
    auto progress = [&](std::string_view what, long done, long total) {
        if (what.empty()) {
            ++steps;
            return;
        }
        EXPECT_EQ(total, 250);
        EXPECT_EQ(done, last + 1);
        last = done;
    };
    ASSERT_EQ(phone::problemOf(maker::makeRoot(options, progress)), "");
    EXPECT_EQ(last, 250);
    EXPECT_GT(steps, 0);
}

TEST_F(MakeRoot, GivenUpAtAnyTimeLeavesNothing) {
    options.contactsCount = 20;
    long called = 0;
    ASSERT_EQ(phone::problemOf(maker::makeRoot(options, [&](std::string_view, long, long) { ++called; })), "");
    std::filesystem::remove_all(options.root);
    const auto entries = [this] {
        std::filesystem::directory_iterator all(options.root.parent_path());
        return std::distance(begin(all), end(all));
    };
    const auto before = entries();
    for (long last = 1; last <= called; ++last) {
        long calls = 0;
        auto giveUp = [&](std::string_view, long, long) {
            if (++calls == last) throw last;
        };
        EXPECT_THROW((void)maker::makeRoot(options, giveUp), long);
        EXPECT_EQ(entries(), before) << last;
    }
}

}  // namespace
