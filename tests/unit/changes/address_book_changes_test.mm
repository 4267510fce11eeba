#include <sqlite3.h>

#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/support/darwin.h"
#include "tests/support/extension.h"
#include "tests/support/sqlite_calls.h"

@interface RedrawCounter : NSObject {
  @public
    int redraws;
    id lastObject;
    NSDictionary* lastInfo;
}
- (void)redraw:(NSNotification*)notification;
@end

@implementation RedrawCounter
- (void)redraw:(NSNotification*)notification {
    ++redraws;
    lastObject = [notification object];
    lastInfo = [notification userInfo];
}
@end

namespace {

constexpr const char* kChanged = "__ABDataBaseChangedByOtherProcessNotification";
constexpr const char* kDatabase = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";

class AddressBookChanges : public test::ExtensionTest {
  protected:
    ~AddressBookChanges() override {
        [[NSNotificationCenter defaultCenter] removeObserver:counter_];
        [counter_ release];
    }

    // Three contacts, modified in the order of the dates given.
    void makeBook(std::initializer_list<double> modified) {
        auto book = maker::AddressBookBuilder::open(root.path());
        for (double date : modified) {
            maker::Person person;
            person.first = "Somebody";
            person.modified = date;
            contacts_.push_back(book->addPerson(person).value());
        }
        ASSERT_TRUE(book->finish());
    }

    void start(const char* bundleIdentifier = "com.apple.springboard") {
        boot(bundleIdentifier);
        counter_ = [[RedrawCounter alloc] init];
        [[NSNotificationCenter defaultCenter] addObserver:counter_
                                                 selector:@selector(redraw:)
                                                     name:@"com.norvex.ZelkaSettingsChangedNotification"
                                                   object:nil];
        UIGraphicsBeginImageContext(CGSizeMake(2, 2));
        picture_ = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        for (int contact : contacts_) [Utils setContactImage:picture_ contactId:contact];
    }

    // Which of the contacts' pictures are cached: "101".
    std::string cached() const {
        std::string text;
        for (int contact : contacts_) text += [Utils getContactImageInCache:contact] != nil ? '1' : '0';
        return text;
    }

    std::vector<int> contacts_;
    RedrawCounter* counter_ = nil;
    UIImage* picture_ = nil;
};

TEST_F(AddressBookChanges, DropThePictureOfTheContactModifiedLastAndRedraw) {
    makeBook({100, 300, 200});
    start();
    EXPECT_EQ(test::deliver(kChanged), 1);
    EXPECT_EQ(cached(), "101");
    EXPECT_EQ(counter_->redraws, 1);
    EXPECT_EQ(counter_->lastObject, nil);
    EXPECT_EQ(counter_->lastInfo, nil);
    EXPECT_EQ(loggedLines("Removed last modified entry from the cache.. " + std::to_string(contacts_[1])), 1);
}

TEST_F(AddressBookChanges, ActInTheViewServiceToo) {
    makeBook({100, 300, 200});
    start("net.vantrel.callbarviewservice");
    test::deliver(kChanged);
    EXPECT_EQ(cached(), "101");
    EXPECT_EQ(counter_->redraws, 1);
}

TEST_F(AddressBookChanges, DoNothingInAnotherProcess) {
    makeBook({100, 300, 200});
    start("com.apple.mobilephone");
    EXPECT_EQ(test::deliver(kChanged), 1);
    EXPECT_EQ(cached(), "111");
    EXPECT_EQ(counter_->redraws, 0);
}

TEST_F(AddressBookChanges, RedrawNothingWhenTheContactHasNoCachedPicture) {
    makeBook({100, 300, 200});
    start();
    [Utils removeImageFromCache:contacts_[1]];
    test::deliver(kChanged);
    EXPECT_EQ(cached(), "101");
    EXPECT_EQ(counter_->redraws, 0);
}

TEST_F(AddressBookChanges, DropOnePictureOnlyWhenSeveralContactsChangedAtOnce) {
    makeBook({100, 300, 300});
    start();
    test::deliver(kChanged);
    EXPECT_EQ(cached(), "101");
    test::deliver(kChanged);
    EXPECT_EQ(cached(), "101");
    EXPECT_EQ(counter_->redraws, 1);
}

TEST_F(AddressBookChanges, AnEmptyBookIsAnErrorInTheLog) {
    makeBook({});
    start();
    [Utils setContactImage:picture_ contactId:1];
    test::deliver(kChanged);
    EXPECT_EQ(loggedLines(" com.norvex.Zelka => Error: Unabe to get ROWID From ABPERSON"), 1);
    EXPECT_NE([Utils getContactImageInCache:1], nil);
    EXPECT_EQ(counter_->redraws, 0);
}

TEST_F(AddressBookChanges, AMissingBookChangesNothingAndIsNotMade) {
    start();
    [Utils setContactImage:picture_ contactId:1];
    test::deliver(kChanged);
    EXPECT_NE([Utils getContactImageInCache:1], nil);
    EXPECT_FALSE(root.exists(kDatabase));
    EXPECT_EQ(loggedLines("Unabe to get ROWID From ABPERSON"), 0);
}

TEST_F(AddressBookChanges, ADirectoryInTheBooksPlaceChangesNothing) {
    std::filesystem::create_directories(root.host(kDatabase));
    start();
    [Utils setContactImage:picture_ contactId:1];
    test::deliver(kChanged);
    EXPECT_NE([Utils getContactImageInCache:1], nil);
    EXPECT_EQ(counter_->redraws, 0);
}

TEST_F(AddressBookChanges, AFileThatIsNoDatabaseChangesNothing) {
    root.write(kDatabase, "this is no database, however long it may be: " + std::string(5000, 'x'));
    start();
    [Utils setContactImage:picture_ contactId:1];
    test::deliver(kChanged);
    EXPECT_NE([Utils getContactImageInCache:1], nil);
    EXPECT_EQ(loggedLines("Unabe to get ROWID From ABPERSON"), 0);
}

TEST_F(AddressBookChanges, AnEmptyFileChangesNothing) {
    root.write(kDatabase, "");
    start();
    [Utils setContactImage:picture_ contactId:1];
    test::deliver(kChanged);
    EXPECT_NE([Utils getContactImageInCache:1], nil);
}

TEST_F(AddressBookChanges, AReadThatFailsIsNoEmptyBook) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(root.host(kDatabase).c_str(), &database), SQLITE_OK);
    // A number that is too large for its sign to change: an error, but only when the row is asked for.
    EXPECT_EQ(sqlite3_exec(database,
                           "CREATE VIEW ABPerson AS SELECT 7 AS ROWID, abs(-9223372036854775807 - 1) AS "
                           "ModificationDate",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
    start();
    for (int contact : {0, 7}) [Utils setContactImage:picture_ contactId:contact];
    const int stepped = test::sqliteCalls().stepped;
    test::deliver(kChanged);
    EXPECT_EQ(test::sqliteCalls().stepped - stepped, 1);
    EXPECT_EQ(log().find("Unabe to get ROWID"), std::string::npos);
    for (int contact : {0, 7}) EXPECT_NE([Utils getContactImageInCache:contact], nil) << contact;
    EXPECT_EQ(counter_->redraws, 0);
}

TEST_F(AddressBookChanges, TheHandlerActsOnItsOwnNotificationOnly) {
    makeBook({100, 300, 200});
    start();
    EXPECT_EQ(test::deliverAs(@"__abdatabasechangedbyotherprocessnotification", kChanged), 1);
    EXPECT_EQ(test::deliverAs(nil, kChanged), 1);
    EXPECT_EQ(cached(), "111");
}

}  // namespace
