#include "tests/unit/hooks/contacts_list_test.h"

#include "tests/support/darwin.h"
#include "tests/support/parameter_name.h"
#include "tests/support/property_list.h"

namespace {

using test::ContactsList;
using test::frameOf;
using test::kGreen;
using test::kRed;
using test::kYellow;
using test::List;
using test::System6Contacts;

class EitherList : public ContactsList, public testing::WithParamInterface<List> {};
INSTANTIATE_TEST_SUITE_P(Lists, EitherList, testing::Values(List::all, List::found), test::ParameterName());

TEST_P(EitherList, ShowsThePhotoAtOnceAndKeepsIt) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    EXPECT_EQ(ask(GetParam()), cell_);
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
    EXPECT_EQ([picture() superview], cell_);
    EXPECT_TRUE(shows(cell_, kRed));
    EXPECT_EQ([Utils getContactImageInCache:7], [picture() image]);
    EXPECT_EQ(queued(), 0);
}

TEST_P(EitherList, ShowsTheCachedPictureWithoutAskingThePerson) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    UIImage* cached = test::redPicture(5, 5, 1);
    [Utils setContactImage:cached contactId:7];
    ask(GetParam());
    EXPECT_EQ([picture() image], cached);
    EXPECT_EQ(happened(), "");
}

TEST_P(EitherList, ShowsThePhotoOfThePersonWhoStandsForIt) {
    startWithList();
    person_->identifier = 7;
    person_->photographed = [[TestPerson alloc] init];
    person_->photographed->identifier = 8;
    person_->photographed->thumbnail = [test::data(test::bmp(8, 8, kGreen)) retain];
    ask(GetParam());
    EXPECT_TRUE(shows(cell_, kGreen));
    EXPECT_NE([Utils getContactImageInCache:7], nil);
    EXPECT_EQ([Utils getContactImageInCache:8], nil);
}

TEST_P(EitherList, ARowWithoutContactShowsTheDefaultPicture) {
    startWithList();
    for (const int none : {0, -1}) {
        give(none, test::bmp(8, 8, kRed));
        ask(GetParam());
        EXPECT_TRUE(shows(cell_, test::kBlue)) << none;
    }
    EXPECT_EQ(happened(), "");
}

TEST_P(EitherList, ARowWithoutPersonShowsTheDefaultPicture) {
    startWithList();
    person_ = nil;
    ask(GetParam());
    EXPECT_TRUE(shows(cell_, test::kBlue));
}

TEST_P(EitherList, SwitchedOffThePictureViewLosesItsImageAndLeavesTheCell) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    UIImageView* before = nil;
    for (NSString* key in @[ @"isShowPicturesOnContacts", @"isZelkaCBEnabled" ]) {
        [settings() loadSettings];
        ask(GetParam());
        ASSERT_NE(picture(), nil);
        before = [[picture() retain] autorelease];
        [settings() setValue:@(NO) forKey:key];
        EXPECT_EQ(ask(GetParam()), cell_);
        EXPECT_EQ(picture(), nil);
        EXPECT_EQ([before image], nil);
    }
}

