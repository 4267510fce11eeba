// The host's labels and icon where a row is read from the right, or has several details.
#include "tests/support/property_list.h"
#include "tests/unit/hooks/transparent_cell_test.h"

// By descent from the host's: a date, and an icon.
@interface LongDateLabel : UIDateLabel
@end
@implementation LongDateLabel
@end
@interface FancyIcon : UIImageView
@end
@implementation FancyIcon
@end

namespace {

using test::frameOf;
using test::kDetailTag;
using test::kNameTag;
using test::RightToLeft;
using test::TransparentCell;

UIImageView* addIcon(UITableViewCell* cell) {
    UIImageView* icon = [[[UIImageView alloc] initWithFrame:CGRectMake(200, 30, 12, 10)] autorelease];
    [[cell contentView] addSubview:icon];
    return icon;
}

TEST_F(RightToLeft, TheLabelsFollowThePictureAsTheyDoElsewhere) {
    start(false);
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* detail = label(cell_, @"mobile", CGRectMake(15, 30, 80, 16));
    addLabel<UIDateLabel>(cell_, @"6/9/15", CGRectMake(340, 10, 30, 20), [UIDateLabel class]);
    UIImageView* icon = addIcon(cell_);
    layOut();
    ASSERT_EQ(frameOf(pictureOf(cell_)), "252 4 40 40");
    // 10 points behind the picture, as far as the date.
    EXPECT_EQ(frameOf(name), "302 5 38 20");
    EXPECT_EQ([name tag], kNameTag);
    EXPECT_EQ([detail frame].origin.x, 302);
    EXPECT_EQ([detail frame].origin.y, 27);
    EXPECT_EQ([detail tag], kDetailTag);
    EXPECT_EQ([icon frame].origin.x, CGRectGetMaxX([detail frame]) + 5);
    EXPECT_EQ([icon frame].origin.y, 31);
}

TEST_F(RightToLeft, WhileEditingTheLabelsFollowThePictureToo) {
    start(true);
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* detail = label(cell_, @"mobile", CGRectMake(15, 30, 80, 16));
    layOut();
    ASSERT_EQ(frameOf(pictureOf(cell_)), "230 4 40 40");
    EXPECT_EQ(frameOf(name), "280 5 100 20");
    EXPECT_EQ([detail frame].origin.x, 280);
}

TEST_F(TransparentCell, TheIconFollowsTheFirstOfSeveralDetails) {
    boot();
    makeCell();
    label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* first = label(cell_, @"mobile", CGRectMake(15, 30, 80, 16));
    UILabel* second = label(cell_, @"a detail that is much longer", CGRectMake(15, 30, 80, 16));
    UIImageView* icon = addIcon(cell_);
    layOut();
    ASSERT_EQ([first tag], kDetailTag);
    ASSERT_EQ([second tag], kDetailTag);
    ASSERT_NE(CGRectGetMaxX([first frame]), CGRectGetMaxX([second frame]));
    EXPECT_EQ([icon frame].origin.x, CGRectGetMaxX([first frame]) + 5);
}

TEST_F(TransparentCell, OnlyAnExactDateLabelIsTheDate) {
    boot();
    makeCell();
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 250, 20), [UITableViewLabel class]);
    UILabel* date = label(cell_, @"6/9/15", CGRectMake(240, 10, 60, 20), [LongDateLabel class]);
    layOut();
    EXPECT_EQ(frameOf(name), "52 5 250 20");
    EXPECT_EQ([date tag], kDetailTag);
    EXPECT_EQ([date frame].origin.x, 52);
}

TEST_F(TransparentCell, EveryKindOfImageViewIsAnIcon) {
    boot();
    makeCell();
    UILabel* detail = label(cell_, @"mobile", CGRectMake(15, 30, 80, 16));
    FancyIcon* fancy = [[[FancyIcon alloc] initWithFrame:CGRectMake(200, 30, 12, 10)] autorelease];
    [[cell_ contentView] addSubview:fancy];
    layOut();
    EXPECT_EQ([fancy frame].origin.x, CGRectGetMaxX([detail frame]) + 5);
}

TEST_F(TransparentCell, IsLaidOutInEveryProcess) {
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabled", true}, {"ZelkaCBEnabledRecents", true}}));
    boot("com.apple.mobilephone");
    makeCell(60);
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    layOut();
    EXPECT_EQ(frameOf(pictureOf(cell_)), "2 10 40 40");
    EXPECT_EQ(frameOf(name), "52 5 100 20");
}

}  // namespace
