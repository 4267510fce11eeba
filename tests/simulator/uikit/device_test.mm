#include "tests/simulator/uikit/phone_test.h"

namespace {

using DeviceTest = PhoneTest;

TEST_F(DeviceTest, TheScreenKnowsItsPanelFromSystem8On) {
    start("iphone5s-7.1");
    UIScreen* screen = [UIScreen mainScreen];
    EXPECT_FALSE([screen respondsToSelector:@selector(nativeBounds)]);
    EXPECT_FALSE([screen respondsToSelector:@selector(nativeScale)]);
    EXPECT_TRUE([screen respondsToSelector:@selector(scale)]);
    EXPECT_TRUE([screen respondsToSelector:@selector(displayLinkWithTarget:selector:)]);
    EXPECT_TRUE(raises([&] { [screen nativeBounds]; }));
    EXPECT_EQ([screen bounds], CGRectMake(0, 0, 320, 568));
}

TEST_F(DeviceTest, ThePlusShowsThreePixelsAPointOnASmallerPanel) {
    start("iphone6plus-8.4");
    UIScreen* screen = [UIScreen mainScreen];
    ASSERT_TRUE([screen respondsToSelector:@selector(nativeBounds)]);
    EXPECT_EQ([screen nativeBounds], CGRectMake(0, 0, 1080, 1920));
    EXPECT_EQ([screen nativeBounds].size.height / [screen nativeScale], 736.0);
    EXPECT_EQ([screen scale], 3);
    EXPECT_TRUE(raises([&] { [screen displayLinkWithTarget:screen selector:@selector(scale)]; }));
}

phone::Device inLandscape(const char* profile) {
    phone::Device device = phone::deviceFromProfile(profile).value();
    device.orientation = UIInterfaceOrientationLandscapeLeft;
    return device;
}

TEST_F(DeviceTest, Before8TheBoundsStayUpright) {
    start(inLandscape("iphone5s-7.1"));
    EXPECT_EQ([[UIScreen mainScreen] bounds], CGRectMake(0, 0, 320, 568));
}

TEST_F(DeviceTest, From8OnTheBoundsFollowTheInterface) {
    start(inLandscape("iphone6-8.4"));
    EXPECT_EQ([[UIScreen mainScreen] bounds], CGRectMake(0, 0, 667, 375));
    EXPECT_EQ([[UIScreen mainScreen] nativeBounds], CGRectMake(0, 0, 750, 1334));
    UIApplication* application = UIApplicationStart(nil, nil);
    EXPECT_EQ([application statusBarOrientation], UIInterfaceOrientationLandscapeLeft);
}

TEST_F(DeviceTest, TheDeviceNamesItselfAndItsSystem) {
    start("ipad2-6.1");
    UIDevice* device = [UIDevice currentDevice];
    EXPECT_TRUE([[device systemVersion] isEqual:@"6.1.3"]);
    EXPECT_TRUE([[device model] isEqual:@"iPad"]);
    EXPECT_EQ([device userInterfaceIdiom], UIUserInterfaceIdiomPad);
    EXPECT_EQ([[UIScreen mainScreen] applicationFrame], CGRectMake(0, 20, 768, 1004));
}

}  // namespace

@interface LaunchLog : UIApplication {
  @public
    int launches;
}
@end
@implementation LaunchLog
- (void)applicationDidFinishLaunching:(UIApplication*)application {
    launches += application == self;
}
@end

@interface StagedController : UIViewController {
  @public
    NSMutableArray* stages;
}
@end
@implementation StagedController
- (void)viewDidLoad {
    stages = [[NSMutableArray alloc] initWithObjects:@"load", nil];
}
- (void)viewWillAppear:(BOOL)animated {
    [stages addObject:@"will"];
}
- (void)viewDidLayoutSubviews {
    if (![[stages lastObject] isEqual:@"layout"]) [stages addObject:@"layout"];
}
- (void)viewDidAppear:(BOOL)animated {
    [stages addObject:@"did"];
}
- (void)viewDidDisappear:(BOOL)animated {
    [stages addObject:@"gone"];
}
- (void)dealloc {
    [stages release];
    [super dealloc];
}
@end

namespace {

TEST_F(DeviceTest, AnApplicationThatIsItsOwnDelegateIsToldOfItsLaunch) {
    start("iphone6-8.4");
    EXPECT_EQ([UIApplication sharedApplication], nil);
    UIApplication* application = UIApplicationStart(@"LaunchLog", nil);
    EXPECT_EQ([UIApplication sharedApplication], application);
    EXPECT_EQ(((LaunchLog*)application)->launches, 1);
    EXPECT_EQ([application userInterfaceLayoutDirection], UIUserInterfaceLayoutDirectionLeftToRight);
    EXPECT_EQ([application statusBarOrientation], UIInterfaceOrientationPortrait);
    EXPECT_TRUE(raises([&] { UIApplicationStart(nil, nil); }));
}

TEST_F(DeviceTest, AControllerLoadsAppearsAndGoes) {
    start("iphone6-8.4");
    UIWindow* window = [[[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]] autorelease];
    StagedController* controller = [[[StagedController alloc] init] autorelease];
    EXPECT_FALSE([controller isViewLoaded]);
    [window setRootViewController:controller];
    EXPECT_FALSE([controller isViewLoaded]) << "the window is not shown yet";
    [window makeKeyAndVisible];
    EXPECT_TRUE(([controller->stages isEqual:@[ @"load", @"will", @"layout", @"did" ]]));
    EXPECT_EQ([[controller view] frame], [window bounds]);
    EXPECT_EQ([[controller view] nextResponder], controller);
    [window setRootViewController:nil];
    EXPECT_TRUE([[controller->stages lastObject] isEqual:@"gone"]);
    EXPECT_EQ([[controller view] superview], nil);
}

}  // namespace
