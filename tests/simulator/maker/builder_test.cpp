#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Builder : public testing::Test {
  protected:
    void SetUp() override {
        maker::RootOptions options;
        options.root = bench.root();
        options.device = "iphone5s-7.1";
        ASSERT_EQ(phone::problemOf(maker::makeRoot(options)), "");
    }
    maker::AddressBookBuilder open() { return maker::AddressBookBuilder::open(bench.root()).value(); }
    std::vector<std::string> book(const char* sql) { return test::queryBook(bench.root(), sql); }
    std::vector<std::string> images(const char* sql) { return test::queryImages(bench.root(), sql); }

    test::Workbench bench;
};

maker::Person named(const char* first) {
    maker::Person person;
    person.first = first;
    return person;
}

TEST_F(Builder, MissingNamesAreNullAndEmptyOnesEmpty) {
    maker::AddressBookBuilder builder = open();
    EXPECT_EQ(builder.addPerson(named("")).value(), 1);
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT First, Last FROM ABPerson"), ElementsAre("", "NULL"));
}

TEST_F(Builder, NothingIsSeenUntilItIsFinished) {
    {
        maker::AddressBookBuilder builder = open();
        ASSERT_TRUE(builder.addPerson(named("A")));
        EXPECT_THAT(book("SELECT First FROM ABPerson"), IsEmpty());
    }
    EXPECT_THAT(book("SELECT First FROM ABPerson"), IsEmpty());
}

TEST_F(Builder, FinishCommitsBeforeItBeginsAnew) {
    maker::AddressBookBuilder builder = open();
    ASSERT_TRUE(builder.addPerson(named("A")));
    ASSERT_EQ(phone::problemOf(builder.finish()), "");
    ASSERT_TRUE(builder.addPerson(named("B")));
    EXPECT_THAT(book("SELECT First FROM ABPerson"), ElementsAre("A"));
    ASSERT_EQ(phone::problemOf(builder.finish()), "");
    EXPECT_THAT(book("SELECT First FROM ABPerson"), ElementsAre("A", "B"));
}

TEST_F(Builder, APhotoWhoseThumbnailCannotBeStoredIsNotStoredAtAll) {
    const std::filesystem::path file = bench.root() / maker::imagesShape().path;
    maker::Database writer = maker::Database::open(file, false).value();
    ASSERT_EQ(phone::problemOf(writer.execute("DROP TABLE ABThumbnailImage")), "");
    maker::AddressBookBuilder builder = open();
    EXPECT_THAT(phone::problemOf(builder.setPhoto(1, test::picture(10, 10, 0))), HasSubstr("ABThumbnailImage"));
    ASSERT_EQ(phone::problemOf(builder.finish()), "");
    EXPECT_THAT(images("SELECT record_id FROM ABFullSizeImage"), IsEmpty());
}

TEST_F(Builder, StoresTheLastFourDigitsOfNumbersInAnyScript) {
    maker::AddressBookBuilder builder = open();
    maker::Person person = named("A");
    person.phones = {
        {"(212) 555-0142", ""}, {"+1 212 555 0143 ext. 9", ""}, {"٠١٢٣٤٥٦٧٨٩", ""}, {"611", ""}, {"Work", ""}};
    ASSERT_TRUE(builder.addPerson(person));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT multivalue_id, value FROM ABPhoneLastFour"),
                ElementsAre("1", "0142", "2", "0143", "3", "6789", "4", "611"));
}

TEST_F(Builder, LabelsAreSharedRows) {
    maker::AddressBookBuilder builder = open();
    maker::Person person = named("A");
    person.phones = {{"1", "Boat"}, {"2", "Boat"}};
    person.emails = {{"a@b.c", ""}};
    ASSERT_TRUE(builder.addPerson(person));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT property, identifier, label, value FROM ABMultiValue"),
                ElementsAre("3", "0", "1", "1", "3", "1", "1", "2", "4", "0", "NULL", "a@b.c"));
    EXPECT_THAT(book("SELECT ROWID, value FROM ABMultiValueLabel"), ElementsAre("1", "Boat"));
}

