#include "tests/simulator/uikit/phone_test.h"

// Writes down what happens to it.
@interface NotedController : UIViewController {
  @public
    NSMutableArray* notes;
}
@end

@implementation NotedController
- (instancetype)initNamed:(NSString*)name notes:(NSMutableArray*)list {
    self = [super init];
    if (self) notes = list;
    [self setTitle:name];
    return self;
}
- (void)note:(NSString*)what {
    [notes addObject:[NSString stringWithFormat:@"%@ %@", [self title], what]];
}
- (void)viewWillAppear:(BOOL)animated {
    [self note:@"will appear"];
}
- (void)viewDidDisappear:(BOOL)animated {
    [self note:@"did disappear"];
}
@end

namespace {

class NavigationTest : public PhoneTest {
  protected:
    void show(const char* device, bool rightToLeft = false) {
        start(device, rightToLeft);
        notes = [NSMutableArray array];
        window = [[[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]] autorelease];
        stack = [[[UINavigationController alloc] initWithRootViewController:controller(@"Root")] autorelease];
        [window setRootViewController:stack];
        [window makeKeyAndVisible];
    }
    UIViewController* controller(NSString* name) {
        return [[[NotedController alloc] initNamed:name notes:notes] autorelease];
    }
    UIButton* backButton() { return [[stack navigationBar] _backButton]; }

    NSMutableArray* notes = nil;
    UIWindow* window = nil;
    UINavigationController* stack = nil;
};

TEST_F(NavigationTest, PushingAndGoingBackShowOneControllerAtATime) {
    show("iphone6-8.4");
    EXPECT_TRUE([backButton() isHidden]);
    UIViewController* page = controller(@"Page");
    [stack pushViewController:page animated:YES];
    [window layoutIfNeeded];
    EXPECT_EQ([stack topViewController], page);
    EXPECT_EQ([page navigationController], stack);
    EXPECT_EQ([[page view] frame], CGRectMake(0, 64, 375, 603));
    EXPECT_TRUE([[[[stack navigationBar] backItem] title] isEqual:@"Root"]);
    [backButton() sendActionsForControlEvents:UIControlEventTouchUpInside];
    EXPECT_EQ([[stack viewControllers] count], 1u);
    EXPECT_EQ([page navigationController], nil);
    EXPECT_EQ([[page view] superview], nil);
    NSArray* expected = @[
        @"Root will appear", @"Page will appear", @"Root did disappear", @"Root will appear", @"Page did disappear"
    ];
    EXPECT_TRUE([notes isEqual:expected]) << [[notes description] UTF8String];
    EXPECT_EQ([stack popViewControllerAnimated:NO], nil) << "the root stays";
}

TEST_F(NavigationTest, ATitleSetLaterIsShown) {
    show("iphone6-8.4");
    [[stack topViewController] setTitle:@"Later"];
    EXPECT_TRUE([[[[stack navigationBar] topItem] title] isEqual:@"Later"]);
}

TEST_F(NavigationTest, TheButtonIsAtTheLeadingEdge) {
    show("iphone6-9.3", true);
    [stack pushViewController:controller(@"Page") animated:NO];
    [window layoutIfNeeded];
    EXPECT_EQ(CGRectGetMaxX([backButton() frame]), 375);
}

TEST_F(NavigationTest, BeforeSystem9TheBarIsNotMirrored) {
    show("iphone6-8.4", true);
    [stack pushViewController:controller(@"Page") animated:NO];
    [window layoutIfNeeded];
    EXPECT_EQ([backButton() frame].origin.x, 0);
}

}  // namespace
