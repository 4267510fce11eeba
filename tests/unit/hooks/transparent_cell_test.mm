#include "tests/unit/hooks/transparent_cell_test.h"

// A label of a class that is neither the name's nor the date's.
@interface FancyLabel : UILabel
@end
@implementation FancyLabel
@end

// Makes a cell that answers another one in its own place.
@interface OtherAnswer : UITableViewCell
@end
static UITableViewCell* otherCell;
@implementation OtherAnswer
- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString*)reuseIdentifier {
    [hostEvents() appendFormat:@"init(%d, %@) ", (int)style, reuseIdentifier];
    [super initWithStyle:style reuseIdentifier:reuseIdentifier];
    return (id)otherCell;
}
@end

namespace {

using test::frameOf;
using test::kDetailTag;
using test::kNameTag;
using test::RightToLeft;
using test::TransparentCell;

struct System7 : TransparentCell {
    System7() : TransparentCell("iphone5s-7.1") {}
};
struct System6 : TransparentCell {
    System6() : TransparentCell("iphone4s-6.1") {}
};
using System8 = TransparentCell;

TEST_F(TransparentCell, IsMadeWithAPictureViewInItsContentView) {
    boot();
    makeCell();
    UIImageView* picture = pictureOf(cell_);
    ASSERT_NE(picture, nil);
    EXPECT_TRUE([picture isKindOfClass:[UIImageView class]]);
    EXPECT_EQ([picture superview], [cell_ contentView]);
    EXPECT_EQ(frameOf(picture), "2 2 40 40");
    EXPECT_EQ([picture image], nil);
    EXPECT_EQ(test::text([cell_ reuseIdentifier]), "row");
}

TEST_F(TransparentCell, WhoWasAskedToInitialiseGetsThePictureViewAndTheHostsAnswerIsReturned) {
    bootPhone("com.apple.springboard");
    const SEL init = @selector(initWithStyle:reuseIdentifier:);
    method_setImplementation(class_getInstanceMethod([CallBarTableViewTransparentCell class], init),
                             class_getMethodImplementation([OtherAnswer class], init));
    loadExtension();
    otherCell = [[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil];
    CallBarTableViewTransparentCell* asked = [CallBarTableViewTransparentCell alloc];
    EXPECT_EQ([asked initWithStyle:UITableViewCellStyleSubtitle reuseIdentifier:@"row"], otherCell);
    EXPECT_EQ(happened(), "init(3, row) ");
    EXPECT_EQ(frameOf(pictureOf(asked)), "2 2 40 40");
    EXPECT_EQ(pictureOf(otherCell), nil);
}

TEST_F(TransparentCell, IsMadeWithoutPictureViewWhileTheFeatureIsOff) {
    boot();
    [settings() setIsZelkaCBEnabled:NO];
    makeCell();
    EXPECT_EQ(pictureOf(cell_), nil);
}

TEST_F(TransparentCell, IsMadeWithAPictureViewWhileOnlyRecentsAreOff) {
    boot();
    [settings() setIsShowPicturesOnRecents:NO];
    makeCell();
    EXPECT_NE(pictureOf(cell_), nil);
}

TEST_F(TransparentCell, InitializeIsAnInstanceMethodThatMakesThePictureView) {
    boot();
    makeCell();
    [pictureOf(cell_) removeFromSuperview];
    [(id)cell_ initialize];
    EXPECT_EQ(frameOf(pictureOf(cell_)), "2 2 40 40");
    Method method = class_getInstanceMethod([CallBarTableViewTransparentCell class], @selector(initialize));
    EXPECT_STREQ(method_getTypeEncoding(method), "v@:");
}

TEST_F(TransparentCell, TheHostLaysOutFirstWhateverTheSettings) {
    boot();
    makeCell();
    for (const BOOL on : {YES, NO}) {
        [settings() setIsZelkaCBEnabled:on];
        forget();
        layOut();
        EXPECT_EQ(happened(), "layout ");
    }
}

TEST_F(TransparentCell, PictureStandsInTheMiddleOfTheRow) {
    boot();
    makeCell(60);
    layOut();
    EXPECT_EQ(frameOf(pictureOf(cell_)), "2 10 40 40");
}

TEST_F(TransparentCell, LeftToRightThePictureStandsAtTwoEvenWhileEditing) {
    boot();
    makeCell();
    [cell_ setEditing:YES animated:NO];
    layOut();
    EXPECT_EQ(frameOf(pictureOf(cell_)), "2 4 40 40");
}

TEST_F(TransparentCell, APictureOfAnotherSizeKeepsItsSize) {
    boot();
    makeCell(60);
    [pictureOf(cell_) setFrame:CGRectMake(0, 0, 30, 20)];
    layOut();
    EXPECT_EQ(frameOf(pictureOf(cell_)), "2 20 30 20");
}

TEST_F(TransparentCell, SwitchedOffThePictureKeepsItsLastFrameAndTheLabelsTheHosts) {
    boot();
    makeCell();
    [pictureOf(cell_) setFrame:CGRectMake(7, 8, 40, 40)];
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* detail = label(cell_, @"mobile", CGRectMake(15, 30, 80, 16));
    for (NSString* key in @[ @"isShowPicturesOnRecents", @"isZelkaCBEnabled" ]) {
        [settings() loadSettings];
        [settings() setValue:@(NO) forKey:key];
        layOut();
        EXPECT_EQ(frameOf(pictureOf(cell_)), "7 8 40 40") << [key UTF8String];
        EXPECT_EQ(frameOf(name), "15 5 100 20") << [key UTF8String];
        EXPECT_EQ([name tag], 0) << [key UTF8String];
        EXPECT_EQ(frameOf(detail), "15 30 80 16") << [key UTF8String];
        EXPECT_EQ([detail tag], 0) << [key UTF8String];
    }
}

TEST_F(RightToLeft, PictureStandsBeforeTheAccessory) {
    start(false);
    EXPECT_EQ(frameOf(pictureOf(cell_)), "252 4 40 40");
}

TEST_F(RightToLeft, WhileEditingThePictureStandsFurtherAway) {
    start(true);
    EXPECT_EQ(frameOf(pictureOf(cell_)), "230 4 40 40");
}

TEST_F(RightToLeft, WithoutAccessoryItCountsAsStandingAtZero) {
    root.setDevice("iphone6-8.4", true);
    boot();
    UIApplicationStart(nil, nil);
    makeCell();
    [cell_ setAccessoryType:UITableViewCellAccessoryNone];
    layOut();
    EXPECT_EQ(frameOf(pictureOf(cell_)), "-48 4 40 40");
}

TEST_F(System6, OnlyThePictureMoves) {
    boot();
    makeCell(60);
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20));
    UILabel* detail = label(cell_, @"mobile", CGRectMake(15, 27, 60, 16));
    UIImageView* icon = [[[UIImageView alloc] initWithFrame:CGRectMake(90, 30, 12, 10)] autorelease];
    [[cell_ contentView] addSubview:icon];
    layOut();
    EXPECT_EQ(frameOf(pictureOf(cell_)), "2 10 40 40");
    EXPECT_EQ(frameOf(name), "15 5 100 20");
    EXPECT_EQ(frameOf(detail), "15 27 60 16");
    EXPECT_EQ(frameOf(icon), "90 30 12 10");
}

