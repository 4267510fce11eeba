// The backups that a computer makes of a phone, in both layouts, made here.
#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/common/read_file.h"
#include "simulator/maker/database/schema.h"
#include "simulator/runtime/process/device.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

enum class Layout { flat, folders };

std::string hashOf(const std::string& text) {
    gchar* hash = g_compute_checksum_for_string(G_CHECKSUM_SHA1, text.c_str(), -1);
    std::string result = hash;
    g_free(hash);
    return result;
}

std::string binaryList(plist_t list) {
    char* bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(list, &bytes, &length);
    std::string result(bytes, length);
    free(bytes);
    plist_free(list);
    return result;
}

class PhoneBackup : public testing::TestWithParam<Layout> {
  protected:
    // Another phone, whose files are backed up.
    void makeSource(const char* device) {
        maker::RootOptions options;
        options.root = bench.path() / "source";
        options.device = device;
        options.contacts = {bench.write("c.vcf", "BEGIN:VCARD\nN:Lee;Ann;;;\nTEL:(212) 555-0142\nPHOTO;ENCODING=b:" +
                                                     test::base64(test::picture(8, 8, 0xFF0000)) + "\nEND:VCARD\n")};
        options.calls = bench.write("calls.csv", "-1h, 212 555 0142, incoming, 3\n-2h, 555 0199, missed\n");
        ASSERT_EQ(phone::problemOf(maker::makeRoot(options)), "");
    }
    std::string of(const char* path) const { return maker::readFile(bench.path() / "source" / path).value(); }

    void keep(const std::string& domain, const std::string& path, const std::string& bytes) const {
        const std::string name = hashOf(domain + "-" + path);
        bench.write("backup/" + (GetParam() == Layout::flat ? name : name.substr(0, 2) + "/" + name), bytes);
    }
    void describe(const char* model, const char* version, bool encrypted = false) const {
        plist_t info = plist_new_dict();
        plist_dict_set_item(info, "Product Type", plist_new_string(model));
        plist_dict_set_item(info, "Product Version", plist_new_string(version));
        plist_dict_set_item(info, "Device Name", plist_new_string("Made-up phone"));
        bench.write("backup/Info.plist", binaryList(info));
        plist_t manifest = plist_new_dict();
        plist_dict_set_item(manifest, "IsEncrypted", plist_new_bool(encrypted ? 1 : 0));
        bench.write("backup/Manifest.plist", binaryList(manifest));
    }
    void keepPreferences(const char* language, const char* locale) const {
        plist_t list = plist_new_dict();
        plist_t languages = plist_new_array();
        plist_array_append_item(languages, plist_new_string(language));
        plist_dict_set_item(list, "AppleLanguages", languages);
        plist_dict_set_item(list, "AppleLocale", plist_new_string(locale));
        keep("HomeDomain", "Library/Preferences/.GlobalPreferences.plist", binaryList(list));
    }
    void keepBooks() const {
        keep("HomeDomain", "Library/AddressBook/AddressBook.sqlitedb", of(maker::addressBookShape().path));
        keep("HomeDomain", "Library/AddressBook/AddressBookImages.sqlitedb", of(maker::imagesShape().path));
    }
    phone::Result<maker::RootReport> make() const {
        maker::RootOptions options;
        options.root = bench.root();
        options.backup = bench.path() / "backup";
        return maker::makeRoot(options);
    }

    test::Workbench bench;
};

TEST_P(PhoneBackup, GivesContactsCallsFavoritesAndDevice) {
    makeSource("iphone6-9.3");
    describe("iPhone7,1", "9.3.2");
    keepPreferences("de-CH", "de_CH");
    keepBooks();
    keep("HomeDomain", "Library/CallHistoryDB/CallHistory.storedata", of(maker::callStoreShape().path));
    const std::string favorites =
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><dict><key>ABUid</key>"
        "<integer>1</integer></dict></array></plist>";
    keep("HomeDomain", "Library/Preferences/com.apple.mobilephone.speeddial.plist", favorites);
    const auto report = make();
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_EQ(report->contacts, 1);
    EXPECT_EQ(report->pictures, 1);
    EXPECT_EQ(report->calls, 2);
    EXPECT_THAT(maker::sentences(report->findings, true), ElementsAre());
    const phone::Device device = phone::readDevice(bench.root()).value();
    EXPECT_EQ(device.machine, "iPhone7,1");
    EXPECT_EQ(device.systemVersion, "9.3.2");
    EXPECT_EQ(device.scale, 3);
    EXPECT_EQ(device.name, "Made-up phone");
    EXPECT_EQ(device.language, "de-CH");
    EXPECT_EQ(device.region, "CH");
    EXPECT_EQ(maker::readFile(maker::favoritesPath(bench.root())).value(), favorites);
    EXPECT_FALSE(fs::exists(bench.root() / "private/var/tmp/backup"));
}

