#include "simulator/frameworks/contacts_ui/contacts_ui.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/support/darwin.h"
#include "tests/support/extension.h"
#include "tests/support/property_list.h"

#include <thread>

// What happened, in order, as words.
static NSMutableString* events;

// The host's classes as far as the library's additions need them.
@interface CallBarControllerModern : UIViewController
- (void)cleanupFavoritesButtons;
- (void)resetFavorites;
@end
@implementation CallBarControllerModern
- (void)cleanupFavoritesButtons {
    [events appendString:@"cleanup "];
}
- (void)resetFavorites {
    [events appendString:@"reset "];
}
@end

@interface ReloadedTable : UITableView
@end
@implementation ReloadedTable
- (void)reloadData {
    [events appendString:[NSThread isMainThread] ? @"reload " : @"reload-elsewhere "];
}
@end

@interface CallBarABViewController : UIViewController {
  @public
    UITableView* _table;
}
- (UITableView*)tableView;
@end
@implementation CallBarABViewController
- (UITableView*)tableView {
    return _table;
}
@end

@protocol SettingsObserver
- (void)zelkaCBSettingsChanged:(NSNotification*)notification;
@end

// Notes what an observer of the in-process notification finds.
@interface RedrawWitness : NSObject
- (void)redraw:(NSNotification*)notification;
@end
@implementation RedrawWitness
- (void)redraw:(NSNotification*)notification {
    [events appendFormat:@"redraw(%@,%@,%d,%d) ", [notification object], [notification userInfo],
                         [Utils getContactImageInCache:7] != nil,
                         [[SettingsClass sharedSettings] isShowPicturesOnRecents]];
}
@end

namespace {

constexpr const char* kNotifications[] = {"com.norvex.ZelkaCBEnabledNotification",
                                          "com.norvex.ZelkaCBRoundedPicturesEnabledNotification",
                                          "com.norvex.ZelkaCBMonogramPicturesEnabledNotification",
                                          "com.norvex.ZelkaCBFavoritesEnabledNotification",
                                          "com.norvex.ZelkaCBRecentsEnabledNotification",
                                          "com.norvex.ZelkaCBContactsEnabledNotification"};

class LiveChanges : public test::ExtensionTest {
  protected:
    ~LiveChanges() override {
        [[NSNotificationCenter defaultCenter] removeObserver:witness_];
        [witness_ release];
    }

    void start(const char* bundleIdentifier = "com.apple.springboard") {
        auto book = maker::AddressBookBuilder::open(root.path());
        maker::Person ann;
        ann.first = "Ann";
        ASSERT_TRUE(book->addPerson(ann));
        ASSERT_TRUE(book->finish());
        events = [[NSMutableString alloc] init];
        boot(bundleIdentifier);
        witness_ = [[RedrawWitness alloc] init];
        [[NSNotificationCenter defaultCenter] addObserver:witness_
                                                 selector:@selector(redraw:)
                                                     name:@"com.norvex.ZelkaSettingsChangedNotification"
                                                   object:nil];
        UIGraphicsBeginImageContext(CGSizeMake(2, 2));
        [Utils setContactImage:UIGraphicsGetImageFromCurrentImageContext() contactId:7];
        UIGraphicsEndImageContext();
    }

