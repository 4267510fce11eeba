// Phones with something missing or broken: what the tool says of them, and that it leaves them as they are.
#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

constexpr const char* kBook = "phone/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kImages = "phone/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";
constexpr const char* kCalls = "phone/private/var/wireless/Library/CallHistory/call_history.db";

class DamagedPhone : public PhoneSim {
  protected:
    void SetUp() override {
        makePhone(" --no-calls");
        fs::copy_file(path_ / "phone/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent.png",
                      path_ / "face.png");
    }
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

}  // namespace