TEST_F(System8, OnlyAnExactTableLabelIsTheName) {
    boot();
    makeCell();
    UILabel* plain = label([cell_ contentView], @"plain", CGRectMake(15, 5, 100, 20));
    UILabel* fancy = label([cell_ contentView], @"fancy", CGRectMake(15, 5, 100, 20), [FancyLabel class]);
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* second = label([cell_ contentView], @"Bob", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    layOut();
    EXPECT_EQ(frameOf(name), "52 5 100 20");
    EXPECT_EQ([name tag], kNameTag);
    for (UILabel* other in @[ plain, fancy, second ]) {
        EXPECT_EQ(frameOf(other), "15 5 100 20");
        EXPECT_EQ([other tag], 0);
    }
}

TEST_F(System7, OnlyAnExactPlainLabelIsTheName) {
    boot();
    makeCell();
    UILabel* table = label([cell_ contentView], @"table", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20));
    layOut();
    EXPECT_EQ(frameOf(name), "52 5 100 20");
    EXPECT_EQ([name tag], kNameTag);
    EXPECT_EQ(frameOf(table), "15 5 100 20");
}

TEST_F(System8, ALabelWithoutTextIsNotTheNameButAnEmptyTextIsOne) {
    boot();
    makeCell();
    UILabel* none = label([cell_ contentView], nil, CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* empty = label([cell_ contentView], @"", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    layOut();
    EXPECT_EQ([none tag], 0);
    EXPECT_EQ([empty tag], kNameTag);
}

TEST_F(System8, ATagStaysWhereNothingMatchesAnyMore) {
    boot();
    makeCell();
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 250, 20), [UITableViewLabel class]);
    UIDateLabel* date = addLabel<UIDateLabel>(cell_, @"6/9/15", CGRectMake(240, 10, 60, 20), [UIDateLabel class]);
    layOut();
    EXPECT_EQ(frameOf(name), "52 5 188 20");
    [name setText:nil];
    [name setFrame:CGRectMake(15, 5, 250, 20)];
    layOut();
    EXPECT_EQ([name tag], kNameTag);
    // Not placed anew, but still clipped.
    EXPECT_EQ(frameOf(name), "15 5 225 20");
    EXPECT_EQ(frameOf(date), "240 10 60 20");
}

TEST_F(System8, TheDateClipsTheName) {
    boot();
    makeCell();
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 250, 20), [UITableViewLabel class]);
    addLabel<UIDateLabel>(cell_, @"6/9/15", CGRectMake(240, 10, 60, 20), [UIDateLabel class]);
    layOut();
    EXPECT_EQ(frameOf(name), "52 5 188 20");
}

TEST_F(System8, ANameThatEndsBeforeTheDateKeepsItsWidth) {
    boot();
    makeCell();
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    addLabel<UIDateLabel>(cell_, @"6/9/15", CGRectMake(240, 10, 60, 20), [UIDateLabel class]);
    layOut();
    EXPECT_EQ(frameOf(name), "52 5 100 20");
}

