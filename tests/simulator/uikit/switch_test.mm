#include "tests/simulator/uikit/phone_test.h"

using phone::Pixel;

// Keeps what a control sends.
@interface SwitchListener : NSObject {
  @public
    int changes;
    BOOL last;
}
@end

@implementation SwitchListener
- (void)changed:(UISwitch*)sender {
    ++changes;
    last = [sender isOn];
}
@end

namespace {

using SwitchTest = PhoneTest;

constexpr Pixel kGreen = {76, 217, 100, 255};
constexpr Pixel kWhite = {255, 255, 255, 255};

UISwitch* makeSwitch(BOOL on) {
    UISwitch* made = [[[UISwitch alloc] initWithFrame:CGRectMake(10, 10, 5, 5)] autorelease];
    [made setOn:on];
    return made;
}

TEST_F(SwitchTest, HasItsOwnSize) {
    start("iphone6-8.4");
    UISwitch* made = makeSwitch(NO);
    EXPECT_EQ([made frame], CGRectMake(10, 10, 51, 31));
    [made setFrame:CGRectMake(1, 2, 100, 100)];
    EXPECT_EQ([made frame], CGRectMake(1, 2, 51, 31));
}

TEST_F(SwitchTest, SendsNothingWhenItIsSetAndItsTargetsWhenAFingerFlipsIt) {
    start("iphone6-8.4");
    UISwitch* made = makeSwitch(NO);
    SwitchListener* listener = [[[SwitchListener alloc] init] autorelease];
    [made addTarget:listener action:@selector(changed:) forControlEvents:UIControlEventValueChanged];
    [made setOn:YES animated:YES];
    EXPECT_EQ(listener->changes, 0);
    [made sendActionsForControlEvents:UIControlEventValueChanged];
    EXPECT_EQ(listener->changes, 1);
    EXPECT_TRUE(listener->last);
}

TEST_F(SwitchTest, IsGreenWhenItIsOn) {
    start("iphone6-8.4");
    UIImage* on = UISnapshotOfView(makeSwitch(YES));
    EXPECT_EQ(at(on, 8, 15), kGreen);
    EXPECT_EQ(at(on, 36, 15), kWhite) << "the knob";
    UIImage* off = UISnapshotOfView(makeSwitch(NO));
    EXPECT_EQ(at(off, 15, 15), kWhite);
    EXPECT_EQ(at(off, 40, 15), kWhite);
    EXPECT_EQ(at(off, 33, 0.5), (Pixel{229, 229, 229, 255})) << "the rim";
}

TEST_F(SwitchTest, IsMirroredFromSystem9On) {
    start("iphone6-9.3", true);
    UIImage* on = UISnapshotOfView(makeSwitch(YES));
    EXPECT_EQ(at(on, 15, 15), kWhite) << "the knob";
    EXPECT_EQ(at(on, 43, 15), kGreen);
}

TEST_F(SwitchTest, BeforeSystem9ItIsNot) {
    start("iphone6-8.4", true);
    EXPECT_EQ(at(UISnapshotOfView(makeSwitch(YES)), 8, 15), kGreen);
}

TEST_F(SwitchTest, IsPaleWhenItIsDisabled) {
    start("iphone6-8.4");
    UISwitch* made = makeSwitch(YES);
    [made setEnabled:NO];
    EXPECT_EQ([made alpha], 0.5);
    [made setEnabled:YES];
    EXPECT_EQ([made alpha], 1);
}

}  // namespace
