// Phones with something missing or broken: what the tool says of them, and that it leaves them as they are.
#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

constexpr const char* kBook = "phone/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kImages = "phone/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";
constexpr const char* kCalls = "phone/private/var/mobile/Library/CallHistoryDB/CallHistory.storedata";
constexpr const char* kLibraries = "phone/Library/MobileSubstrate/DynamicLibraries/";

class DamagedPhone : public PhoneSim {
  protected:
    void SetUp() override {
        makePhone(" --no-calls");
        fs::copy_file(path_ / "phone/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent.png",
                      path_ / "face.png");
    }
    // One of the libraries' folder's files.
    static std::string installed(const std::string& name) { return kLibraries + name; }

    // Changes a contact in each way that writes to the database, which must fail naming it and write nowhere.
    void expectEditRefused(const std::string& database, const std::string& reason) const {
        const auto contents = [this] { return read(kBook) + read(kImages) + read(kCalls); };
        const std::string before = contents();
        for (const char* change : {"--photo face.png", "--delete", "--first Anne"}) {
            const Outcome outcome = run(std::string("edit phone 1 ") + change);
            EXPECT_EQ(outcome.status, 1) << change;
            EXPECT_THAT(outcome.err, AllOf(HasSubstr(database + ": " + reason), Not(HasSubstr("face.png")))) << change;
            EXPECT_TRUE(contents() == before) << change;
            EXPECT_EQ(read("phone/private/var/run/notifications"), "");
        }
    }
    // Of a phone whose extension cannot be loaded.
    void expectNotShown(const std::string& reason) const {
        for (const char* verb : {"shot phone recents --out a.png", "run phone --process callbar"}) {
            const Outcome outcome = run(verb);
            EXPECT_EQ(outcome.status, 1) << verb;
            EXPECT_THAT(outcome.err, AllOf(HasSubstr("the extension is not loaded"), HasSubstr(reason))) << verb;
        }
        EXPECT_FALSE(fs::exists(path_ / "a.png"));
        EXPECT_EQ(run("shot phone recents --out a.png --without-extension").status, 0);
        EXPECT_TRUE(fs::remove(path_ / "a.png"));
    }
};

TEST_F(DamagedPhone, EditNamesADatabaseThatIsMissingAndMakesNone) {
    for (const char* database : {kImages, kCalls, kBook}) {
        fs::rename(path_ / database, path_ / "aside");
        expectEditRefused(database, "there is no such file");
        EXPECT_FALSE(fs::exists(path_ / database));
        fs::rename(path_ / "aside", path_ / database);
    }
}

TEST_F(DamagedPhone, EditNamesADatabaseThatIsNone) {
    for (const char* database : {kImages, kCalls, kBook}) {
        const std::string sound = read(database);
        write(database, "");
        expectEditRefused(database, "is empty");
        write(database, std::string(5000, 'x'));
        expectEditRefused(database, "is not an SQLite database");
        write(database, sound.substr(0, sound.size() / 2));
        expectEditRefused(database, "is damaged");
        write(database, sound);
    }
}

TEST_F(DamagedPhone, EditNamesADatabaseOfAnotherShape) {
    const std::string images = read(kImages);
    write(kImages, read(kCalls));
    expectEditRefused(kImages, "is not an address book's images");
    write(kCalls, images);
    expectEditRefused(kImages, "is not an address book's images");
    write(kImages, images);
    expectEditRefused(kCalls, "is not a call history");
}

TEST_F(DamagedPhone, ScreensAreNotShownWithoutTheFolderOfLibraries) {
    fs::remove_all(path_ / "phone/Library");
    expectNotShown("there is no filter ZelkaCB.plist that names net.vantrel.callbarviewservice");
}

TEST_F(DamagedPhone, ScreensAreNotShownWithADamagedFilter) {
    write(installed("ZelkaCB.plist"), "garbage {{");
    expectNotShown("ZelkaCB.plist: the filter is not a property list");
}

TEST_F(DamagedPhone, ScreensAreNotShownWithoutTheLibrary) {
    fs::remove(path_ / installed("ZelkaCB.so"));
    expectNotShown("there is no library beside this filter");
    fs::create_symlink("/no/such/build/ZelkaCB.so", path_ / installed("ZelkaCB.so"));
    expectNotShown("ZelkaCB.so: links to /no/such/build/ZelkaCB.so, which is not there");
    fs::remove(path_ / installed("ZelkaCB.so"));
    write(installed("ZelkaCB.so"), "garbage");
    expectNotShown("ZelkaCB.so: not a library");
}

TEST_F(DamagedPhone, AShotWarnsOfDatabasesThatHostsCannotRead) {
    for (const char* database : {kBook, kCalls}) {
        const std::string sound = read(database);
        fs::remove(path_ / database);
        Outcome shot = run("shot phone recents --out a.png");
        EXPECT_EQ(shot.status, 0) << shot.err;
        EXPECT_THAT(shot.err, EndsWith(std::string(database) + ": there is no such file\n"));
        write(database, std::string(5000, 'x'));
        shot = run("shot phone recents --out a.png");
        EXPECT_EQ(shot.status, 0) << shot.err;
        EXPECT_THAT(shot.err, HasSubstr(std::string(database) + ": is not an SQLite database"));
        write(database, sound);
    }
    EXPECT_EQ(run("shot phone recents --out a.png").err, "");
}

TEST_F(DamagedPhone, AShotThatWaitsInVainQuotesTheLog) {
    write("phone/tmp/ZelkaCB.log", "what was logged last\n");
    write("hosts/callbar_view_service",
          "#!/bin/sh\necho '{\"ready\": true}'\nread -r command\n"
          "echo '{\"id\": 1, \"error\": \"still waiting after 1 s\"}'\nread -r nothing\n");
    fs::permissions(path_ / "hosts/callbar_view_service", fs::perms::owner_all);
    setenv("PHONESIM_HOSTS", (path_ / "hosts").c_str(), 1);
    const Outcome shot = run("shot phone recents --out a.png --without-extension --timeout 1");
    unsetenv("PHONESIM_HOSTS");
    EXPECT_EQ(shot.status, 1);
    EXPECT_THAT(shot.err, AllOf(HasSubstr("still waiting after 1 s"), HasSubstr("phone/tmp/ZelkaCB.log:\n"),
                                HasSubstr("what was logged last")));
}

}  // namespace
