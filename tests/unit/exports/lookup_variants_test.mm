#include "tests/unit/contacts/contacts_test.h"

// A person as the contacts interface hands it out.
@interface InterfacePerson : NSObject {
    ABRecordID _recordID;
    NSArray* _linkedPeople;
}
+ (InterfacePerson*)personWithID:(ABRecordID)recordID linkedTo:(NSArray*)people;
- (ABRecordID)recordID;
- (NSArray*)linkedPeople;
@end

@implementation InterfacePerson
+ (InterfacePerson*)personWithID:(ABRecordID)recordID linkedTo:(NSArray*)people {
    InterfacePerson* person = [[[self alloc] init] autorelease];
    person->_recordID = recordID;
    person->_linkedPeople = [people retain];
    return person;
}
- (void)dealloc {
    [_linkedPeople release];
    [super dealloc];
}
- (ABRecordID)recordID {
    return _recordID;
}
- (NSArray*)linkedPeople {
    return _linkedPeople;
}
@end

namespace {

using phone::Pixel;
using test::near;
using test::pixel;

constexpr Pixel kRed{255, 0, 0, 255}, kBlue{0, 0, 255, 255};

class Variants : public test::ContactsTest {
  protected:
    using ContactsTest::ContactsTest;
    int addWithThumbnail(test::Rgb color) {
        const int contact = addNamed("Anna", "Zuse");
        setThumbnail(contact, test::bmp(16, 16, color));
        return contact;
    }
    void setFullSize(int contact, test::Rgb color) {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root.path()).value();
        EXPECT_EQ(phone::problemOf(book.setFullSizeImage(contact, test::bmp(32, 32, color))), "");
        EXPECT_EQ(phone::problemOf(book.finish()), "");
    }
    static InterfacePerson* person(int contact, NSArray* linked = nil) {
        return [InterfacePerson personWithID:contact linkedTo:linked];
    }
    static bool shows(UIImage* picture, Pixel color) { return near(pixel(picture, 40, 40), color); }
    UIImage* recent() {
        return [Utils getImage:@"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent@2x.png"];
    }
};

TEST_F(Variants, OfAnInterfacePersonReadItsThumbnail) {
    const int contact = addWithThumbnail(test::kRed);
    const int plain = addNamed("Anna", "Zuse");
    boot();
    EXPECT_TRUE([[Utils getContactImageABUIPerson:person(contact)] isEqual:test::data(test::bmp(16, 16, test::kRed))]);
    EXPECT_EQ([Utils getContactImageABUIPerson:person(plain)], nil);
    UIImage* picture = [Utils getContactImageOnlyIOS7:person(contact)];
    EXPECT_TRUE(shows(picture, kRed));
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    const int opened = test::sqliteCalls().opened;
    EXPECT_EQ([Utils getContactImageOnlyIOS7:person(contact)], picture);
    EXPECT_EQ(test::sqliteCalls().opened, opened);
}

TEST_F(Variants, OfAnInterfacePersonAskItsLinkedPeopleInOrder) {
    const int contact = addNamed("Anna", "Zuse");
    const int plain = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    const int blue = addWithThumbnail(test::kBlue);
    boot();
    UIImage* picture = [Utils getContactImageOnlyIOS7:person(contact, @[ person(plain), person(blue), person(red) ])];
    EXPECT_TRUE(shows(picture, kBlue));
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    EXPECT_EQ([Utils getContactImageInCache:blue], nil);
}

TEST_F(Variants, OfAnInterfacePersonPreferItsOwnThumbnailToThoseOfItsLinkedPeople) {
    const int contact = addWithThumbnail(test::kRed);
    const int blue = addWithThumbnail(test::kBlue);
    boot();
    EXPECT_TRUE(shows([Utils getContactImageOnlyIOS7:person(contact, @[ person(blue), person(contact) ])], kRed));
}

TEST_F(Variants, OfAnInterfacePersonWithoutPhotoAreAMonogramOrTheDefaultPicture) {
    const int contact = addNamed("\"Anna\"", "Zuse");
    const int other = addNamed("Bob", "Zuse");
    boot();
    UIImage* picture = [Utils getContactImageOnlyIOS7:person(contact)];
    EXPECT_TRUE(isMonogramOf(@"AZ", picture));
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    [settings() setIsMonogramEnabled:NO];
    picture = [Utils getContactImageOnlyIOS7:person(other)];
    EXPECT_EQ(picture, recent());
    EXPECT_EQ([Utils getContactImageInCache:other], picture);
}

