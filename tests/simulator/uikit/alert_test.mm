#include "tests/simulator/uikit/phone_test.h"

@interface AlertListener : NSObject <UIAlertViewDelegate> {
  @public
    NSInteger clicked, dismissed;
    BOOL wasVisible;
}
@end

@implementation AlertListener
- (void)alertView:(UIAlertView*)alertView clickedButtonAtIndex:(NSInteger)buttonIndex {
    clicked = buttonIndex;
    wasVisible = [alertView isVisible];
}
- (void)alertView:(UIAlertView*)alertView didDismissWithButtonIndex:(NSInteger)buttonIndex {
    dismissed = buttonIndex;
}
@end

namespace {

class AlertTest : public PhoneTest {
  protected:
    void showWindow(const char* device = "iphone6-8.4", bool rightToLeft = false) {
        start(device, rightToLeft);
        window = [[[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]] autorelease];
        [window makeKeyAndVisible];
    }
    UIAlertView* ask(AlertListener* listener) {
        UIAlertView* alert = [[[UIAlertView alloc] initWithTitle:@"Delete?"
                                                         message:@"It is gone then."
                                                        delegate:listener
                                               cancelButtonTitle:@"No"
                                               otherButtonTitles:@"Yes", @"Perhaps", nil] autorelease];
        [alert show];
        return alert;
    }
    AlertListener* listen() {
        AlertListener* listener = [[[AlertListener alloc] init] autorelease];
        listener->clicked = listener->dismissed = -7;
        return listener;
    }
    UIWindow* window = nil;
};

TEST_F(AlertTest, AClickIsReportedWhileTheAlertIsStillThere) {
    showWindow();
    AlertListener* listener = listen();
    UIAlertView* alert = ask(listener);
    EXPECT_EQ([alert numberOfButtons], 3);
    EXPECT_EQ([alert cancelButtonIndex], 0);
    EXPECT_TRUE([[alert buttonTitleAtIndex:2] isEqual:@"Perhaps"]);
    EXPECT_TRUE([alert isVisible]);
    EXPECT_EQ([UIAlertView _frontmost], alert);
    [alert _pressButtonAtIndex:1];
    EXPECT_EQ(listener->clicked, 1);
    EXPECT_TRUE(listener->wasVisible);
    EXPECT_EQ(listener->dismissed, 1);
    EXPECT_FALSE([alert isVisible]);
    EXPECT_EQ([UIAlertView _frontmost], nil);
}

TEST_F(AlertTest, ADismissalByTheProgramIsNoClick) {
    showWindow();
    AlertListener* listener = listen();
    [ask(listener) dismissWithClickedButtonIndex:0 animated:NO];
    EXPECT_EQ(listener->clicked, -7);
    EXPECT_EQ(listener->dismissed, 0);
}

TEST_F(AlertTest, ASecondOneIsInFrontOfTheFirst) {
    showWindow();
    UIAlertView* first = ask(nil);
    UIAlertView* second = ask(nil);
    EXPECT_EQ([UIAlertView _frontmost], second);
    [second _pressButtonAtIndex:0];
    EXPECT_EQ([UIAlertView _frontmost], first);
}

TEST_F(AlertTest, TheScreenBehindIsDimmedAndTheBoxIsInTheMiddle) {
    showWindow();
    [window setBackgroundColor:[UIColor whiteColor]];
    ask(nil);
    [window layoutIfNeeded];
    UIImage* image = UISnapshotOfView(window);
    EXPECT_EQ(at(image, 10, 10), (phone::Pixel{153, 153, 153, 255}));
    EXPECT_NEAR(at(image, 187, 275).r, 247, 1);
}

TEST_F(AlertTest, TwoButtonsStandSideBySideIfTheirTitlesFit) {
    showWindow();
    [window setBackgroundColor:[UIColor whiteColor]];
    const auto heightWith = [&](NSString* title) {
        UIAlertView* alert = [[[UIAlertView alloc] initWithTitle:@"Delete?"
                                                         message:nil
                                                        delegate:nil
                                               cancelButtonTitle:@"No"
                                               otherButtonTitles:title, nil] autorelease];
        [alert show];
        [alert layoutIfNeeded];
        return [[[alert subviews] lastObject] frame].size.height;
    };
    EXPECT_EQ(heightWith(@"Restore all of the Defaults"), heightWith(@"Yes") + 44);
}

TEST_F(AlertTest, WithoutAWindowItRaises) {
    start("iphone6-8.4");
    EXPECT_TRUE(raises([&] { ask(nil); }));
}

}  // namespace