TEST_F(System8, ANameThatEndsAtTheDateKeepsItsWidth) {
    boot();
    makeCell();
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 188, 20), [UITableViewLabel class]);
    addLabel<UIDateLabel>(cell_, @"6/9/15", CGRectMake(240, 10, 60, 20), [UIDateLabel class]);
    layOut();
    EXPECT_EQ(frameOf(name), "52 5 188 20");
}

TEST_F(System8, ADateLabelIsNeverTheDetail) {
    boot();
    makeCell();
    UIDateLabel* date = addLabel<UIDateLabel>(cell_, @"6/9/15", CGRectMake(240, 10, 60, 20), [UIDateLabel class]);
    layOut();
    EXPECT_EQ([date tag], 0);
    EXPECT_EQ(frameOf(date), "240 10 60 20");
}

TEST_F(System8, EveryLabelBesideTheContentIsADetailUnderTheName) {
    boot();
    makeCell();
    label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* first = label(cell_, @"mobile", CGRectMake(15, 30, 200, 16));
    UILabel* second = label(cell_, @"(2)", CGRectMake(15, 30, 1, 1), [FancyLabel class]);
    UILabel* textless = label(cell_, nil, CGRectMake(15, 30, 200, 16));
    const CGSize fits = [first sizeThatFits:CGSizeMake(0, 0)];
    layOut();
    EXPECT_EQ([first tag], kDetailTag);
    EXPECT_EQ([second tag], kDetailTag);
    EXPECT_EQ([textless tag], 0);
    EXPECT_EQ([first frame].origin.x, 52);
    EXPECT_EQ([first frame].origin.y, 27);
    EXPECT_EQ([first frame].size.width, fits.width);
    EXPECT_EQ([first frame].size.height, fits.height);
    EXPECT_EQ([second frame].origin.x, 52);
    EXPECT_EQ([second frame].origin.y, 27);
    EXPECT_EQ(frameOf(textless), "15 30 200 16");
}

TEST_F(System8, ALabelInTheContentViewIsNoDetail) {
    boot();
    makeCell();
    UILabel* inside = label([cell_ contentView], @"mobile", CGRectMake(15, 30, 80, 16));
    layOut();
    EXPECT_EQ([inside tag], 0);
}

TEST_F(System7, TheDetailStandsInTheScrollingViewBetween) {
    boot();
    makeCell();
    UIView* between = [[cell_ contentView] superview];
    ASSERT_NE(between, cell_);
    label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20));
    UILabel* detail = label(between, @"mobile", CGRectMake(15, 30, 80, 16));
    UILabel* outside = label(cell_, @"mobile", CGRectMake(15, 30, 80, 16));
    layOut();
    EXPECT_EQ([detail tag], kDetailTag);
    EXPECT_EQ([detail frame].origin.x, 52);
    EXPECT_EQ([detail frame].origin.y, 27);
    EXPECT_EQ([outside tag], 0);
}

TEST_F(System8, TheIconFollowsTheDetail) {
    boot();
    makeCell();
    label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UILabel* detail = label(cell_, @"mobile", CGRectMake(15, 30, 80, 16));
    NSMutableDictionary* icons = [NSMutableDictionary dictionary];
    for (const int tag : {0, -4, 1, 77}) {
        UIImageView* icon = [[[UIImageView alloc] initWithFrame:CGRectMake(200, 30, 12, 10)] autorelease];
        [icon setTag:tag];
        [[cell_ contentView] addSubview:icon];
        [icons setObject:icon forKey:[NSNumber numberWithInt:tag]];
    }
    layOut();
    const CGFloat x = CGRectGetMaxX([detail frame]) + 5;
    for (const int tag : {0, -4}) {
        const CGRect frame = [[icons objectForKey:[NSNumber numberWithInt:tag]] frame];
        EXPECT_EQ(frame.origin.x, x);
        EXPECT_EQ(frame.origin.y, 31);
        EXPECT_EQ(frame.size.width, 12);
        EXPECT_EQ(frame.size.height, 10);
    }
    for (const int tag : {1, 77}) EXPECT_EQ(frameOf([icons objectForKey:[NSNumber numberWithInt:tag]]), "200 30 12 10");
    EXPECT_EQ(frameOf(pictureOf(cell_)), "2 4 40 40");
}

TEST_F(System8, WithoutPictureViewAndLabelsThingsArePlacedAsIfTheyWereEmpty) {
    boot();
    makeCell();
    [pictureOf(cell_) removeFromSuperview];
    UILabel* name = label([cell_ contentView], @"Ann", CGRectMake(15, 5, 100, 20), [UITableViewLabel class]);
    UIImageView* icon = [[[UIImageView alloc] initWithFrame:CGRectMake(200, 30, 12, 10)] autorelease];
    [[cell_ contentView] addSubview:icon];
    layOut();
    EXPECT_EQ(frameOf(name), "10 5 100 20");
    EXPECT_EQ(frameOf(icon), "5 4 12 10");
    EXPECT_EQ(pictureOf(cell_), nil);
}

}  // namespace