    // The Contacts list's table is remembered when it is first served.
    void showMembers() {
        UITableView* table = [[[ReloadedTable alloc] initWithFrame:CGRectMake(0, 0, 320, 480)] autorelease];
        ABMembersDataSource* source = [[[ABMembersDataSource alloc] init] autorelease];
        [source setMembers:ABUIReadMembers()];
        [source tableView:table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
    }

    // Does the work on another thread, notes "done" when it has returned, and serves the main thread meanwhile.
    template <class Work>
    void onAnotherThread(Work work) {
        std::atomic<bool> returned = false;
        std::thread other([&] {
            @autoreleasepool {
                [NSThread currentThread];
                work();
                [events appendString:@"done "];
            }
            returned = true;
        });
        NSDate* limit = [NSDate dateWithTimeIntervalSinceNow:10];
        while (!returned && [limit timeIntervalSinceNow] > 0) {
            [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                     beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
        }
        other.join();
    }

    std::string happened() const { return [events UTF8String]; }

    RedrawWitness* witness_ = nil;
};

TEST_F(LiveChanges, EmptyTheCacheThenReloadThenRedraw) {
    start();
    ASSERT_TRUE([[SettingsClass sharedSettings] isShowPicturesOnRecents]);
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabled", true}}));
    EXPECT_EQ(test::deliver(kNotifications[0]), 1);
    EXPECT_EQ(happened(), "redraw((null),(null),0,0) ");
    EXPECT_TRUE([Utils isZelkaCBOnlyOn]);
}

// Stands in for the platform's reading of a dictionary from a file: notes whether a picture is still cached.
IMP platformRead;
id noteRead(id receiver, SEL command, NSString* path) {
    if ([[path lastPathComponent] isEqual:@"com.norvex.ZelkaCB.plist"])
        [events appendFormat:@"load(%d) ", [Utils getContactImageInCache:7] != nil];
    return reinterpret_cast<id (*)(id, SEL, NSString*)>(platformRead)(receiver, command, path);
}

TEST_F(LiveChanges, EmptyTheCacheBeforeTheSettingsAreRead) {
    start();
    [SettingsClass sharedSettings];
    Class reader = [[[[NSMutableDictionary alloc] init] autorelease] class];
    platformRead = class_getMethodImplementation(reader, @selector(initWithContentsOfFile:));
    class_replaceMethod(reader, @selector(initWithContentsOfFile:), reinterpret_cast<IMP>(noteRead), "@@:@");
    test::deliver(kNotifications[0]);
    EXPECT_EQ(happened(), "load(0) redraw((null),(null),0,1) ");
}

TEST_F(LiveChanges, EveryNotificationDoesAllOfTheWorkWhateverItsName) {
    for (const char* name : kNotifications) {
        SCOPED_TRACE(name);
        if (events == nil) start();
        [events setString:@""];
        [Utils setContactImage:[UIImage imageWithContentsOfFile:@"/System/Library/PreferenceBundles/"
                                                                @"ZelkaCBSettings.bundle/recent@2x.png"]
                     contactId:7];
        ASSERT_NE([Utils getContactImageInCache:7], nil);
        EXPECT_EQ(test::deliver(name), 1);
        EXPECT_EQ(happened(), "redraw((null),(null),0,1) ");
        EXPECT_EQ(loggedLines("com.norvex.ZelkaCB: Information => void "
                              "zelkaCBSettingsChangedCallBack(CFNotificationCenterRef, void *, CFStringRef, const void "
                              "*, CFDictionaryRef), [Line 1017], Got '" +
                              std::string(name) + "' notification..."),
                  1);
    }
}

TEST_F(LiveChanges, MakeTheSettingsWhenNobodyHasAskedYet) {
    start();
    test::deliver(kNotifications[0]);
    EXPECT_EQ(loggedLines("Initiallizing settings for first time.."), 1);
    // Once for the making, once for the change.
    EXPECT_EQ(loggedLines("Loading settings completed.."), 2);
}

TEST_F(LiveChanges, TwoChangesAreTwoFullReloads) {
    start();
    [SettingsClass sharedSettings];
    test::deliver(kNotifications[4]);
    test::deliver(kNotifications[5]);
    EXPECT_EQ(happened(), "redraw((null),(null),0,1) redraw((null),(null),0,1) ");
    EXPECT_EQ(loggedLines("Loading settings completed.."), 3);
}

TEST_F(LiveChanges, AreIgnoredInAProcessThatIsNotServed) {
    start("com.apple.mobilephone");
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabledRecents", true}}));
    ASSERT_TRUE([[SettingsClass sharedSettings] isShowPicturesOnRecents]);
    root.write(test::kSettingsPath, test::propertyList({}));
    testing::internal::CaptureStderr();
    EXPECT_EQ(test::deliver(kNotifications[0]), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(happened(), "");
    EXPECT_NE([Utils getContactImageInCache:7], nil);
    EXPECT_TRUE([[SettingsClass sharedSettings] isShowPicturesOnRecents]);
}

TEST_F(LiveChanges, ActInTheViewService) {
    start("net.vantrel.callbarviewservice");
    test::deliver(kNotifications[0]);
    EXPECT_EQ(happened(), "redraw((null),(null),0,1) ");
}

TEST_F(LiveChanges, ReloadTheContactsTableAfterTheOthersWereTold) {
    start();
    showMembers();
    [events setString:@""];
    test::deliver(kNotifications[0]);
    EXPECT_EQ(happened(), "redraw((null),(null),0,1) reload ");
}

TEST_F(LiveChanges, WaitForTheContactsTablesReloadOnTheMainThread) {
    start();
    showMembers();
    [events setString:@""];
    onAnotherThread([] { test::deliver(kNotifications[0]); });
    EXPECT_EQ(happened(), "redraw((null),(null),0,1) reload done ");
}

TEST_F(LiveChanges, TheFavouritesStripIsClearedThenBuiltAnew) {
    start();
    id controller = [[[CallBarControllerModern alloc] init] autorelease];
    [controller zelkaCBSettingsChanged:nil];
    EXPECT_EQ(happened(), "cleanup reset ");
}

CallBarABViewController* callListWithTable() {
    CallBarABViewController* controller = [[[CallBarABViewController alloc] init] autorelease];
    controller->_table = [[[ReloadedTable alloc] initWithFrame:CGRectMake(0, 0, 320, 480)] autorelease];
    return controller;
}

TEST_F(LiveChanges, ACallListReloadsItsTable) {
    start();
    [(id)callListWithTable() zelkaCBSettingsChanged:nil];
    EXPECT_EQ(happened(), "reload ");
}

TEST_F(LiveChanges, ACallListReloadsItsTableOnTheMainThreadAndWaits) {
    start();
    id controller = callListWithTable();
    onAnotherThread([&] { [controller zelkaCBSettingsChanged:nil]; });
    EXPECT_EQ(happened(), "reload done ");
}

TEST_F(LiveChanges, ACallListWithoutTableReloadsNothing) {
    start();
    [(id)[[[CallBarABViewController alloc] init] autorelease] zelkaCBSettingsChanged:nil];
    EXPECT_EQ(happened(), "");
}

TEST_F(LiveChanges, TheAddedMethodsKeepTheEncodingTheyWereGiven) {
    start();
    for (const char* name : {"CallBarControllerModern", "CallBarABViewController"}) {
        Method method = class_getInstanceMethod(objc_getClass(name), sel_registerName("zelkaCBSettingsChanged:"));
        ASSERT_NE(method, nullptr);
        EXPECT_STREQ(method_getTypeEncoding(method), "v@:@@");
    }
}

}  // namespace