TEST_F(Variants, OfAnInterfacePersonAreKeptUnderAnyNumber) {
    addNamed("Anna", "Zuse");
    boot();
    for (int nobody : {0, -1}) {
        UIImage* picture = [Utils getContactImageOnlyIOS7:person(nobody)];
        EXPECT_NE(picture, nil);
        EXPECT_EQ([Utils getContactImageInCache:nobody], picture);
    }
}

TEST_F(Variants, WhoseMonogramCannotBeMadeAreTheDefaultPictureForAnInterfacePersonOnly) {
    const int contact = addNamed(std::nullopt, std::nullopt);
    const int other = addNamed(std::nullopt, std::nullopt);
    boot();
    removeSilhouettes();
    EXPECT_EQ([Utils getContactImageOnlyIOS7:person(contact)], recent());
    EXPECT_EQ([Utils getContactImageInCache:contact], recent());
    EXPECT_EQ(([Utils getContactImageFromAB:other addressBook:YES monogramText:nil]), nil);
    EXPECT_EQ(([Utils getChatKitContactImageOnly:other monogramText:nil date:0]), nil);
    EXPECT_EQ([Utils getContactImageInCache:other], nil);
}

TEST_F(Variants, FromTheBookWithoutMonogramTellThatTheyGoOnToLinkedContacts) {
    const int red = addWithThumbnail(test::kRed);
    const int linked = addNamed("Anna", "Zuse");
    const int plain = addNamed("Anna", "Zuse");
    link({red, linked});
    boot();
    EXPECT_TRUE(shows([Utils getContactImageFromAB:red monogramText:@"A"], kRed));
    EXPECT_EQ(log().find("Getting contact image from AB.. "), std::string::npos);
    UIImage* picture = [Utils getContactImageFromAB:linked monogramText:@"A"];
    EXPECT_TRUE(shows(picture, kRed));
    EXPECT_EQ([Utils getContactImageInCache:linked], picture);
    EXPECT_EQ(([Utils getContactImageFromAB:plain monogramText:@"A"]), nil);
    EXPECT_EQ([Utils getContactImageInCache:plain], nil);
    EXPECT_EQ(loggedLines("], Getting contact image from AB.. " + std::to_string(linked)), 1);
    EXPECT_EQ(loggedLines("], Getting contact image from AB.. " + std::to_string(plain)), 1);
    EXPECT_NE(log().find("com.norvex.ZelkaCB: Information => +[ZelkaCBUtils getContactImageFromAB:monogramText:], "
                         "[Line "),
              std::string::npos);
}

TEST_F(Variants, FromTheBookLeaveTheInterfaceAloneUnlessAsked) {
    const int plain = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    boot();
    EXPECT_EQ(([Utils getContactImageFromAB:plain addressBook:NO monogramText:@"A"]), nil);
    EXPECT_TRUE(shows([Utils getContactImageFromAB:red addressBook:NO monogramText:@"A"], kRed));
}

TEST_F(Variants, ThroughTheInterfaceTakeTheThumbnailOrAMonogram) {
    const int red = addWithThumbnail(test::kRed);
    const int plain = addNamed("Anna", "Zuse");
    boot();
    UIImage* picture = [Utils getContactImageFromAB:red addressBook:YES monogramText:@"A"];
    EXPECT_TRUE(shows(picture, kRed));
    EXPECT_EQ([Utils getContactImageInCache:red], picture);
    EXPECT_TRUE(isMonogramOf(@"A", [Utils getContactImageFromAB:plain addressBook:YES monogramText:@"A"]));
    EXPECT_NE([Utils getContactImageInCache:plain], nil);
    EXPECT_TRUE(isMonogramOf(@"A", [Utils getContactImageFromAB:4711 addressBook:YES monogramText:@"A"]));
}

TEST_F(Variants, ThroughTheInterfaceTakeAPhotoOfOneByteAndNoneOfNoBytes) {
    const int one = addNamed("Anna", "Zuse");
    const int none = addNamed("Anna", "Zuse");
    setThumbnail(one, "x");
    setThumbnail(none, "");
    boot();
    EXPECT_TRUE(test::isTransparent([Utils getContactImageFromAB:one addressBook:YES monogramText:@"A"]));
    EXPECT_TRUE(isMonogramOf(@"A", [Utils getContactImageFromAB:none addressBook:YES monogramText:@"A"]));
}

TEST_F(Variants, ThroughTheInterfaceLeaveTheFullSizeImageAlone) {
    const int contact = addWithThumbnail(test::kRed);
    setFullSize(contact, test::kBlue);
    boot();
    EXPECT_TRUE(shows([Utils getContactImageFromAB:contact addressBook:YES monogramText:@"A"], kRed));
}

