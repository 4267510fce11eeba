#include "tests/unit/contacts/contacts_test.h"

#include <sqlite3.h>

#include <filesystem>

namespace {

using phone::Pixel;
using test::kImages;
using test::leftInPool;
using test::near;
using test::pixel;

constexpr Pixel kRed{255, 0, 0, 255}, kBlue{0, 0, 255, 255};
constexpr const char* kReader = "NSData *getContactImageFromABForID(int, int)";

class Lookup : public test::ContactsTest {
  protected:
    using ContactsTest::ContactsTest;
    int addWithThumbnail(test::Rgb color) {
        const int contact = addNamed("Anna", "Zuse");
        setThumbnail(contact, test::bmp(16, 16, color));
        return contact;
    }
    static UIImage* look(int contact, BOOL newImage = NO) {
        return [Utils getContactImageOnly:contact monogramText:@"AZ" newImage:newImage];
    }
    static bool shows(UIImage* picture, Pixel color) { return near(pixel(picture, 40, 40), color); }
    UIImage* recent() {
        return [Utils getImage:@"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent@2x.png"];
    }
    bool logged(const std::string& text) { return log().find(text) != std::string::npos; }
};

TEST_F(Lookup, OfAThumbnailStepsExactlyOneStatement) {
    const int contact = addWithThumbnail(test::kRed);
    boot();
    test::SqliteCalls& calls = test::sqliteCalls();
    calls.opened = calls.prepared = calls.stepped = 0;
    UIImage* picture = look(contact);
    EXPECT_TRUE(shows(picture, kRed));
    EXPECT_EQ([picture size].width, 80);
    EXPECT_EQ([picture scale], 1);
    EXPECT_EQ(calls.opened, 1);
    EXPECT_EQ(calls.prepared, 1);
    EXPECT_EQ(calls.stepped, 1);
}

TEST_F(Lookup, OfACachedPictureTouchesNoDatabase) {
    const int contact = addWithThumbnail(test::kRed);
    boot();
    UIImage* picture = look(contact);
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    EXPECT_EQ(look(contact), picture);
    EXPECT_EQ(([Utils getContactImageOnly:contact monogramText:nil newImage:NO size:CGSizeMake(60, 60)]), picture);
    EXPECT_EQ([Utils getContactImage:contact], picture);
    EXPECT_EQ(([Utils getContactImageFromAB:contact monogramText:nil]), picture);
    EXPECT_EQ(([Utils getContactImageFromAB:contact addressBook:YES monogramText:nil]), picture);
    EXPECT_EQ(test::sqliteCalls().opened, 1);
}

TEST_F(Lookup, ForANewImageReadsAgain) {
    const int contact = addWithThumbnail(test::kRed);
    boot();
    look(contact);
    setThumbnail(contact, test::bmp(16, 16, test::kBlue));
    EXPECT_TRUE(shows(look(contact), kRed));
    UIImage* fresh = look(contact, YES);
    EXPECT_TRUE(shows(fresh, kBlue));
    EXPECT_EQ(look(contact), fresh);
}

TEST_F(Lookup, ForANewImageKeepsTheOldPictureWhenThePhotoIsGoneAndMonogramsAreOff) {
    const int contact = addWithThumbnail(test::kRed);
    boot();
    [settings() setIsMonogramEnabled:NO];
    UIImage* old = look(contact);
    removePhoto(contact);
    EXPECT_EQ(look(contact, YES), old);
    [settings() setIsMonogramEnabled:YES];
    EXPECT_EQ(look(contact, YES), old);
}

TEST_F(Lookup, TakesTheFirstLinkedContactWithAThumbnail) {
    const int contact = addNamed("Anna", "Zuse");
    const int plain = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    const int blue = addWithThumbnail(test::kBlue);
    link({contact, plain, red, blue});
    boot();
    UIImage* picture = look(contact);
    EXPECT_TRUE(shows(picture, kRed));
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    EXPECT_EQ([Utils getContactImageInCache:red], nil);
    EXPECT_EQ(loggedLines("], Getting image for " + std::to_string(contact)), 1);
    EXPECT_TRUE(logged("com.norvex.ZelkaCB: Information => +[ZelkaCBUtils getContactImageDataFromAB:], [Line "));
}

TEST_F(Lookup, TakesLinkedContactsInTheBooksOrderAndNotThatOfTheirIDs) {
    const int contact = addNamed("Anna", "Zuse");
    int nine = 0;
    while (nine < 9) nine = addWithThumbnail(test::kRed);
    const int ten = addWithThumbnail(test::kBlue);
    link({contact, nine, ten});
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(root.host(test::kAddressBook).c_str(), &database), SQLITE_OK);
    // The book lists by ID, and 10 comes before 9 when the IDs are text.
    EXPECT_EQ(sqlite3_exec(database,
                           "ALTER TABLE ABPerson RENAME TO Everybody;"
                           "CREATE VIEW ABPerson AS SELECT CAST(ROWID AS TEXT) AS ROWID, * FROM Everybody",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
    boot();
    EXPECT_TRUE(shows(look(contact), kBlue));
}

TEST_F(Lookup, OfLinkedThumbnailsLeavesOutTheContactsOwn) {
    const int contact = addWithThumbnail(test::kRed);
    const int other = addWithThumbnail(test::kBlue);
    const int alone = addWithThumbnail(test::kBlue);
    link({contact, other});
    boot();
    EXPECT_TRUE([[Utils getContactImageDataFromAB:contact] isEqual:test::data(test::bmp(16, 16, test::kBlue))]);
    EXPECT_TRUE([[Utils getContactImageDataFromAB:other] isEqual:test::data(test::bmp(16, 16, test::kRed))]);
    EXPECT_EQ([Utils getContactImageDataFromAB:alone], nil);
    EXPECT_EQ([Utils getContactImageDataFromAB:4711], nil);
}

TEST_F(Lookup, OfLinkedThumbnailsNeedsNoSharedAddressBook) {
    const int contact = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    link({contact, red});
    boot();
    EXPECT_NE([Utils getAddressBook], nullptr);
    [Utils clearImageCache];
    EXPECT_EQ([Utils getAddressBook], nullptr);
    EXPECT_TRUE([[Utils getContactImageDataFromAB:contact] isEqual:test::data(test::bmp(16, 16, test::kRed))]);
}

TEST_F(Lookup, OfLinkedThumbnailsLeavesAnAddressBookBehind) {
    const int contact = addNamed("Anna", "Zuse");
    boot();
    static int freed = 0;
    static IMP dealloc = nullptr;
    dealloc = method_setImplementation(
        class_getInstanceMethod(objc_getClass("ABCAddressBook"), @selector(dealloc)), (IMP) + [](id self, SEL command) {
            ++freed;
            reinterpret_cast<void (*)(id, SEL)>(dealloc)(self, command);
        });
    @autoreleasepool {
        for (int round = 0; round < 3; ++round) [Utils getContactImageDataFromAB:contact];
    }
    EXPECT_EQ(freed, 0);
    // Another lookup that makes one releases it.
    @autoreleasepool {
        [Utils getContactImageFromAB:contact addressBook:YES monogramText:@"AZ"];
    }
    EXPECT_EQ(freed, 1);
}

TEST_F(Lookup, WithoutAnyPictureDrawsAMonogramOfTheSizeAndFont) {
    const int contact = addNamed("Anna", "Zuse");
    const int other = addNamed("Anna", "Zuse");
    const int third = addNamed("Anna", "Zuse");
    boot();
    UIImage* picture = look(contact);
    EXPECT_EQ([picture size].width, 40);
    EXPECT_EQ([picture scale], 2);
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    UIFont* font = [UIFont systemFontOfSize:30];
    picture = [Utils getContactImageOnly:other monogramText:@"AZ" newImage:NO size:CGSizeMake(60, 50) font:font];
    EXPECT_EQ([picture size].width, 60);
    EXPECT_EQ([picture size].height, 50);
    EXPECT_EQ(([Utils getContactImageOnly:third monogramText:@"A" newImage:NO size:CGSizeMake(30, 30)].size.width), 30);
}

TEST_F(Lookup, WithoutAnyPictureAndMonogramsKeepsTheDefaultPictureUnderTheContact) {
    const int contact = addNamed("Anna", "Zuse");
    boot();
    [settings() setIsMonogramEnabled:NO];
    UIImage* picture = look(contact);
    EXPECT_EQ(picture, recent());
    EXPECT_FALSE(test::isTransparent(picture));
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    const int opened = test::sqliteCalls().opened;
    EXPECT_EQ(look(contact), picture);
    EXPECT_EQ(test::sqliteCalls().opened, opened);
}

TEST_F(Lookup, KeepsTheDefaultPictureUnderAContactWhoseMonogramCannotBeMade) {
    const int contact = addNamed(std::nullopt, std::nullopt);
    boot();
    removeSilhouettes();
    UIImage* picture = [Utils getContactImageOnly:contact monogramText:nil newImage:NO];
    EXPECT_EQ(picture, recent());
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
}

TEST_F(Lookup, KeepsPicturesUnderAnyNumber) {
    addNamed("Anna", "Zuse");
    boot();
    [settings() setIsMonogramEnabled:NO];
    for (int nobody : {0, -1}) {
        EXPECT_EQ(look(nobody), recent());
        EXPECT_EQ([Utils getContactImageInCache:nobody], recent());
        UIImage* picture = [Utils getImageFromImageData:test::data(test::bmp(9, 9, test::kBlue)) contactId:nobody];
        EXPECT_EQ([Utils getContactImageInCache:nobody], picture);
        EXPECT_EQ(look(nobody), picture);
    }
}

TEST_F(Lookup, TakesAnEmptyThumbnailForNone) {
    const int contact = addNamed("Anna", "Zuse");
    setThumbnail(contact, "");
    const int otherFormat = addNamed("Anna", "Zuse");
    const int null = addNamed("Anna", "Zuse");
    {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root.path()).value();
        EXPECT_EQ(phone::problemOf(book.setThumbnail(otherFormat, test::bmp(8, 8, test::kRed), 5)), "");
        EXPECT_EQ(phone::problemOf(book.setNullThumbnail(null)), "");
        EXPECT_EQ(phone::problemOf(book.finish()), "");
    }
    boot();
    for (int each : {contact, otherFormat, null}) EXPECT_EQ([look(each) size].width, 40) << each;
}

TEST_F(Lookup, OfUndecodableBytesIsTransparentAndKept) {
    std::string truncated = test::bmp(40, 40, test::kRed);
    truncated.resize(1000);
    const std::string noPictures[] = {"x", truncated, test::bmpHeader(65000, 65000), std::string(50000, '\xFE')};
    std::vector<int> contacts;
    for (const std::string& bytes : noPictures) {
        contacts.push_back(addNamed("Anna", "Zuse"));
        setThumbnail(contacts.back(), bytes);
    }
    boot();
    for (int contact : contacts) {
        UIImage* picture = look(contact);
        EXPECT_EQ([picture size].width, 80);
        EXPECT_TRUE(test::isTransparent(picture));
        EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    }
}

TEST_F(Lookup, OfAnAnimationShowsItsFirstFrame) {
    const int contact = addNamed("Anna", "Zuse");
    setThumbnail(contact, test::animatedGif());
    boot();
    EXPECT_TRUE(shows(look(contact), kRed));
}

TEST_F(Lookup, OfDataKeepsThePictureUnderTheContact) {
    boot();
    UIImage* picture = [Utils getImageFromImageData:test::data(test::bmp(9, 9, test::kBlue)) contactId:12];
    EXPECT_TRUE(shows(picture, kBlue));
    EXPECT_EQ([Utils getContactImageInCache:12], picture);
    EXPECT_EQ(([Utils getImageFromImageData:nil contactId:13]), nil);
    EXPECT_EQ(([Utils getImageFromImageData:[NSData data] contactId:13]), nil);
    EXPECT_EQ([Utils getContactImageInCache:13], nil);
}

TEST_F(Lookup, WaitsOnceASecondForImagesThatCannotBePrepared) {
    const int contact = addWithThumbnail(test::kRed);
    replaceByGarbage(kImages);
    boot();
    restoreWhenSlept(1.2, kImages);
    EXPECT_TRUE(shows(look(contact), kRed));
    EXPECT_EQ(test::slept(), 2u);
    const std::string ending = "], Error while preparing statement: 'file is not a database'";
    EXPECT_EQ(loggedLines(ending), 2);
    EXPECT_TRUE(logged(std::string("com.norvex.ZelkaCB: Error => ") + kReader + ", [Line "));
}

TEST_F(Lookup, WaitsForImagesThatCannotBeOpened) {
    const int contact = addWithThumbnail(test::kRed);
    replaceByDirectory(kImages);
    boot();
    restoreWhenSlept(0.4, kImages);
    EXPECT_TRUE(shows(look(contact), kRed));
    EXPECT_EQ(loggedLines("], Error while opening database connection: 'unable to open database file'"), 1);
    EXPECT_TRUE(logged(std::string("com.norvex.ZelkaCB: Error => ") + kReader + ", [Line "));
}

TEST_F(Lookup, LeavesNothingInTheCallersPoolForTheSecondsThatItWaits) {
    const int linked = addNamed("Anna", "Zuse");
    const int contact = addWithThumbnail(test::kRed);
    link({linked, contact});
    boot();
    auto read = [linked] { [Utils getContactImageDataFromAB:linked]; };
    leftInPool(read);  // what is made once
    const unsigned withoutWaiting = leftInPool(read);
    replaceByGarbage(kImages);
    restoreWhenSlept(1.2, kImages);
    EXPECT_EQ(leftInPool(read), withoutWaiting);
}

TEST_F(Lookup, WaitsForImagesThatAreNotThere) {
    const int contact = addWithThumbnail(test::kRed);
    std::error_code error;
    std::filesystem::rename(root.host(kImages), root.host(kImages) + ".aside", error);
    boot();
    restoreWhenSlept(0.4, kImages);
    EXPECT_TRUE(shows(look(contact), kRed));
    EXPECT_EQ(loggedLines("], Error while preparing statement: 'no such table: ABThumbnailImage'"), 1);
}

TEST_F(Lookup, ByContactTakesTheInitialsFromTheDatabase) {
    const int photo = addWithThumbnail(test::kRed);
    const int contact = addNamed("Anna", "Zuse");
    const int linked = addNamed("Anna", "Zuse");
    link({photo, linked});
    boot();
    EXPECT_TRUE(shows([Utils getContactImage:photo], kRed));
    EXPECT_TRUE(shows([Utils getContactImage:linked], kRed));
    UIImage* picture = [Utils getContactImage:contact];
    EXPECT_TRUE(isMonogramOf(@"AZ", picture));
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    EXPECT_EQ([Utils getContactImage:contact], picture);
}

TEST_F(Lookup, ByContactDoesNotKeepTheDefaultPictureUnderTheContact) {
    const int contact = addNamed("Anna", "Zuse");
    boot();
    [settings() setIsMonogramEnabled:NO];
    EXPECT_EQ([Utils getContactImage:contact], recent());
    EXPECT_EQ([Utils getContactImageInCache:contact], nil);
}

TEST_F(Lookup, ByContactDoesNotKeepTheDefaultPictureForAMonogramThatCannotBeMade) {
    const int contact = addNamed(std::nullopt, std::nullopt);
    boot();
    removeSilhouettes();
    EXPECT_EQ([Utils getContactImage:contact], recent());
    EXPECT_EQ([Utils getContactImageInCache:contact], nil);
}

TEST_F(Lookup, ByNumberTellsWhomItFound) {
    maker::Person person;
    person.first = "Anna";
    person.phones.push_back({"+1 415 555 2671", ""});
    person.emails.push_back({"anna@example.com", ""});
    const int contact = add(person);
    setThumbnail(contact, test::bmp(8, 8, test::kRed));
    boot();
    UIImage* picture = [Utils getContactImageByNumber:@"+14155552671"];
    EXPECT_TRUE(shows(picture, kRed));
    EXPECT_EQ([Utils getContactImageByNumber:@"anna@example.com"], picture);
    EXPECT_EQ([Utils getContactImageByNumber:@"+12125550199"], nil);
    EXPECT_EQ([Utils getContactImageByNumber:@"o'neil@example.com"], nil);
    EXPECT_EQ([Utils getContactImageByNumber:nil], nil);
    const std::string found = "], Found contact ID " + std::to_string(contact) + " for ";
    EXPECT_EQ(loggedLines(found + "+14155552671"), 1);
    EXPECT_EQ(loggedLines(found + "anna@example.com"), 1);
    EXPECT_EQ(loggedLines("], Found contact ID 0 for +12125550199"), 1);
    EXPECT_EQ(loggedLines("], Found contact ID -1 for o'neil@example.com"), 1);
    EXPECT_EQ(loggedLines("], Found contact ID -1 for (null)"), 1);
    EXPECT_TRUE(logged("com.norvex.ZelkaCB: Information => +[ZelkaCBUtils getContactImageByNumber:], [Line "));
}

class LookupOnSystem6 : public Lookup {
  protected:
    LookupOnSystem6() : Lookup("iphone4s-6.1") {}
};

TEST_F(LookupOnSystem6, NeitherSearchesLinkedContactsNorDrawsMonograms) {
    const int contact = addNamed("Anna", "Zuse");
    const int photo = addWithThumbnail(test::kRed);
    link({contact, photo});
    boot();
    EXPECT_TRUE(shows(look(photo), kRed));
    UIImage* picture = look(contact);
    EXPECT_EQ(picture, recent());
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    EXPECT_FALSE(logged("Getting image for "));
    EXPECT_EQ([Utils getContactImageDataFromAB:contact], nil);
    EXPECT_EQ(loggedLines("], Getting image for " + std::to_string(contact)), 1);
}

}  // namespace
