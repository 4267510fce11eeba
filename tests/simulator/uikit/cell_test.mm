#include "tests/simulator/uikit/phone_test.h"

namespace {

using CellTest = PhoneTest;

UITableViewCell* makeCell(UITableViewCellStyle style, UITableViewCellAccessoryType accessory) {
    UITableViewCell* cell = [[[UITableViewCell alloc] initWithStyle:style reuseIdentifier:@"x"] autorelease];
    [cell setFrame:CGRectMake(0, 0, 320, 60)];
    [[cell textLabel] setText:@"Name"];
    [[cell detailTextLabel] setText:@"mobile"];
    [cell setAccessoryType:accessory];
    [cell layoutIfNeeded];
    return cell;
}

TEST_F(CellTest, System8HasTableLabelsInAContentViewInTheCell) {
    start("iphone6-8.4");
    UITableViewCell* cell = makeCell(UITableViewCellStyleSubtitle, UITableViewCellAccessoryNone);
    EXPECT_TRUE([NSStringFromClass([[cell textLabel] class]) isEqual:@"UITableViewLabel"]);
    EXPECT_TRUE([NSStringFromClass([[cell detailTextLabel] class]) isEqual:@"UITableViewLabel"]);
    EXPECT_EQ([[cell contentView] superview], cell);
    EXPECT_EQ([[cell textLabel] superview], [cell contentView]);
}

TEST_F(CellTest, System7HasPlainLabelsAndAScrollViewBetween) {
    start("iphone5s-7.1");
    UITableViewCell* cell = makeCell(UITableViewCellStyleSubtitle, UITableViewCellAccessoryDetailButton);
    EXPECT_TRUE([NSStringFromClass([[cell textLabel] class]) isEqual:@"UILabel"]);
    UIView* between = [[cell contentView] superview];
    EXPECT_TRUE([NSStringFromClass([between class]) isEqual:@"UITableViewCellScrollView"]);
    EXPECT_EQ([between superview], cell);
    EXPECT_EQ([[cell _defaultAccessoryView] superview], between);
    EXPECT_EQ([between frame], [cell bounds]);
}

TEST_F(CellTest, System6HasPlainLabelsInAContentViewInTheCell) {
    start("iphone4s-6.1");
    UITableViewCell* cell = makeCell(UITableViewCellStyleDefault, UITableViewCellAccessoryNone);
    EXPECT_TRUE([NSStringFromClass([[cell textLabel] class]) isEqual:@"UILabel"]);
    EXPECT_EQ([[cell contentView] superview], cell);
}

TEST_F(CellTest, DateLabelsAreTheirOwnClass) {
    start("iphone6-8.4");
    UIDateLabel* label = [[[UIDateLabel alloc] initWithFrame:CGRectZero] autorelease];
    EXPECT_TRUE([NSStringFromClass([label class]) isEqual:@"UIDateLabel"]);
    EXPECT_TRUE([label isKindOfClass:[UILabel class]]);
    [label setDate:[NSDate date]];
    EXPECT_THAT([[label text] UTF8String], testing::ContainsRegex("^[0-9]+:[0-9][0-9] [AP]M$"));
    [label setDate:[NSDate dateWithTimeIntervalSince1970:86400 * 365]];
    EXPECT_THAT([[label text] UTF8String], testing::ContainsRegex("^[0-9]+/[0-9]+/7[01]$"));
    [label setDate:[NSDate dateWithTimeIntervalSinceNow:-86400]];
    EXPECT_TRUE([[label text] isEqual:@"Yesterday"]);
    [label setDate:nil];
    EXPECT_EQ([label text], nil);
}

TEST_F(CellTest, PartsAreMadeWhenAskedFor) {
    start("iphone6-8.4");
    UITableViewCell* cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                    reuseIdentifier:nil] autorelease];
    EXPECT_EQ([[[cell contentView] subviews] count], 0u);
    EXPECT_EQ([cell detailTextLabel], nil);
    EXPECT_EQ([cell _defaultAccessoryView], nil);
    EXPECT_EQ([[cell imageView] superview], [cell contentView]);
    EXPECT_EQ([cell imageView], [cell imageView]);
}