TEST_P(PhoneBackup, OfAnOlderSystemHasItsCallsInAHistory) {
    makeSource("iphone5s-7.1");
    describe("iPhone6,1", "7.1.2");
    keepBooks();
    keep("WirelessDomain", "Library/CallHistory/call_history.db", of(maker::callHistoryShape().path));
    const auto report = make();
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_EQ(report->calls, 2);
    EXPECT_THAT(test::queryCalls(bench.root(), "SELECT id FROM call ORDER BY ROWID"), ElementsAre("1", "-1"));
    EXPECT_THAT(maker::readFile(maker::favoritesPath(bench.root())).value(), HasSubstr("<integer>1</integer>"));
}

TEST_P(PhoneBackup, HasWhatIsOnlyInTheLogAndIsNotWrittenTo) {
    makeSource("iphone6-8.4");
    describe("iPhone7,2", "8.4");
    const fs::path book = bench.path() / "source" / maker::addressBookShape().path;
    maker::Database writer = maker::Database::open(book, false).value();
    ASSERT_EQ(phone::problemOf(writer.execute("PRAGMA journal_mode=WAL; INSERT INTO ABPerson (First) VALUES ('Wal')")),
              "");
    keepBooks();
    keep("HomeDomain", "Library/AddressBook/AddressBook.sqlitedb-wal",
         of((std::string(maker::addressBookShape().path) + "-wal").c_str()));
    const auto files = std::distance(fs::recursive_directory_iterator(bench.path() / "backup"), {});
    const auto report = make();
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT First FROM ABPerson ORDER BY ROWID"), ElementsAre("Ann", "Wal"));
    EXPECT_THAT(maker::sentences(report->findings, true),
                ElementsAre(HasSubstr("backup: there is no CallHistory.storedata in this backup")));
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(bench.path() / "backup"), {}), files);
}

TEST_P(PhoneBackup, OfAModelWithoutProfileGetsTheScreenOfItsKind) {
    makeSource("iphone6-9.3");
    describe("iPad99,1", "9.3.5");
    keepBooks();
    const auto report = make();
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_THAT(maker::sentences(report->findings, true),
                testing::Contains(HasSubstr("the screen of the model iPad99,1 is not known; it gets that of iPad5,3")));
    EXPECT_EQ(phone::readDevice(bench.root()).value().idiom, 1);
}

TEST_P(PhoneBackup, ThatIsEncryptedIsRefusedWithWhatToDo) {
    describe("iPhone7,2", "8.4", true);
    EXPECT_THAT(phone::problemOf(make()),
                AllOf(HasSubstr("backup: is an encrypted backup"), HasSubstr("switch the encryption")));
    EXPECT_FALSE(fs::exists(bench.root()));
}

TEST_P(PhoneBackup, ThatIsNoneOrAFolderOfSeveralIsTold) {
    EXPECT_THAT(phone::problemOf(make()), HasSubstr("backup: there is no such folder"));
    bench.write("backup/letter.txt", "dear");
    EXPECT_THAT(phone::problemOf(make()), HasSubstr("is not the backup of a phone"));
    bench.write("backup/inner/Info.plist", "");
    bench.write("backup/inner/Manifest.plist", "");
    EXPECT_THAT(phone::problemOf(make()),
                AllOf(HasSubstr("holds backups; give one of them"), HasSubstr("backup/inner")));
    describe("iPhone7,2", "8.4");
    bench.write("backup/Info.plist", "garbage");
    EXPECT_THAT(phone::problemOf(make()), HasSubstr("Info.plist: is no property list"));
}

INSTANTIATE_TEST_SUITE_P(Layouts, PhoneBackup, testing::Values(Layout::flat, Layout::folders),
                         [](const testing::TestParamInfo<Layout>& info) {
                             return std::string(info.param == Layout::flat ? "Flat" : "Folders");
                         });

}  // namespace
