// Databases that are not what they should be. Hosts live, lists are shown, and pictures come when a database does.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>

#include "tests/phone/phone_test.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

namespace fs = std::filesystem;

enum class Damage { missing, empty, truncated, noDatabase, directory, otherTables };
constexpr const char* kDamageNames[] = {"Missing", "Empty", "Truncated", "NoDatabase", "Directory", "OtherTables"};

void PrintTo(Damage damage, std::ostream* out) { *out << kDamageNames[static_cast<int>(damage)]; }

void damage(const fs::path& file, Damage how) {
    const fs::path aside = file.string() + ".aside";
    fs::rename(file, aside);
    switch (how) {
        case Damage::missing:
            break;
        case Damage::empty:
            std::ofstream(file, std::ios::binary) << "";
            break;
        case Damage::truncated:
            fs::copy_file(aside, file);
            fs::resize_file(file, fs::file_size(file) / 3);
            break;
        case Damage::noDatabase:
            std::ofstream(file, std::ios::binary) << std::string(5000, 'x');
            break;
        case Damage::directory:
            fs::create_directory(file);
            break;
        case Damage::otherTables: {
            sqlite3* database = nullptr;
            ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
            ASSERT_EQ(sqlite3_exec(database, "CREATE TABLE Other (a); INSERT INTO Other VALUES (1)", nullptr, nullptr,
                                   nullptr),
                      SQLITE_OK);
            sqlite3_close(database);
            break;
        }
    }
}

void repair(const fs::path& file) {
    fs::remove_all(file.string() + ".broken");
    if (fs::exists(file)) fs::rename(file, file.string() + ".broken");
    fs::rename(file.string() + ".aside", file);
}

class DamagedImages : public PhoneTest, public testing::WithParamInterface<Damage> {};
class DamagedBook : public PhoneTest, public testing::WithParamInterface<Damage> {};
class DamagedBoth : public PhoneTest, public testing::WithParamInterface<Damage> {};

const auto kDamages = testing::Values(Damage::missing, Damage::empty, Damage::truncated, Damage::noDatabase,
                                      Damage::directory, Damage::otherTables);
INSTANTIATE_TEST_SUITE_P(Kinds, DamagedImages, kDamages, ParameterName());
INSTANTIATE_TEST_SUITE_P(Kinds, DamagedBook, kDamages, ParameterName());
INSTANTIATE_TEST_SUITE_P(Kinds, DamagedBoth, kDamages, ParameterName());

// The rows come at once with their placeholders; the pictures wait for the images and come once these can be read.
TEST_P(DamagedImages, RecentsShowPlaceholdersUntilTheImagesCanBeRead) {
    makePhone();
    const fs::path images = root_ / kImagesPath;
    damage(images, GetParam());
    hosts::HostOptions impatient = options();
    impatient.environment.emplace_back("PHONESIM_SECOND", "0.02");
    HostProcess host(HostKind::springBoard, impatient);
    host.call({{"do", "show"}, {"screen", "recents"}});
    const Json before = host.call({{"do", "rows"}});
    for (const Json& row : before.at("rows")) {
        EXPECT_TRUE(row.at("hasPictureView"));
        EXPECT_FALSE(row.at("picture").is_null()) << row;
    }
    if (GetParam() == Damage::missing) {
        // Opening made an empty file, which the real one takes the place of.
        EXPECT_TRUE(host.running());
    }
    repair(images);
    const Json after = rows(host);
    EXPECT_EQ(centreOf(rowOf(after, kAnn)), kRed);
    EXPECT_EQ(sourceOf(rowOf(after, kBob)), "monogram");
    EXPECT_THAT(log(), testing::AnyOf(testing::HasSubstr("Error while opening database connection: '"),
                                      testing::HasSubstr("Error while preparing statement: '"),
                                      testing::Not(testing::HasSubstr("Error"))));
}

TEST_P(DamagedBook, CallersAreStrangersUntilTheBookCanBeRead) {
    makePhone();
    const fs::path book = root_ / kBookPath;
    damage(book, GetParam());
    HostProcess host(HostKind::springBoard, options());
    // Nobody is known by an ID any more: callers are strangers, whose rows need no database.
    const Json shown = show(host, "recents");
    EXPECT_EQ(shown.size(), 7u);
    for (const Json& row : shown) EXPECT_THAT(sourceOf(row), testing::AnyOf("silhouette", "default")) << row;
    post("__ABDataBaseChangedByOtherProcessNotification");
    settle(host);
    repair(book);
    post("__ABDataBaseChangedByOtherProcessNotification");
    show(host, "contacts");
    EXPECT_EQ(centreOf(rowOf(show(host, "recents"), kAnn)), kRed);
}

TEST_P(DamagedBoth, TheHostLivesAndListsAreShown) {
    makePhone();
    damage(root_ / kBookPath, GetParam());
    damage(root_ / kImagesPath, GetParam());
    HostProcess host(HostKind::callBarViewService, options());
    for (const char* screen : {"recents", "missed", "contacts", "favorites"}) show(host, screen);
    set("ZelkaCBEnabledMonogramPictures", false);
    post("__ABDataBaseChangedByOtherProcessNotification");
    settle(host);
    EXPECT_TRUE(host.running());
    EXPECT_EQ(host.quit(), 0);
}

}  // namespace
}  // namespace test