TEST_F(CellTest, AnAccessoryTakesTheTrailingEndAndLeavesWhenEditing) {
    start("iphone6-8.4");
    UITableViewCell* cell = makeCell(UITableViewCellStyleDefault, UITableViewCellAccessoryDetailButton);
    EXPECT_EQ([[cell _defaultAccessoryView] frame], CGRectMake(283, 19, 22, 22));
    EXPECT_EQ([[cell contentView] frame], CGRectMake(0, 0, 283, 60));
    EXPECT_EQ([[cell textLabel] frame], CGRectMake(15, 0, 260, 60));
    [cell setEditing:YES animated:NO];
    [cell layoutIfNeeded];
    EXPECT_EQ([[cell _defaultAccessoryView] frame].origin.x, 320);
}

TEST_F(CellTest, SubtitlesStandUnderTheName) {
    start("iphone6-8.4");
    UITableViewCell* cell = makeCell(UITableViewCellStyleSubtitle, UITableViewCellAccessoryNone);
    const CGRect name = [[cell textLabel] frame];
    const CGRect detail = [[cell detailTextLabel] frame];
    EXPECT_EQ(name.origin.x, 15);
    EXPECT_EQ(detail.origin.x, 15);
    EXPECT_EQ(CGRectGetMaxY(name), detail.origin.y);
    EXPECT_NEAR(name.origin.y, 60 - CGRectGetMaxY(detail), 1);
    EXPECT_EQ(name.size.width, [[cell textLabel] sizeThatFits:CGSizeZero].width);
}

TEST_F(CellTest, ValuesStandAtTheTrailingEnd) {
    start("iphone6-8.4");
    UITableViewCell* cell = makeCell(UITableViewCellStyleValue1, UITableViewCellAccessoryNone);
    EXPECT_EQ(CGRectGetMaxX([[cell detailTextLabel] frame]), 305);
    [[cell textLabel] setText:@"A name that is much longer than the row has room for beside its value"];
    [cell setNeedsLayout];
    [cell layoutIfNeeded];
    EXPECT_EQ(CGRectGetMaxX([[cell textLabel] frame]), [[cell detailTextLabel] frame].origin.x - 6);
}

TEST_F(CellTest, PicturesMoveTheTexts) {
    start("iphone6-8.4");
    UITableViewCell* cell = makeCell(UITableViewCellStyleDefault, UITableViewCellAccessoryNone);
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(30, 120), NO, 1);
    [[cell imageView] setImage:UIGraphicsGetImageFromCurrentImageContext()];
    UIGraphicsEndImageContext();
    [cell setNeedsLayout];
    [cell layoutIfNeeded];
    EXPECT_EQ([[cell imageView] frame], CGRectMake(15, 0, 15, 60)) << "scaled down to the row";
    EXPECT_EQ([[cell textLabel] frame].origin.x, 45);
}

TEST_F(CellTest, FromSystem9OnRightToLeftMirrorsTheRow) {
    start("iphone6-9.3", true);
    UITableViewCell* cell = makeCell(UITableViewCellStyleSubtitle, UITableViewCellAccessoryDetailButton);
    EXPECT_EQ([[cell _defaultAccessoryView] frame].origin.x, 15);
    EXPECT_EQ([[cell contentView] frame].origin.x, 37);
    const CGRect name = [[cell textLabel] convertRect:[[cell textLabel] bounds] toView:cell];
    EXPECT_EQ(CGRectGetMaxX(name), 305);
    [cell setEditing:YES animated:NO];
    [cell layoutIfNeeded];
    EXPECT_LT(CGRectGetMaxX([[cell _defaultAccessoryView] frame]), 1);
}

TEST_F(CellTest, BeforeSystem9RightToLeftOnlyTurnsTheTexts) {
    start("iphone6-8.4", true);
    UITableViewCell* cell = makeCell(UITableViewCellStyleSubtitle, UITableViewCellAccessoryDetailButton);
    EXPECT_EQ([[cell _defaultAccessoryView] frame].origin.x, 283);
    EXPECT_EQ([[cell contentView] frame].origin.x, 0);
    EXPECT_EQ(CGRectGetMaxX([[cell textLabel] frame]), 275);
}

}  // namespace