TEST_F(Builder, APhotoIsKeptWholeAndAsThumbnail) {
    maker::AddressBookBuilder builder = open();
    maker::Person person = named("A");
    person.photo = test::picture(300, 200, 0x00FF00);
    ASSERT_TRUE(builder.addPerson(person));
    ASSERT_TRUE(builder.finish());
    auto full = images("SELECT record_id, crop_x, crop_y, crop_width, data FROM ABFullSizeImage");
    EXPECT_THAT(full, ElementsAre("1", "50", "0", "200", person.photo));
    auto thumbnail = images("SELECT record_id, format, data FROM ABThumbnailImage");
    ASSERT_EQ(thumbnail.size(), 3u);
    EXPECT_EQ(thumbnail[1], "0");
    EXPECT_EQ(test::look(thumbnail[2]).width, 160);
}

TEST_F(Builder, APersonWithABrokenPhotoIsNotAdded) {
    maker::AddressBookBuilder builder = open();
    maker::Person person = named("A");
    person.photo = "broken";
    EXPECT_THAT(phone::problemOf(builder.addPerson(person)), HasSubstr("not a picture"));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT First FROM ABPerson"), IsEmpty());
}

TEST_F(Builder, ThumbnailsOfAnyBytesAreStoredAsTheyAre) {
    maker::AddressBookBuilder builder = open();
    ASSERT_TRUE(builder.setThumbnail(1, "first"));
    ASSERT_TRUE(builder.setThumbnail(1, std::string("a\0b", 3)));
    ASSERT_TRUE(builder.setThumbnail(1, "other format", 2));
    ASSERT_TRUE(builder.setThumbnail(2, ""));
    ASSERT_TRUE(builder.setNullThumbnail(3));
    ASSERT_TRUE(builder.setFullSizeImage(1, "full"));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(images("SELECT record_id, format, typeof(data), data FROM ABThumbnailImage ORDER BY record_id, format"),
                ElementsAre("1", "0", "blob", std::string("a\0b", 3), "1", "2", "blob", "other format", "2", "0",
                            "blob", "", "3", "0", "null", "NULL"));
}

TEST_F(Builder, LinksContactsInTheGivenPreference) {
    maker::AddressBookBuilder builder = open();
    for (const char* name : {"A", "B", "C"}) ASSERT_TRUE(builder.addPerson(named(name)));
    ASSERT_TRUE(builder.link({3, 1}));
    EXPECT_FALSE(builder.link({2}));
    EXPECT_THAT(phone::problemOf(builder.link({2, 9})), HasSubstr("no contact 9"));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT PersonLink, IsPreferredName FROM ABPerson WHERE ROWID IN (1, 3)"),
                ElementsAre("1", "0", "1", "1"));
}

TEST_F(Builder, ChangesAndRemovesPersons) {
    maker::AddressBookBuilder builder = open();
    maker::Person person = named("A");
    person.phones = {{"555 0100", ""}};
    person.photo = test::picture(10, 10, 0);
    ASSERT_TRUE(builder.addPerson(person));
    maker::Call call;
    call.address = "555 0100";
    call.contact = 1;
    ASSERT_EQ(builder.addCall(call).value(), 1);
    ASSERT_TRUE(builder.setNames(1, std::nullopt, "Z"));
    ASSERT_TRUE(builder.setModificationDate(1, 77));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT First, Last, ModificationDate FROM ABPerson"), ElementsAre("NULL", "Z", "77"));
    ASSERT_TRUE(builder.removePerson(1));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT count(*) FROM ABPerson, ABMultiValue, ABPhoneLastFour"), ElementsAre("0"));
    EXPECT_THAT(book("SELECT UID FROM ABMultiValue UNION ALL SELECT multivalue_id FROM ABPhoneLastFour"), IsEmpty());
    EXPECT_THAT(images("SELECT record_id FROM ABThumbnailImage UNION ALL SELECT record_id FROM ABFullSizeImage"),
                IsEmpty());
    EXPECT_THAT(test::queryCalls(bench.root(), "SELECT id FROM call"), ElementsAre("-1"));
    EXPECT_THAT(phone::problemOf(builder.removePerson(1)), HasSubstr("no contact 1"));
    EXPECT_FALSE(builder.setNames(1, "X", "Y"));
    EXPECT_FALSE(builder.setModificationDate(1, 1));
}

TEST_F(Builder, NeedsARoot) {
    EXPECT_THAT(phone::problemOf(maker::AddressBookBuilder::open(bench.path())), HasSubstr("device.plist"));
}

}  // namespace
