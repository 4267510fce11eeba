#include "tests/simulator/uikit/phone_test.h"

@interface PassCounter : UIView {
  @public
    int passes;
}
@end
@implementation PassCounter
- (void)layoutSubviews {
    [super layoutSubviews];
    ++passes;
}
@end

namespace {

UIView* view(NSInteger tag, UIView* superview) {
    UIView* result = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
    [result setTag:tag];
    [superview addSubview:result];
    return result;
}

using ViewTest = PhoneTest;

TEST_F(ViewTest, ATagIsSoughtDepthFirstFromTheReceiver) {
    start("iphone6-8.4");
    UIView* top = view(1, nil);
    UIView* first = view(2, top);
    UIView* deep = view(7, first);
    UIView* second = view(7, top);
    EXPECT_EQ([top viewWithTag:7], deep);
    EXPECT_EQ([top viewWithTag:1], top);
    EXPECT_EQ([second viewWithTag:7], second);
    EXPECT_EQ([top viewWithTag:9], nil);
}

TEST_F(ViewTest, FrameBoundsAndCentreAgree) {
    start("iphone6-8.4");
    UIView* top = view(0, nil);
    [top setFrame:CGRectMake(2, 10, 40, 60)];
    EXPECT_EQ([top bounds], CGRectMake(0, 0, 40, 60));
    EXPECT_EQ([top center].x, 22);
    EXPECT_EQ([top center].y, 40);
    [top setBounds:CGRectMake(5, 5, 20, 20)];
    EXPECT_EQ([top frame], CGRectMake(12, 30, 20, 20));
    [top setCenter:CGPointMake(10, 10)];
    EXPECT_EQ([top frame], CGRectMake(0, 0, 20, 20));
    EXPECT_EQ([top bounds], CGRectMake(5, 5, 20, 20));
}

TEST_F(ViewTest, SubviewsKeepTheirOrderAndLayersFollow) {
    start("iphone6-8.4");
    UIView* top = view(0, nil);
    UIView* a = view(1, top);
    UIView* b = view(2, top);
    UIView* c = view(3, top);
    [top bringSubviewToFront:a];
    EXPECT_TRUE(([[top subviews] isEqual:@[ b, c, a ]]));
    [top insertSubview:a belowSubview:c];
    EXPECT_TRUE(([[top subviews] isEqual:@[ b, a, c ]]));
    [top insertSubview:b aboveSubview:a];
    EXPECT_TRUE(([[top subviews] isEqual:@[ a, b, c ]]));
    EXPECT_TRUE(([[[top layer] sublayers] isEqual:@[ [a layer], [b layer], [c layer] ]]));
    [b removeFromSuperview];
    EXPECT_EQ([b superview], nil);
    EXPECT_TRUE(([[[top layer] sublayers] isEqual:@[ [a layer], [c layer] ]]));
    EXPECT_TRUE(raises([&] { [a addSubview:top]; }));
}

TEST_F(ViewTest, AViewMovesBetweenSuperviewsAndIsOwnedByTheLast) {
    start("iphone6-8.4");
    UIView* one = view(0, nil);
    UIView* two = view(0, nil);
    UIView* child = [[UIView alloc] init];
    const NSUInteger own = [child retainCount];
    [one addSubview:child];
    [two addSubview:child];
    EXPECT_EQ([[one subviews] count], 0u);
    EXPECT_EQ([child superview], two);
    [child removeFromSuperview];
    EXPECT_EQ([child retainCount], own);
    [child release];
}

TEST_F(ViewTest, OnePassLaysOutWhatAskedOnce) {
    start("iphone6-8.4");
    PassCounter* top = [[[PassCounter alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
    PassCounter* child = [[[PassCounter alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
    [top addSubview:child];
    [top layoutIfNeeded];
    [top layoutIfNeeded];
    EXPECT_EQ(top->passes, 1);
    EXPECT_EQ(child->passes, 1);
    [child setFrame:CGRectMake(5, 5, 10, 10)];
    [top layoutIfNeeded];
    EXPECT_EQ(child->passes, 1) << "moving is no reason";
    [child setFrame:CGRectMake(5, 5, 20, 10)];
    [top layoutIfNeeded];
    EXPECT_EQ(child->passes, 2);
    EXPECT_EQ(top->passes, 1);
}

TEST_F(ViewTest, AWindowIsLaidOutByTheRunLoop) {
    start("iphone6-8.4");
    UIWindow* window = [[[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]] autorelease];
    PassCounter* child = [[[PassCounter alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
    [window addSubview:child];
    EXPECT_EQ(child->passes, 0);
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(child->passes, 1);
    [child setNeedsLayout];
    [child setNeedsLayout];
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ(child->passes, 2);
}

TEST_F(ViewTest, PointsAreConvertedThroughScrolledViews) {
    start("iphone6-8.4");
    UIView* top = view(0, nil);
    UIScrollView* scroll = [[[UIScrollView alloc] initWithFrame:CGRectMake(10, 20, 100, 100)] autorelease];
    [top addSubview:scroll];
    UIView* inner = view(0, scroll);
    [inner setFrame:CGRectMake(0, 300, 50, 50)];
    [scroll setContentOffset:CGPointMake(0, 250)];
    const CGPoint shown = [inner convertPoint:CGPointMake(1, 2) toView:top];
    EXPECT_EQ(shown.x, 11);
    EXPECT_EQ(shown.y, 72);
    EXPECT_EQ([top convertRect:CGRectMake(0, 0, 5, 5) fromView:inner], CGRectMake(10, 70, 5, 5));
}

TEST_F(ViewTest, FlexibleEdgesShareAChangeOfSize) {
    start("iphone6-8.4");
    UIView* top = view(0, nil);
    [top setFrame:CGRectMake(0, 0, 100, 100)];
    UIView* filling = view(0, top);
    [filling setFrame:CGRectMake(10, 10, 80, 20)];
    [filling setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleTopMargin];
    [top setFrame:CGRectMake(0, 0, 150, 120)];
    EXPECT_EQ([filling frame], CGRectMake(10, 30, 130, 20));
}

// On another thread, as the library's queue would.
void changeElsewhere(UIView* view) {
    NSThread* thread = [[NSThread alloc] initWithTarget:view selector:@selector(setNeedsLayout) object:nil];
    [thread start];
    while (![thread isFinished]) usleep(1000);
}

TEST_F(ViewTest, AViewOfTheMainThreadMustNotBeChangedElsewhere) {
    start("iphone6-8.4");
    UIImageView* picture = [[[UIImageView alloc] initWithFrame:CGRectZero] autorelease];
    EXPECT_DEATH(changeElsewhere(picture), "UIImageView setNeedsLayout\\] must be used from the main thread only");
}

// What a queue's task kept alive may go away on the queue's thread.
TEST_F(ViewTest, AnyThreadMayDropTheLastReference) {
    start("iphone6-8.4");
    UIView* top = [[UIView alloc] initWithFrame:CGRectZero];
    UIView* child = view(1, top);
    NSMutableArray* task = [NSMutableArray arrayWithObject:top];
    [top release];
    NSThread* thread = [[NSThread alloc] initWithTarget:task selector:@selector(removeAllObjects) object:nil];
    [thread start];
    while (![thread isFinished]) usleep(1000);
    [thread release];
    EXPECT_EQ([child superview], nil);
    UIView* other = view(2, nil);
    [other addSubview:child];
    EXPECT_EQ([[child layer] superlayer], [other layer]);
}

TEST_F(ViewTest, ALabelCentresItsLineVertically) {
    start("iphone6-8.4");
    UILabel* label = [[[UILabel alloc] initWithFrame:CGRectMake(0, 0, 40, 100)] autorelease];
    [label setText:@"HH"];
    [label setTextAlignment:NSTextAlignmentRight];
    UIImage* image = UISnapshotOfView(label);
    int top = 200, bottom = 0, left = 80, right = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 80; ++x) {
            if (phone::pixelAt([image CGImage], x, y)->r > 128) continue;
            top = std::min(top, y);
            bottom = std::max(bottom, y);
            left = std::min(left, x);
            right = std::max(right, x);
        }
    }
    EXPECT_NEAR((top + bottom) / 2, 100, 4);
    EXPECT_GT(left, 20);
    EXPECT_GT(right, 74);
}

TEST_F(ViewTest, LabelsTakeTheSizeOfTheirText) {
    start("iphone6-8.4");
    UILabel* label = [[[UILabel alloc] initWithFrame:CGRectMake(7, 9, 5, 5)] autorelease];
    [label setText:@"Ada Lovelace"];
    [label sizeToFit];
    const CGSize text = [@"Ada Lovelace" sizeWithFont:[UIFont systemFontOfSize:17]];
    EXPECT_EQ([label frame], CGRectMake(7, 9, text.width, text.height));
    EXPECT_GT(text.width, 80);
    [label setText:nil];
    [label sizeToFit];
    EXPECT_EQ([label frame], CGRectMake(7, 9, 0, 0));
}

TEST_F(ViewTest, ALabelOfSeveralLinesBreaksAtItsWidth) {
    start("iphone6-8.4");
    UILabel* label = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
    [label setText:@"one two three four five six seven"];
    const CGFloat line = [label sizeThatFits:CGSizeMake(90, 0)].height;
    [label setNumberOfLines:0];
    const CGSize broken = [label sizeThatFits:CGSizeMake(90, 0)];
    EXPECT_GE(broken.height, 3 * line);
    EXPECT_LE(broken.width, 90);
    [label setNumberOfLines:2];
    EXPECT_LT([label sizeThatFits:CGSizeMake(90, 0)].height, broken.height);
}

TEST_F(ViewTest, ButtonsSendTheirActionsAndRememberSelection) {
    start("iphone6-8.4");
    UIButton* button = [UIButton buttonWithType:UIButtonTypeSystem];
    [button setTitle:@"Recents" forState:UIControlStateNormal];
    [button setTitle:@"Chosen" forState:UIControlStateSelected];
    EXPECT_TRUE([[button titleForState:UIControlStateHighlighted] isEqual:@"Recents"]);
    NSMutableArray* seen = [NSMutableArray array];
    [button addTarget:seen action:@selector(addObject:) forControlEvents:UIControlEventTouchUpInside];
    [button sendActionsForControlEvents:UIControlEventValueChanged];
    EXPECT_EQ([seen count], 0u);
    [button sendActionsForControlEvents:UIControlEventTouchUpInside];
    EXPECT_EQ([seen lastObject], button);
    [button setSelected:YES];
    [button setFrame:CGRectMake(0, 0, 100, 30)];
    [button layoutIfNeeded];
    EXPECT_TRUE([[[button titleLabel] text] isEqual:@"Chosen"]);
    [button removeTarget:seen action:NULL forControlEvents:UIControlEventAllEvents];
    [seen removeAllObjects];
    [button sendActionsForControlEvents:UIControlEventTouchUpInside];
    EXPECT_EQ([seen count], 0u);
}

}  // namespace
