#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Builder : public testing::Test {
  protected:
    void SetUp() override {
        phone::RootOptions options;
        options.root = bench.root();
        ASSERT_EQ(phone::makeRoot(options).text(), "");
    }
    phone::AddressBookBuilder open() { return phone::AddressBookBuilder::open(bench.root()).value(); }
    std::vector<std::string> book(const char* sql) { return test::queryBook(bench.root(), sql); }
    std::vector<std::string> images(const char* sql) { return test::queryImages(bench.root(), sql); }

    test::Workbench bench;
};

phone::Person named(const char* first) {
    phone::Person person;
    person.first = first;
    return person;
}

TEST_F(Builder, MissingNamesAreNullAndEmptyOnesEmpty) {
    phone::AddressBookBuilder builder = open();
    EXPECT_EQ(builder.addPerson(named("")).value(), 1);
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT First, Last FROM ABPerson"), ElementsAre("", "NULL"));
}

TEST_F(Builder, NothingIsSeenUntilItIsFinished) {
    {
        phone::AddressBookBuilder builder = open();
        ASSERT_TRUE(builder.addPerson(named("A")));
        EXPECT_THAT(book("SELECT First FROM ABPerson"), IsEmpty());
    }
    EXPECT_THAT(book("SELECT First FROM ABPerson"), IsEmpty());
}

TEST_F(Builder, StoresTheLastFourDigitsOfNumbersInAnyScript) {
    phone::AddressBookBuilder builder = open();
    phone::Person person = named("A");
    person.phones = {
        {"(212) 555-0142", ""}, {"+1 212 555 0143 ext. 9", ""}, {"٠١٢٣٤٥٦٧٨٩", ""}, {"611", ""}, {"Work", ""}};
    ASSERT_TRUE(builder.addPerson(person));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT multivalue_id, value FROM ABPhoneLastFour"),
                ElementsAre("1", "0142", "2", "0143", "3", "6789", "4", "611"));
}

TEST_F(Builder, LabelsAreSharedRows) {
    phone::AddressBookBuilder builder = open();
    phone::Person person = named("A");
    person.phones = {{"1", "Boat"}, {"2", "Boat"}};
    person.emails = {{"a@b.c", ""}};
    ASSERT_TRUE(builder.addPerson(person));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT property, identifier, label, value FROM ABMultiValue"),
                ElementsAre("3", "0", "1", "1", "3", "1", "1", "2", "4", "0", "NULL", "a@b.c"));
    EXPECT_THAT(book("SELECT ROWID, value FROM ABMultiValueLabel"), ElementsAre("1", "Boat"));
}

TEST_F(Builder, APhotoIsKeptWholeAndAsThumbnail) {
    phone::AddressBookBuilder builder = open();
    phone::Person person = named("A");
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
    phone::AddressBookBuilder builder = open();
    phone::Person person = named("A");
    person.photo = "broken";
    EXPECT_THAT(builder.addPerson(person).text(), HasSubstr("not a picture"));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT First FROM ABPerson"), IsEmpty());
}

TEST_F(Builder, ThumbnailsOfAnyBytesAreStoredAsTheyAre) {
    phone::AddressBookBuilder builder = open();
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
    phone::AddressBookBuilder builder = open();
    for (const char* name : {"A", "B", "C"}) ASSERT_TRUE(builder.addPerson(named(name)));
    ASSERT_TRUE(builder.link({3, 1}));
    EXPECT_FALSE(builder.link({2}));
    EXPECT_THAT(builder.link({2, 9}).text(), HasSubstr("no contact 9"));
    ASSERT_TRUE(builder.finish());
    EXPECT_THAT(book("SELECT PersonLink, IsPreferredName FROM ABPerson WHERE ROWID IN (1, 3)"),
                ElementsAre("1", "0", "1", "1"));
}

TEST_F(Builder, ChangesAndRemovesPersons) {
    phone::AddressBookBuilder builder = open();
    phone::Person person = named("A");
    person.phones = {{"555 0100", ""}};
    person.photo = test::picture(10, 10, 0);
    ASSERT_TRUE(builder.addPerson(person));
    phone::Call call;
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
    EXPECT_THAT(builder.removePerson(1).text(), HasSubstr("no contact 1"));
    EXPECT_FALSE(builder.setNames(1, "X", "Y"));
    EXPECT_FALSE(builder.setModificationDate(1, 1));
}

TEST_F(Builder, NeedsARoot) {
    EXPECT_THAT(phone::AddressBookBuilder::open(bench.path()).text(), HasSubstr("device.plist"));
}

}  // namespace
