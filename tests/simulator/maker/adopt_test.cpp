#include "simulator/maker/database/adopt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <tuple>

#include "simulator/maker/common/read_file.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/database/schema.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

// A phone whose databases are the "real phone's" that are taken over.
class Adoption : public testing::Test {
  protected:
    void SetUp() override {
        maker::RootOptions options;
        options.root = bench.path() / "real";
        options.contactsCount = 30;
        options.device = "iphone5s-7.1";
        ASSERT_EQ(phone::problemOf(maker::makeRoot(options)), "");
        book = options.root / maker::addressBookShape().path;
        images = options.root / maker::imagesShape().path;
        calls = options.root / maker::callHistoryShape().path;
    }
    phone::Result<maker::RootReport> adopt() {
        maker::RootOptions options;
        options.root = bench.root();
        options.addressBook = book;
        options.images = images;
        options.calls = calls;
        options.device = device;
        return maker::makeRoot(options);
    }
    // What is said of a bad address book; also that nothing was made.
    std::string refused() {
        std::string text = phone::problemOf(adopt());
        EXPECT_FALSE(fs::exists(bench.root()));
        for (const std::string& name : bench.names()) EXPECT_NE(name.front(), '.') << name;
        return text;
    }

    test::Workbench bench;
    fs::path book, images, calls;
    std::string device = "iphone5s-7.1";
};

TEST_F(Adoption, CopiesAllThreeDatabases) {
    phone::Result<maker::RootReport> report = adopt();
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_EQ(report->contacts, 30);
    EXPECT_EQ(report->pictures, 10);
    EXPECT_EQ(report->calls, 60);
    EXPECT_EQ(test::queryBook(bench.root(), "SELECT First, Last FROM ABPerson"),
              test::query(book, "SELECT First, Last FROM ABPerson"));
}

TEST_F(Adoption, TakesWhatIsOnlyInTheWriteAheadLogAndLeavesTheOriginalAlone) {
    maker::Database writer = maker::Database::open(book, false).value();
    ASSERT_EQ(phone::problemOf(writer.execute("PRAGMA journal_mode=WAL; INSERT INTO ABPerson (First) VALUES ('Wal')")),
              "");
    std::string before = maker::readFile(book).value();
    std::string log = maker::readFile(book.string() + "-wal").value();
    ASSERT_FALSE(log.empty());
    ASSERT_EQ(phone::problemOf(adopt()), "");
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT count(*) FROM ABPerson WHERE First = 'Wal'"), ElementsAre("1"));
    EXPECT_EQ(maker::readFile(book).value(), before);
    EXPECT_EQ(maker::readFile(book.string() + "-wal").value(), log);
    for (const auto& entry : fs::directory_iterator(bench.root() / "private/var/mobile/Library/AddressBook"))
        EXPECT_THAT(entry.path().string(), testing::Not(HasSubstr("adopted")));
}

TEST_F(Adoption, TakesReadOnlyFiles) {
    fs::permissions(book, fs::perms::owner_read);
    ASSERT_EQ(phone::problemOf(adopt()), "");
    maker::AddressBookBuilder builder = maker::AddressBookBuilder::open(bench.root()).value();
    EXPECT_EQ(phone::problemOf(builder.setModificationDate(1, 5)), "");
    EXPECT_EQ(phone::problemOf(builder.finish()), "");
}

TEST_F(Adoption, TakesDatabasesThatNameOrderingsAndFunctionsOfThePhone) {
    maker::Database writer = maker::Database::open(book, false).value();
    ASSERT_EQ(phone::problemOf(writer.execute(
                  "CREATE INDEX byPhone ON ABPerson (First COLLATE PhoneOrder);"
                  "CREATE TRIGGER t AFTER UPDATE OF First ON ABPerson BEGIN UPDATE ABPerson SET "
                  "guid = ab_new_guid(), Note = phone_function(NEW.First, 2) WHERE ROWID = NEW.ROWID; END")),
              "");
    ASSERT_EQ(phone::problemOf(adopt()), "");
    {
        maker::AddressBookBuilder builder = maker::AddressBookBuilder::open(bench.root()).value();
        EXPECT_EQ(phone::problemOf(builder.setNames(1, "New", "Name")), "");
        EXPECT_EQ(phone::problemOf(builder.finish()), "");
    }
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT length(guid), Note FROM ABPerson WHERE ROWID = 1"),
                ElementsAre("36", "New"));
}

