// Contacts rows for which somebody flips a switch while the host is asked for the photo.
#include "tests/unit/hooks/contacts_list_test.h"

// Turns a setting while it is asked for its thumbnail.
@interface FlippingPerson : TestPerson {
  @public
    NSString* flip;
    BOOL to;
}
@end
@implementation FlippingPerson
- (NSData*)preferredPhotoThumbnail {
    [[SettingsClass sharedSettings] setValue:@(to) forKey:flip];
    return [super preferredPhotoThumbnail];
}
@end

namespace {

using test::ContactsList;
using test::kYellow;
using test::List;

class FlippedContacts : public ContactsList {
  protected:
    // A row of a contact without photo, in whose middle the setting becomes `to`.
    void askFlipping(List list, NSString* setting, BOOL to) {
        FlippingPerson* person = [[FlippingPerson alloc] init];
        person->identifier = addNamed("Ann", "Lee");
        person->flip = setting;
        person->to = to;
        person_ = person;
        forget();
        ask(list);
        ASSERT_EQ(happened(), "photo-asked ");
    }
};

TEST_F(FlippedContacts, MonogramsSwitchedOffMeanwhileGiveTheRecentPicture) {
    startWithList();
    for (const List list : {List::all, List::found})
        for (NSString* setting in @[ @"isMonogramEnabled", @"isZelkaCBEnabled" ]) {
            SCOPED_TRACE([setting UTF8String]);
            [settings() loadSettings];
            askFlipping(list, setting, NO);
            EXPECT_TRUE(shows(cell_, kYellow));
            EXPECT_EQ([Utils getContactImageInCache:person_->identifier], [picture() image]);
        }
    EXPECT_EQ(loggedLines("Monograms turned off..."), 2);
    EXPECT_EQ(log().find("Monograms turned on"), std::string::npos);
}

TEST_F(FlippedContacts, MonogramsSwitchedOnMeanwhileGiveTheMonogram) {
    startWithList();
    for (const List list : {List::all, List::found}) {
        [settings() setIsMonogramEnabled:NO];
        askFlipping(list, @"isMonogramEnabled", YES);
        EXPECT_TRUE(isMonogramOf(@"AL", [picture() image]));
    }
    EXPECT_EQ(loggedLines("Monograms turned on, monogramText: AL"), 1);
    EXPECT_EQ(log().find("Monograms turned off"), std::string::npos);
}

}  // namespace
