#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/support/extension.h"
#include "tests/support/pictures.h"

namespace {

// What the memo holds shows in what a number or an address resolves to after the book has changed.
class ContactIDMemo : public test::ExtensionTest {
  protected:
    ContactIDMemo() {
        maker::Person ann;
        ann.first = "Ann";
        ann.emails = {{"ann@example.com", ""}, {"ann@example.org", ""}};
        annID_ = add(ann);
        maker::Person bob;
        bob.first = "Bob";
        bob.emails = {{"bob@example.com", ""}};
        bobID_ = add(bob);
        boot();
    }

    int add(const maker::Person& person) {
        auto book = maker::AddressBookBuilder::open(root.path());
        const int contact = book->addPerson(person).value();
        finish(*book);
        return contact;
    }

    void removeEverybody() {
        auto book = maker::AddressBookBuilder::open(root.path());
        for (int contact : {annID_, bobID_}) check(book->removePerson(contact));
        finish(*book);
    }

    static void finish(maker::AddressBookBuilder& book) { check(book.finish()); }
    static void check(const phone::Status& status) { ASSERT_TRUE(status); }

    int annID_ = 0;
    int bobID_ = 0;
};

TEST_F(ContactIDMemo, KeepsWhatOnceResolved) {
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], annID_);
    removeEverybody();
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], annID_);
    EXPECT_EQ([Utils getContactID:@"ann@example.org"], -1);
}

TEST_F(ContactIDMemo, DoesNotKeepWhatMatchedNobody) {
    EXPECT_EQ([Utils getContactID:@"carl@example.com"], -1);
    maker::Person carl;
    carl.first = "Carl";
    carl.emails = {{"carl@example.com", ""}};
    const int carlID = add(carl);
    EXPECT_EQ([Utils getContactID:@"carl@example.com"], carlID);
}

TEST_F(ContactIDMemo, RemovalByIDForgetsItAndNoOther) {
    [Utils getContactID:@"ann@example.com"];
    [Utils getContactID:@"bob@example.com"];
    removeEverybody();
    [Utils removeContactIDFromCache:annID_];
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], -1);
    EXPECT_EQ([Utils getContactID:@"bob@example.com"], bobID_);
}

TEST_F(ContactIDMemo, OneRemovalForgetsOneOfTwoTexts) {
    [Utils getContactID:@"ann@example.com"];
    [Utils getContactID:@"ann@example.org"];
    removeEverybody();
    [Utils removeContactIDFromCache:annID_];
    const bool firstKept = [Utils getContactID:@"ann@example.com"] == annID_;
    const bool secondKept = [Utils getContactID:@"ann@example.org"] == annID_;
    EXPECT_NE(firstKept, secondKept);
    [Utils removeContactIDFromCache:annID_];
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], -1);
    EXPECT_EQ([Utils getContactID:@"ann@example.org"], -1);
}

TEST_F(ContactIDMemo, RemovalOfAnUncachedPictureForgetsTheIDAllTheSame) {
    [Utils getContactID:@"ann@example.com"];
    removeEverybody();
    EXPECT_FALSE([Utils removeImageFromCache:annID_]);
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], -1);
}

TEST_F(ContactIDMemo, RemovalOfACachedPictureForgetsTheIDToo) {
    [Utils getContactID:@"ann@example.com"];
    [Utils setContactImage:test::redPicture(2, 2, 1) contactId:annID_];
    removeEverybody();
    EXPECT_TRUE([Utils removeImageFromCache:annID_]);
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], -1);
}

TEST_F(ContactIDMemo, RemovingAvatarsForgetsNothing) {
    [Utils getContactID:@"ann@example.com"];
    removeEverybody();
    [Utils removeAvatarsFromCache];
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], annID_);
}

TEST_F(ContactIDMemo, RemovalWithAnIDBelow1ForgetsNothing) {
    [Utils getContactID:@"ann@example.com"];
    removeEverybody();
    EXPECT_FALSE([Utils removeImageFromCache:0]);
    EXPECT_FALSE([Utils removeImageFromCache:-1]);
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], annID_);
}

TEST_F(ContactIDMemo, RemovalFromAnEmptyMemoDoesNothing) {
    [Utils removeContactIDFromCache:annID_];
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], annID_);
}

TEST_F(ContactIDMemo, ClearingForgetsEverything) {
    [Utils getContactID:@"ann@example.com"];
    [Utils getContactID:@"bob@example.com"];
    removeEverybody();
    [Utils clearImageCache];
    EXPECT_EQ([Utils getContactID:@"ann@example.com"], -1);
    EXPECT_EQ([Utils getContactID:@"bob@example.com"], -1);
}

}  // namespace