TEST_F(Adoption, KeepsJournalPagesAndEverythingThatTheSchemaHas) {
    const fs::path real = bench.path() / "real.sqlitedb";
    {
        maker::Database made = maker::Database::open(real, true).value();
        ASSERT_EQ(phone::problemOf(made.execute("PRAGMA page_size=8192; PRAGMA journal_mode=WAL")), "");
        for (const std::string& sql : test::query(book, "SELECT sql FROM sqlite_master WHERE sql NOT LIKE '%sqlite_%'"))
            ASSERT_EQ(phone::problemOf(made.execute(sql.c_str())), "");
        ASSERT_EQ(phone::problemOf(made.execute("CREATE TABLE OnlyThere (a); CREATE TRIGGER onlyThere AFTER DELETE ON "
                                                "ABPerson BEGIN INSERT INTO OnlyThere VALUES (OLD.First); END;"
                                                "INSERT INTO ABPerson (First) VALUES ('Ann')")),
                  "");
    }
    book = real;
    ASSERT_EQ(phone::problemOf(adopt()), "");
    EXPECT_THAT(test::queryBook(bench.root(), "PRAGMA journal_mode"), ElementsAre("wal"));
    EXPECT_THAT(test::queryBook(bench.root(), "PRAGMA page_size"), ElementsAre("8192"));
    {
        maker::AddressBookBuilder builder = maker::AddressBookBuilder::open(bench.root()).value();
        EXPECT_EQ(phone::problemOf(builder.removePerson(1)), "");
        EXPECT_EQ(phone::problemOf(builder.finish()), "");
    }
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT a FROM OnlyThere"), ElementsAre("Ann"));
}

TEST_F(Adoption, RefusesAMissingFile) {
    book = bench.path() / "gone.sqlitedb";
    EXPECT_THAT(refused(), AllOf(HasSubstr("gone.sqlitedb"), HasSubstr("there is no such file")));
}

TEST_F(Adoption, RefusesAFolder) {
    images = bench.path();
    EXPECT_THAT(refused(), HasSubstr("is not a file"));
}

TEST_F(Adoption, RefusesAnEmptyFile) {
    calls = bench.write("call_history.db", "");
    EXPECT_THAT(refused(), HasSubstr("is empty, not a call history"));
}

TEST_F(Adoption, RefusesWhatIsNoDatabase) {
    book = bench.write("AddressBook.sqlitedb", std::string(5000, 'x'));
    EXPECT_THAT(refused(), HasSubstr("is not an SQLite database, so not an address book"));
}

TEST_F(Adoption, RefusesATruncatedDatabase) {
    for (std::size_t length : {16, 100, 5000, 20000}) {
        std::string whole = maker::readFile(book).value();
        ASSERT_GT(whole.size(), length);
        fs::path kept = std::exchange(book, bench.write("cut.sqlitedb", whole.substr(0, length)));
        EXPECT_THAT(refused(), HasSubstr("cut.sqlitedb: is")) << length;
        book = kept;
    }
}

TEST_F(Adoption, RefusesADatabaseOfAnotherKind) {
    std::swap(book, images);
    EXPECT_THAT(refused(), AllOf(HasSubstr("is not an address book"), HasSubstr("no table ABPerson")));
}

TEST_F(Adoption, RefusesATableWithoutAColumnThatIsNeeded) {
    const std::tuple<fs::path*, const char*, std::vector<const char*>> needed[] = {
        {&book,
         "ABPerson",
         {"Organization", "Nickname", "Middle", "Prefix", "Suffix", "ModificationDate", "IsPreferredName"}},
        {&book, "ABMultiValue", {"label"}},
        {&book, "ABMultiValueLabel", {"value"}},
        {&images, "ABThumbnailImage", {"format", "derived_from_format"}},
        {&images, "ABFullSizeImage", {"crop_x", "crop_y", "crop_width"}}};
    for (const auto& [file, table, columns] : needed) {
        for (const std::string column : columns) {
            maker::Database writer = maker::Database::open(*file, false).value();
            const std::string rename = std::string("ALTER TABLE ") + table + " RENAME COLUMN ";
            ASSERT_EQ(phone::problemOf(writer.execute((rename + column + " TO gone").c_str())), "");
            EXPECT_THAT(refused(), HasSubstr(std::string("its table ") + table + " has no column " + column));
            ASSERT_EQ(phone::problemOf(writer.execute((rename + "gone TO " + column).c_str())), "");
        }
    }
    EXPECT_EQ(phone::problemOf(adopt()), "");
}

TEST_F(Adoption, OfALargeDatabaseCanBeGivenUpAllTheWhile) {
    maker::Database writer = maker::Database::open(book, false).value();
    ASSERT_EQ(phone::problemOf(
                  writer.execute("WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
                                 "INSERT INTO ABPerson (First, Last) SELECT 'First' || i, 'Last' || i FROM n")),
              "");
    const fs::path copy = bench.path() / "copy";
    long told = 0;
    const auto adoptInto = [&](const maker::Progress& progress) {
        return maker::adoptDatabase(book, maker::addressBookShape(), copy, progress);
    };
    ASSERT_EQ(phone::problemOf(adoptInto([&](std::string_view, long, long) { ++told; })), "");
    EXPECT_GT(told, 50);
    for (long last = 1; last <= told; last += told / 10) {
        fs::remove(copy);
        long calls = 0;
        const auto giveUp = [&](std::string_view, long, long) {
            if (++calls == last) throw last;
        };
        EXPECT_THROW((void)adoptInto(giveUp), long) << last;
    }
}

TEST_F(Adoption, ImagesWithoutTheirAddressBookAreRefused) {
    book.clear();
    EXPECT_THAT(refused(), HasSubstr("belong to its address book"));
}

}  // namespace