TEST_P(EitherList, ACellThatIsNoMemberCellIsLeftAlone) {
    startWithList();
    table_->handedOut = [[StrangeCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"];
    give(7, test::bmp(8, 8, kRed));
    EXPECT_EQ(ask(GetParam()), table_->handedOut);
    EXPECT_EQ(pictureOf(table_->handedOut), nil);
}

TEST_P(EitherList, TheTableOfAStrangeCellIsRememberedToo) {
    startWithList();
    table_->handedOut = [[StrangeCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"];
    ask(GetParam());
    test::deliver("com.norvex.ZelkaCBContactsEnabledNotification");
    EXPECT_EQ(happened(), "reload ");
}

TEST_P(EitherList, ATableFirstServedWhileThePicturesAreOffIsReloadedWhenTheyComeOn) {
    startWithList();
    [settings() setIsShowPicturesOnContacts:NO];
    ask(GetParam());
    EXPECT_EQ(picture(), nil);
    test::deliver("com.norvex.ZelkaCBContactsEnabledNotification");
    EXPECT_EQ(happened(), "reload ");
}

TEST_P(EitherList, EmptyThumbnailCountsAsNone) {
    startWithList();
    const int ann = addNamed("Ann", "Lee");
    give(ann, "");
    ask(GetParam());
    EXPECT_EQ([[picture() image] size].width, 40);
    EXPECT_EQ([Utils getContactImageInCache:ann], [picture() image]);
    EXPECT_EQ(loggedLines("Monograms turned on, monogramText: AL"), GetParam() == List::all ? 1 : 0);
}

TEST_P(EitherList, ANameOfDoubleQuotesAloneGivesADiscWithoutLetters) {
    startWithList();
    const int quotes = addNamed("\"\"", "\"");
    give(quotes, "");
    ask(GetParam());
    EXPECT_EQ([Utils getContactImageInCache:quotes], [picture() image]);
    EXPECT_EQ([[picture() image] size].width, 40);
    EXPECT_EQ(loggedLines("Monograms turned on, monogramText:  "), GetParam() == List::all ? 1 : 0);
}

TEST_P(EitherList, MonogramsOffThePlaceholderIsShownAndCached) {
    startWithList();
    [settings() setIsMonogramEnabled:NO];
    const int ann = addNamed("Ann", "Lee");
    give(ann, "");
    ask(GetParam());
    EXPECT_TRUE(shows(cell_, kYellow));
    EXPECT_EQ([Utils getContactImageInCache:ann], [picture() image]);
    UIImage* cached = [picture() image];
    // The file's own entry gone, only the contact's leads to this very picture.
    ASSERT_TRUE(
        [Utils removeImageFromCacheForID:@"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent@2x.png"]);
    [cell_ layoutSubviews];
    EXPECT_EQ([picture() image], cached);
    EXPECT_EQ(loggedLines("Monograms turned off..."), GetParam() == List::all ? 1 : 0);
}

TEST_P(EitherList, APhotoThatCannotBeShapedLeavesTheDefaultPicture) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    Method make = class_getClassMethod([UIImage class], @selector(imageWithCGImage:));
    const IMP before = method_setImplementation(
        make, (IMP) + [](id, SEL, CGImageRef) -> id { return nil; });
    ask(GetParam());
    method_setImplementation(make, before);
    EXPECT_TRUE(shows(cell_, test::kBlue));
    EXPECT_EQ([Utils getContactImageInCache:7], nil);
}

TEST_P(EitherList, OutsideTheServedProcessesTheHostIsLeftAlone) {
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabled", true}, {"ZelkaCBEnabledContacts", true}}));
    startWithList("com.apple.mobilephone");
    ASSERT_TRUE([settings() isShowPicturesOnContacts]);
    give(7, test::bmp(8, 8, kRed));
    EXPECT_EQ(ask(GetParam()), cell_);
    EXPECT_EQ(picture(), nil);
    [cell_ layoutSubviews];
    EXPECT_EQ(happened(), "host-layout ");
    EXPECT_EQ(frameOf([cell_ contactNameView]), "5 3 200 38");
}

TEST_F(System6Contacts, SearchResultsGetNoPicturesWhileTheFullListDoes) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    ask(List::found);
    EXPECT_EQ(picture(), nil);
    ask(List::all);
    EXPECT_TRUE(shows(cell_, kRed));
    // And the layout hook keeps out of it.
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf([cell_ contactNameView]), "5 3 200 38");
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
}

TEST_F(System6Contacts, TheTableOfSearchResultsIsRememberedThoughTheyGetNoPictures) {
    startWithList();
    ask(List::found);
    test::deliver("com.norvex.ZelkaCBContactsEnabledNotification");
    EXPECT_EQ(happened(), "reload ");
}

TEST_F(ContactsList, TheFirstTableServedIsRememberedAndReloadedForEver) {
    startWithList();
    NotedTable* first = table_;
    ask(List::found);
    table_ = [[NotedTable alloc] initWithFrame:CGRectMake(0, 0, 375, 480)];
    table_->handedOut = cell_;
    ask(List::all);
    EXPECT_EQ([table_ retainCount], 1u);
    forget();
    [first release];
    test::deliver("com.norvex.ZelkaCBContactsEnabledNotification");
    EXPECT_EQ(happened(), "reload ");
}
}  // namespace
