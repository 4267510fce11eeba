#include <gmock/gmock.h>

#include "tests/support/emptied_dictionaries.h"
#include "tests/unit/hooks/hook_test.h"

// Notes being asked whether it is selected.
@interface AskedButton : NSObject
- (BOOL)isSelected;
@end
@implementation AskedButton
- (BOOL)isSelected {
    [hostEvents() appendString:@"asked "];
    return YES;
}
@end

namespace {

constexpr const char* kChanged = "com.norvex.ZelkaSettingsChangedNotification";

class Controller : public test::HookTest {
  protected:
    void startWithController() {
        start();
        controller_ = [[CallBarControllerModern alloc] init];
    }
    static void post() {
        [[NSNotificationCenter defaultCenter] postNotificationName:[NSString stringWithUTF8String:kChanged]
                                                            object:@"anybody"];
    }

    CallBarControllerModern* controller_ = nil;
};

TEST_F(Controller, ListensToSettingsChangesOnceItsViewIsLoaded) {
    startWithController();
    post();
    EXPECT_EQ(happened(), "");
    [controller_ viewDidLoad];
    EXPECT_EQ(happened(), "loaded ");
    forget();
    post();
    EXPECT_EQ(happened(), "cleanup reset ");
}

TEST_F(Controller, AChangeWhileItsViewIsLoadedIsNotHeard) {
    startWithController();
    controller_->postedWhileLoading = [NSString stringWithUTF8String:kChanged];
    [controller_ viewDidLoad];
    EXPECT_EQ(happened(), "loaded ");
}

TEST_F(Controller, AViewLoadedTwiceListensTwice) {
    startWithController();
    [controller_ viewDidLoad];
    [controller_ viewDidLoad];
    forget();
    post();
    EXPECT_EQ(happened(), "cleanup reset cleanup reset ");
}

TEST_F(Controller, TogglesAskTheirSenderAndLeaveTheRestToTheHost) {
    startWithController();
    AskedButton* button = [[[AskedButton alloc] init] autorelease];
    for (NSString* toggle in @[ @"toggleFavorites:", @"toggleRecents:", @"toggleContacts:" ]) {
        forget();
        [controller_ performSelector:NSSelectorFromString(toggle) withObject:button];
        NSString* expected = [NSString stringWithFormat:@"asked %@(%p) ", toggle, button];
        EXPECT_EQ(happened(), [expected UTF8String]);
    }
}

TEST_F(Controller, AToggleWithoutSenderReachesTheHost) {
    startWithController();
    [controller_ toggleRecents:nil];
    EXPECT_THAT(happened(), testing::StartsWith("toggleRecents:("));
}

// Whether the library draws for the generator: its discs are of one colour, the system's grey goes from light to dark.
bool drawnByLibrary(ABMonogrammer* generator) {
    UIImage* image = [[generator _copyMonogramWithInitials:@"AB"] autorelease];
    return !test::near(test::pixel(image, 60, 7), {163, 169, 183, 255}, 10);
}

TEST_F(Controller, TheFirstGeneratorIsRememberedAndAnotherIsNot) {
    startWithController();
    ABMonogrammer* first = [[[ABMonogrammer alloc] initWithDiameter:60] autorelease];
    ABMonogrammer* second = [[[ABMonogrammer alloc] initWithDiameter:60] autorelease];
    EXPECT_FALSE(drawnByLibrary(first));
    controller_->generator = first;
    EXPECT_EQ([controller_ monogrammer], first);
    CallBarControllerModern* another = [[[CallBarControllerModern alloc] init] autorelease];
    another->generator = second;
    EXPECT_EQ([another monogrammer], second);
    EXPECT_TRUE(drawnByLibrary(first));
    EXPECT_FALSE(drawnByLibrary(second));
    // The same controller with another generator changes nothing either.
    controller_->generator = second;
    EXPECT_EQ([controller_ monogrammer], second);
    EXPECT_FALSE(drawnByLibrary(second));
}

TEST_F(Controller, NoGeneratorIsNotRememberedAndTheNextOneIs) {
    startWithController();
    EXPECT_EQ([controller_ monogrammer], nil);
    ABMonogrammer* generator = [[[ABMonogrammer alloc] initWithDiameter:60] autorelease];
    controller_->generator = generator;
    EXPECT_EQ([controller_ monogrammer], generator);
    EXPECT_TRUE(drawnByLibrary(generator));
}

TEST_F(Controller, TheRememberedGeneratorIsKept) {
    startWithController();
    ABMonogrammer* generator = [[ABMonogrammer alloc] initWithDiameter:60];
    FreedWitness* witness = [[FreedWitness alloc] init];
    objc_setAssociatedObject(generator, "witness", witness, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    [witness release];
    controller_->generator = generator;
    [controller_ monogrammer];
    const NSUInteger references = [generator retainCount];
    [controller_ monogrammer];
    EXPECT_EQ([generator retainCount], references);
    [generator release];
    EXPECT_EQ(happened(), "");
}

TEST_F(Controller, AppearingListsLetGoOfWhatTheHostMadeForAMoment) {
    bootPhone("com.apple.springboard");
    // The system's own list appears like CallBar's here.
    const SEL appear = @selector(viewDidAppear:);
    method_setImplementation(class_getInstanceMethod([ABMembersViewController class], appear),
                             class_getMethodImplementation([CallBarFavoritesViewController class], appear));
    loadExtension();
    for (NSString* name in
         @[ @"CallBarFavoritesViewController", @"CallBarABViewController", @"ABMembersViewController" ]) {
        UIViewController* list = [[[NSClassFromString(name) alloc] init] autorelease];
        for (const BOOL animated : {YES, NO}) {
            forget();
            @autoreleasepool {
                [list viewDidAppear:animated];
                [hostEvents() appendString:@"returned "];
            }
            EXPECT_EQ(happened(), animated ? "appeared-animated freed returned " : "appeared freed returned ")
                << [name UTF8String];
        }
    }
}

TEST_F(Controller, SpringBoardTellsItsNameAndVersionAfterItsStart) {
    start();
    root.write(
        "/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/ZelkaCB.plist",
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Name</key><string>Zelka</string><key>Version</key>"
        "<string>1.2-3</string></dict></plist>");
    NSObject* application = [[[NSObject alloc] init] autorelease];
    [[[[SpringBoard alloc] init] autorelease] applicationDidFinishLaunching:application];
    NSString* expected = [NSString stringWithFormat:@"launched(%p) ", application];
    EXPECT_EQ(happened(), [expected UTF8String]);
    EXPECT_EQ(loggedLines("com.norvex.ZelkaCB => Info: Zelka (1.2-3) loading...."), 1);
    EXPECT_LT(log().find("the host has launched"), log().find("loading...."));
}

TEST_F(Controller, SpringBoardEmptiesThePropertyListThatItHasRead) {
    start();
    test::watchEmptiedDictionaries();
    [[[[SpringBoard alloc] init] autorelease] applicationDidFinishLaunching:nil];
    EXPECT_EQ([test::emptiedDictionariesWith(@"Version") count], 1u);
    EXPECT_EQ(log().find("(null)"), std::string::npos);
}

TEST_F(Controller, SpringBoardSaysNothingWhileTheFeatureIsOff) {
    start();
    [settings() setIsZelkaCBEnabled:NO];
    [[[[SpringBoard alloc] init] autorelease] applicationDidFinishLaunching:nil];
    EXPECT_THAT(happened(), testing::StartsWith("launched("));
    EXPECT_EQ(log().find("loading...."), std::string::npos);
}

TEST_F(Controller, SpringBoardStartsWithoutTheBundlesPropertyList) {
    start();
    std::filesystem::remove(root.host("/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/ZelkaCB.plist"));
    [[[[SpringBoard alloc] init] autorelease] applicationDidFinishLaunching:nil];
    EXPECT_EQ(loggedLines("com.norvex.ZelkaCB => Info: (null) ((null)) loading...."), 1);
}

TEST_F(Controller, SpringBoardStartsWithAPropertyListOfAnotherShape) {
    start();
    for (const char* contents :
         {"garbage {", "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><string>Name</string></array></plist>",
          "\x01\x02\x03"}) {
        root.write("/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/ZelkaCB.plist", contents);
        [[[[SpringBoard alloc] init] autorelease] applicationDidFinishLaunching:nil];
    }
    EXPECT_EQ(loggedLines("com.norvex.ZelkaCB => Info: (null) ((null)) loading...."), 3);
}

}  // namespace
