// When the lists ask for initials: of rows that have their picture already, too, and before system 7.
#include "tests/unit/hooks/contacts_list_test.h"
#include "tests/unit/hooks/recents_test.h"

// Notes being asked for the caller's name.
@interface AskedCall : NamedCall
@end
@implementation AskedCall
- (NSString*)callerName {
    [hostEvents() appendString:@"name-asked "];
    return [super callerName];
}
@end

namespace {

using test::kRed;
using test::kYellow;
using test::List;
using test::RecentsList;
using test::System6Contacts;

TEST_F(RecentsList, ACachedPicturesRowIsAskedForItsNameAllTheSame) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    UIImage* cached = test::redPicture(6, 6, 1);
    [Utils setContactImage:cached contactId:ann];
    showRow(namedCall<AskedCall>(ann, @"Ann Lee"));
    EXPECT_EQ(happened(), "name-asked ");
    EXPECT_EQ([picture() image], cached);
    [settings() setIsMonogramEnabled:NO];
    forget();
    showRow(namedCall<AskedCall>(ann, @"Ann Lee"));
    EXPECT_EQ(happened(), "");
}

TEST_F(RecentsList, TheAddressBookIsAskedForTheInitialsOfACachedPicturesRow) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [Utils setContactImage:test::redPicture(6, 6, 1) contactId:ann];
    expectInitialsAskedByTheSettingAlone(uidCall(ann));
    EXPECT_EQ(queued(), 0);
}

struct System6Recents : RecentsList {
    System6Recents() : RecentsList("iphone4s-6.1") {}
};

TEST_F(System6Recents, TheSettingAloneDecidesWhetherInitialsAreAsked) {
    startWithList();
    ASSERT_FALSE([Utils isMonogramEnabled]);
    [[Utils queue] setSuspended:YES];
    expectInitialsAskedByTheSettingAlone(uidCall(addWithPhoto(kRed)));
    [[Utils queue] setSuspended:NO];
    settle();
}

TEST_F(System6Recents, TheSettingAloneDecidesThePlaceholder) {
    startWithList();
    replaceBundlePicture("user_monogram_round", kYellow);
    replaceBundlePicture("recent", kRed);
    const int nameless = addNamed(std::nullopt, std::nullopt);
    [[Utils queue] setSuspended:YES];
    // A monogram of nobody: the silhouette, as it is.
    showRow(uidCall(nameless));
    EXPECT_TRUE(shows(cell(), kYellow));
    [settings() setIsMonogramEnabled:NO];
    showRow(uidCall(nameless));
    EXPECT_TRUE(shows(cell(), kRed));
    [[Utils queue] setSuspended:NO];
    settle();
}

TEST_F(System6Contacts, TheSettingAloneDecidesWhetherInitialsAreAsked) {
    startWithList();
    ASSERT_FALSE([Utils isMonogramEnabled]);
    give(addNamed("Ann", "Lee"), "");
    ask(List::all);
    EXPECT_EQ(loggedLines("Monograms turned on, monogramText: AL"), 1);
    EXPECT_EQ(log().find("Monograms turned off"), std::string::npos);
    // There are no monograms on that system, so the picture is the default one.
    EXPECT_TRUE(shows(cell_, kYellow));
    EXPECT_EQ([Utils getContactImageInCache:person_->identifier], [picture() image]);
}

TEST_F(System6Contacts, OfANamelessContactTheSilhouetteIsShownAsItIs) {
    startWithList();
    give(addNamed(std::nullopt, std::nullopt), "");
    ask(List::all);
    EXPECT_TRUE(shows(cell_, test::kBlue));
}

}  // namespace