TEST_F(Variants, ThroughTheInterfaceNeverTakeALinkedContactsThumbnail) {
    const int contact = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    link({contact, red});
    boot();
    EXPECT_TRUE(isMonogramOf(@"A", [Utils getContactImageFromAB:contact addressBook:YES monogramText:@"A"]));
}

TEST_F(Variants, ThroughTheInterfaceReadAThumbnailOnceMoreForALinkedContactsPhoto) {
    const int alone = addNamed("Anna", "Zuse");
    const int plain = addNamed("Anna", "Zuse");
    const int contact = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    link({alone, plain});
    link({contact, red});
    boot();
    auto statements = [](int each) {
        const int before = test::sqliteCalls().prepared;
        [Utils getContactImageFromAB:each addressBook:YES monogramText:@"A"];
        return test::sqliteCalls().prepared - before;
    };
    const int withoutPhoto = statements(alone);
    EXPECT_EQ(statements(contact), withoutPhoto + 1);
}

TEST_F(Variants, ThroughTheInterfaceNeedNoSharedAddressBook) {
    const int red = addWithThumbnail(test::kRed);
    boot();
    EXPECT_NE([Utils getAddressBook], nullptr);
    [Utils clearImageCache];
    EXPECT_EQ([Utils getAddressBook], nullptr);
    EXPECT_TRUE(shows([Utils getContactImageFromAB:red addressBook:YES monogramText:@"A"], kRed));
}

TEST_F(Variants, ForMessagesTellOfACacheHit) {
    const int red = addWithThumbnail(test::kRed);
    boot();
    UIImage* picture = [Utils getChatKitContactImageOnly:red monogramText:@"A" date:99];
    EXPECT_TRUE(shows(picture, kRed));
    const std::string line =
        "Got image for contact with id: " + std::to_string(red) + ", monogramText => A, date => 99 in the cache.";
    EXPECT_EQ(loggedLines(line), 0);
    EXPECT_EQ(([Utils getChatKitContactImageOnly:red monogramText:@"A" date:99]), picture);
    EXPECT_EQ(loggedLines(line), 1);
    EXPECT_EQ([Utils getContactImageInCache:99], nil);
}

TEST_F(Variants, ForMessagesTakeLinkedThumbnails) {
    const int contact = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    link({contact, red});
    boot();
    EXPECT_TRUE(shows([Utils getChatKitContactImageOnly:contact monogramText:@"A" date:0], kRed));
}

TEST_F(Variants, ForMessagesKeepAMonogramUnderADateThatTheCacheKnows) {
    const int contact = addNamed("Anna", "Zuse");
    const int other = addNamed("Anna", "Zuse");
    boot();
    UIImage* picture = [Utils getChatKitContactImageOnly:contact monogramText:@"A" date:7000];
    EXPECT_TRUE(isMonogramOf(@"A", picture));
    EXPECT_EQ([Utils getContactImageInCache:contact], picture);
    EXPECT_EQ([Utils getContactImageInCache:7000], nil);
    [Utils setContactImage:picture contactId:7000];
    UIImage* next = [Utils getChatKitContactImageOnly:other monogramText:@"A" date:7000];
    EXPECT_NE(next, picture);
    EXPECT_EQ([Utils getContactImageInCache:7000], next);
}

TEST_F(Variants, ForMessagesAreNoneWithoutMonograms) {
    const int contact = addNamed("Anna", "Zuse");
    boot();
    [settings() setIsMonogramEnabled:NO];
    EXPECT_EQ(([Utils getChatKitContactImageOnly:contact monogramText:@"A" date:0]), nil);
    EXPECT_EQ([Utils getContactImageInCache:contact], nil);
}

class VariantsOnSystem6 : public Variants {
  protected:
    VariantsOnSystem6() : Variants("iphone4s-6.1") {}
};

TEST_F(VariantsOnSystem6, ThroughTheInterfaceTakeTheFullSizeImage) {
    const int contact = addWithThumbnail(test::kRed);
    setFullSize(contact, test::kBlue);
    boot();
    EXPECT_TRUE(shows([Utils getContactImageFromAB:contact addressBook:YES monogramText:@"A"], kBlue));
}

TEST_F(VariantsOnSystem6, FromTheBookDoNotGoOnToLinkedContacts) {
    const int contact = addNamed("Anna", "Zuse");
    const int red = addWithThumbnail(test::kRed);
    link({contact, red});
    boot();
    EXPECT_EQ(([Utils getContactImageFromAB:contact monogramText:@"A"]), nil);
    EXPECT_EQ(log().find("Getting contact image from AB.. "), std::string::npos);
}

}  // namespace
