#include "simulator/maker/database/adopt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <tuple>

#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/database/schema.h"
#include "simulator/maker/read_file.h"
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
        phone::RootOptions options;
        options.root = bench.path() / "real";
        options.contactsCount = 30;
        ASSERT_EQ(phone::makeRoot(options).text(), "");
        book = options.root / phone::addressBookShape().path;
        images = options.root / phone::imagesShape().path;
        calls = options.root / phone::callsShape().path;
    }
    phone::Result<phone::RootReport> adopt() {
        phone::RootOptions options;
        options.root = bench.root();
        options.addressBook = book;
        options.images = images;
        options.calls = calls;
        return phone::makeRoot(options);
    }
    // What is said of a bad address book; also that nothing was made.
    std::string refused() {
        std::string text = adopt().text();
        EXPECT_FALSE(fs::exists(bench.root()));
        for (const std::string& name : bench.names()) EXPECT_NE(name.front(), '.') << name;
        return text;
    }

    test::Workbench bench;
    fs::path book, images, calls;
};

TEST_F(Adoption, CopiesAllThreeDatabases) {
    phone::Result<phone::RootReport> report = adopt();
    ASSERT_EQ(report.text(), "");
    EXPECT_EQ(report->contacts, 30);
    EXPECT_EQ(report->pictures, 10);
    EXPECT_EQ(report->calls, 60);
    EXPECT_EQ(test::queryBook(bench.root(), "SELECT First, Last FROM ABPerson"),
              test::query(book, "SELECT First, Last FROM ABPerson"));
}

TEST_F(Adoption, TakesWhatIsOnlyInTheWriteAheadLogAndLeavesTheOriginalAlone) {
    phone::Database writer = phone::Database::open(book, false).value();
    ASSERT_EQ(writer.execute("PRAGMA journal_mode=WAL; INSERT INTO ABPerson (First) VALUES ('Wal')").text(), "");
    std::string before = phone::readFile(book).value();
    std::string log = phone::readFile(book.string() + "-wal").value();
    ASSERT_FALSE(log.empty());
    ASSERT_EQ(adopt().text(), "");
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT count(*) FROM ABPerson WHERE First = 'Wal'"), ElementsAre("1"));
    EXPECT_EQ(phone::readFile(book).value(), before);
    EXPECT_EQ(phone::readFile(book.string() + "-wal").value(), log);
    EXPECT_EQ(std::distance(fs::directory_iterator(bench.root() / "private/var/mobile/Library/AddressBook"), {}), 2);
}

TEST_F(Adoption, TakesReadOnlyFiles) {
    fs::permissions(book, fs::perms::owner_read);
    ASSERT_EQ(adopt().text(), "");
    phone::AddressBookBuilder builder = phone::AddressBookBuilder::open(bench.root()).value();
    EXPECT_EQ(builder.setModificationDate(1, 5).text(), "");
    EXPECT_EQ(builder.finish().text(), "");
}

TEST_F(Adoption, TakesDatabasesThatNameOrderingsAndFunctionsOfThePhone) {
    phone::Database writer = phone::Database::open(book, false).value();
    ASSERT_EQ(writer
                  .execute("CREATE INDEX byPhone ON ABPerson (First COLLATE PhoneOrder);"
                           "CREATE TRIGGER t AFTER UPDATE ON ABPerson BEGIN SELECT phone_function(); END")
                  .text(),
              "");
    ASSERT_EQ(adopt().text(), "");
    phone::AddressBookBuilder builder = phone::AddressBookBuilder::open(bench.root()).value();
    EXPECT_EQ(builder.setNames(1, "New", "Name").text(), "");
    EXPECT_EQ(builder.finish().text(), "");
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
        std::string whole = phone::readFile(book).value();
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
            phone::Database writer = phone::Database::open(*file, false).value();
            const std::string rename = std::string("ALTER TABLE ") + table + " RENAME COLUMN ";
            ASSERT_EQ(writer.execute((rename + column + " TO gone").c_str()).text(), "");
            EXPECT_THAT(refused(), HasSubstr(std::string("its table ") + table + " has no column " + column));
            ASSERT_EQ(writer.execute((rename + "gone TO " + column).c_str()).text(), "");
        }
    }
    EXPECT_EQ(adopt().text(), "");
}

TEST_F(Adoption, OfALargeDatabaseCanBeGivenUpAllTheWhile) {
    phone::Database writer = phone::Database::open(book, false).value();
    ASSERT_EQ(writer
                  .execute("WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
                           "INSERT INTO ABPerson (First, Last) SELECT 'First' || i, 'Last' || i FROM n")
                  .text(),
              "");
    const fs::path copy = bench.path() / "copy";
    long told = 0;
    const auto adoptInto = [&](const phone::Progress& progress) {
        return phone::adoptDatabase(book, phone::addressBookShape(), copy, progress);
    };
    ASSERT_EQ(adoptInto([&](std::string_view, long, long) { ++told; }).text(), "");
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
