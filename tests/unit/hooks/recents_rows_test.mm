// Rows of cells, calls and names that differ a little from the usual ones.
#include "tests/support/property_list.h"
#include "tests/unit/hooks/recents_test.h"

// CallBar's cell by descent.
@interface DescendedCell : CallBarTableViewTransparentCell
@end
@implementation DescendedCell
@end

namespace {

using test::frameOf;
using test::kGreen;
using test::kRed;
using test::kYellow;
using test::RecentsList;

TEST_F(RecentsList, ACellOfADescendedClassGetsItsPictureToo) {
    startWithList();
    controller_->cell = [[DescendedCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"];
    showRow(uidCall(addWithPhoto(kRed)));
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
}

TEST_F(RecentsList, EveryRequestPutsThePictureViewBackInItsPlace) {
    startWithList();
    showRow(uidCall(addWithPhoto(kRed)));
    [picture() setFrame:CGRectMake(100, 20, 10, 10)];
    ask();
    EXPECT_EQ(frameOf(picture()), "2 2 40 40");
    settle();
}

TEST_F(RecentsList, OfSeveralCallsTheFirstCounts) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    show(@[ @{@"calls" : @[ uidCall(bob), uidCall(ann) ], @"address" : @"none"} ]);
    ask();
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, ACallerWithoutNameHasNoInitialsThoughTheAddressBookKnowsThem) {
    startWithList();
    replaceBundlePicture("user_monogram_round", kYellow);
    const int ann = addNamed("Ann", "Lee");
    const int before = test::sqliteCalls().prepared;
    [[Utils queue] setSuspended:YES];
    showRow(namedCall<NamedCall>(ann, nil));
    EXPECT_TRUE(shows(cell(), kYellow));
    EXPECT_EQ(test::sqliteCalls().prepared, before);
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_TRUE(shows(cell(), kYellow));
}

// Only the Contacts list and the generator look at the process.
TEST_F(RecentsList, RowsGetTheirPictureInEveryProcess) {
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabled", true}, {"ZelkaCBEnabledRecents", true}}));
    startWithList("com.apple.mobilephone");
    showRow(uidCall(addWithPhoto(kRed)));
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
}

}  // namespace
