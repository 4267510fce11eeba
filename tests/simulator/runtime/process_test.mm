#include "simulator/runtime/process/process.h"
#import <Foundation/Foundation.h>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>

#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/process/device.h"
#include "tests/support/temp_root.h"

@interface Sleeper : NSObject
+ (void)run;
@end
@implementation Sleeper
+ (void)run {
    [NSThread sleepForTimeInterval:0.2];
}
@end

namespace {

namespace fs = std::filesystem;

class BootedProcess : public testing::Test {
  protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        phone::boot(root_.path(), "com.example.host");
    }
    void TearDown() override { [pool_ drain]; }

    test::TempRoot root_{"iphone6plus-9.3"};
    NSAutoreleasePool* pool_ = nil;
};

TEST_F(BootedProcess, IsWhatItWasToldToBe) {
    EXPECT_EQ(phone::bundleIdentifier(), "com.example.host");
    EXPECT_EQ(phone::root(), root_.path());
    EXPECT_EQ(phone::device().systemVersion, "9.3.3");
    EXPECT_EQ(phone::device().scale, 3);
    EXPECT_EQ(fs::current_path(), root_.path());
    EXPECT_STREQ(getenv("HOME"), "/var/mobile");
}

TEST_F(BootedProcess, LeavesTheRootAsItWas) {
    size_t files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root_.path())) files += entry.is_regular_file();
    EXPECT_EQ(files, 1u);  // device.plist
}

TEST_F(BootedProcess, SQLiteOpensPhonePaths) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open("/var/mobile/Library/AddressBook/AddressBook.sqlitedb", &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database, "PRAGMA journal_mode=WAL; CREATE TABLE t(a); INSERT INTO t VALUES(7)", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    EXPECT_TRUE(fs::exists(root_.path() / "private/var/mobile/Library/AddressBook/AddressBook.sqlitedb-wal"));
    EXPECT_EQ(sqlite3_close(database), SQLITE_OK);
    EXPECT_TRUE(fs::exists(root_.path() / "private/var/mobile/Library/AddressBook/AddressBook.sqlitedb"));

    ASSERT_EQ(
        sqlite3_open_v2("User/Library/AddressBook/AddressBook.sqlitedb", &database, SQLITE_OPEN_READONLY, nullptr),
        SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(database, "SELECT a FROM t", -1, &statement, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(statement, 0), 7);
    sqlite3_finalize(statement);
    sqlite3_close(database);
}

TEST_F(BootedProcess, SQLiteMissesFilesAsEver) {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open_v2("/var/mobile/none.db", &database, SQLITE_OPEN_READONLY, nullptr), SQLITE_CANTOPEN);
    sqlite3_close(database);
    EXPECT_EQ(sqlite3_open("/no/such/folder/none.db", &database), SQLITE_CANTOPEN);
    sqlite3_close(database);
    EXPECT_EQ(sqlite3_open("/var/mobile", &database), SQLITE_CANTOPEN);
    sqlite3_close(database);
    EXPECT_EQ(sqlite3_open(":memory:", &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, "CREATE TABLE t(a)", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(database);
    EXPECT_FALSE(fs::exists(root_.path() / ":memory:"));
}

TEST_F(BootedProcess, SQLiteDoesNotFollowLinksOut) {
    fs::create_symlink("/var/mobile/real.db", root_.path() / "absolute.db");
    fs::create_symlink("/private/var/mobile", root_.path() / "folder");
    for (const char* path : {"/absolute.db", "absolute.db", "/folder/real.db", "folder/real.db"}) {
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open(path, &database), SQLITE_OK) << path;
        EXPECT_EQ(sqlite3_exec(database, "CREATE TABLE IF NOT EXISTS t(a)", nullptr, nullptr, nullptr), SQLITE_OK)
            << path;
        EXPECT_STREQ(sqlite3_db_filename(database, "main"), (root_.path() / "private/var/mobile/real.db").c_str());
        sqlite3_close(database);
    }
}

TEST_F(BootedProcess, SettleIsTrueAtRestAndWaitsForOperations) {
    EXPECT_TRUE(phone::settle(0));
    NSOperationQueue* queue = [[[NSOperationQueue alloc] init] autorelease];
    NSOperation* sleep = [[[NSInvocationOperation alloc] initWithTarget:[Sleeper class]
                                                               selector:@selector(run)
                                                                 object:nil] autorelease];
    [queue addOperation:sleep];
    EXPECT_FALSE(phone::settle(0.01));
    EXPECT_TRUE(phone::settle(10));
    EXPECT_TRUE([sleep isFinished]);
}

TEST(BootDeathTest, NeedsAPhoneRoot) {
    test::TempRoot root;
    EXPECT_EXIT(phone::boot(root.path() / "none", ""), testing::ExitedWithCode(1), "none");
    fs::remove(root.path() / "device.plist");
    EXPECT_EXIT(phone::boot(root.path(), ""), testing::ExitedWithCode(1), "not a phone root");
}

}  // namespace
