// Calls as systems from 8 on keep them, in a Core Data store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/common/read_file.h"
#include "simulator/maker/database/schema.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

class CallStore : public testing::Test {
  protected:
    void make(const char* device, const fs::path& calls, bool force = false) {
        maker::RootOptions options;
        options.root = bench.root();
        options.force = force;
        options.device = device;
        options.contacts = {
            bench.write("c.vcf",
                        "BEGIN:VCARD\nN:Lee;Ann;;;\nTEL:(212) 555-0142\nEMAIL:ann@example.com\nEND:VCARD\n"
                        "BEGIN:VCARD\nN:Berg;Bo;;;\nTEL:5550199\nEND:VCARD\n")};
        options.calls = calls;
        options.now = 1433151660;  // 2015-06-01 09:41 UTC
        ASSERT_EQ(phone::problemOf(maker::makeRoot(options)), "");
    }
    std::vector<std::string> store(const char* sql) const {
        return test::query(bench.root() / maker::callStoreShape().path, sql);
    }
    bool has(const maker::DatabaseShape& shape) const { return fs::exists(bench.root() / shape.path); }

    test::Workbench bench;
};

constexpr const char* kCalls =
    "-1m, +1 212 555 0142, incoming, 63\n-2m, ann@example.com, outgoing\n-3m, 5550199, missed\n";

TEST_F(CallStore, HoldsWhatThePublishedColumnsMean) {
    make("iphone6-8.4", bench.write("calls.csv", kCalls));
    EXPECT_FALSE(has(maker::callHistoryShape()));
    EXPECT_THAT(
        store("SELECT typeof(ZADDRESS), CAST(ZADDRESS AS TEXT), CAST(ZDATE AS INTEGER), ZDURATION, ZORIGINATED, "
              "ZANSWERED, ZCALLTYPE, ZNAME, ZISO_COUNTRY_CODE FROM ZCALLRECORD ORDER BY Z_PK"),
        ElementsAre("blob", "+1 212 555 0142", "454844400", "63.0", "0", "1", "1", "Ann Lee", "us",  //
                    "blob", "ann@example.com", "454844340", "0.0", "1", "0", "8", "Ann Lee", "us",   //
                    "blob", "5550199", "454844280", "0.0", "0", "0", "1", "Bo Berg", "us"));
    EXPECT_THAT(store("SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_NAME = 'CallRecord'"), ElementsAre("3"));
    EXPECT_THAT(store("SELECT count(DISTINCT ZUNIQUE_ID) FROM ZCALLRECORD"), ElementsAre("3"));
}

TEST_F(CallStore, GivesTheFavoritesByTheCallersAddress) {
    make("iphone6-9.3", bench.write("calls.csv", kCalls));
    const std::string favorites = maker::readFile(maker::favoritesPath(bench.root())).value();
    EXPECT_THAT(favorites, HasSubstr("<integer>1</integer><key>Value</key><string>ann@example.com</string>"));
    EXPECT_LT(favorites.find("<integer>1</integer>"), favorites.find("<integer>2</integer>"));
}

TEST_F(CallStore, IsTakenOverAsItIs) {
    make("iphone6-8.4", bench.write("calls.csv", kCalls));
    fs::copy_file(bench.root() / maker::callStoreShape().path, bench.path() / "given.storedata");
    maker::Database given = maker::Database::open(bench.path() / "given.storedata", false).value();
    ASSERT_EQ(phone::problemOf(given.execute("ALTER TABLE ZCALLRECORD ADD COLUMN ZLOCATION VARCHAR")), "");
    make("iphone6-9.3", bench.path() / "given.storedata", true);
    EXPECT_THAT(store("SELECT count(*) FROM ZCALLRECORD WHERE ZLOCATION IS NULL"), ElementsAre("3"));
}

TEST_F(CallStore, BecomesAHistoryOnAnOlderPhoneAndBack) {
    make("iphone6-8.4", bench.write("calls.csv", kCalls));
    fs::copy_file(bench.root() / maker::callStoreShape().path, bench.path() / "CallHistory.storedata");
    make("iphone5s-7.1", bench.path() / "CallHistory.storedata", true);
    EXPECT_FALSE(has(maker::callStoreShape()));
    EXPECT_THAT(
        test::queryCalls(bench.root(), "SELECT address, date, duration, flags, id, name FROM call ORDER BY ROWID"),
        ElementsAre("+1 212 555 0142", "1433151600", "63", "4", "1", "Ann Lee",  //
                    "ann@example.com", "1433151540", "0", "5", "1", "Ann Lee", "5550199", "1433151480", "0", "4", "2",
                    "Bo Berg"));
    fs::copy_file(bench.root() / maker::callHistoryShape().path, bench.path() / "call_history.db");
    make("iphone6-8.4", bench.path() / "call_history.db", true);
    EXPECT_FALSE(has(maker::callHistoryShape()));
    EXPECT_THAT(store("SELECT CAST(ZADDRESS AS TEXT), ZORIGINATED, ZANSWERED FROM ZCALLRECORD ORDER BY Z_PK"),
                ElementsAre("+1 212 555 0142", "0", "1", "ann@example.com", "1", "0", "5550199", "0", "0"));
}

}  // namespace
