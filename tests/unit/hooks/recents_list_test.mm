#include "simulator/runtime/pending_work.h"
#include "tests/unit/hooks/hook_test.h"

// Call objects of every shape that CallBar's may have.
@interface UidCall : NSObject {
  @public
    NSInteger identifier;
}
- (NSInteger)uid;
@end
@implementation UidCall
- (NSInteger)uid {
    return identifier;
}
@end

@interface RecordCall : NSObject {
  @public
    NSNumber* number;
}
- (NSNumber*)addressBookRecordId;
@end
@implementation RecordCall
- (NSNumber*)addressBookRecordId {
    return number;
}
@end

@interface BothCall : UidCall
- (NSNumber*)addressBookRecordId;
@end
@implementation BothCall
- (NSNumber*)addressBookRecordId {
    [hostEvents() appendString:@"record-asked "];
    return @1;
}
@end

@interface NamedCall : UidCall {
  @public
    NSString* name;
}
- (NSString*)callerName;
@end
@implementation NamedCall
- (NSString*)callerName {
    return name;
}
@end

// Somebody flips a switch just then.
@interface FlippingUidCall : NamedCall {
  @public
    NSString* flip;  // the setting that goes off
}
@end
@implementation FlippingUidCall
- (NSInteger)uid {
    [[SettingsClass sharedSettings] setValue:@(NO) forKey:flip];
    return identifier;
}
@end

@interface FlippingNameCall : NamedCall
@end
@implementation FlippingNameCall
- (NSString*)callerName {
    [[SettingsClass sharedSettings] setIsMonogramEnabled:NO];
    return name;
}
@end

namespace {

using test::frameOf;
using test::kGreen;
using test::kRed;
using test::kYellow;

class RecentsList : public test::HookTest {
  protected:
    using HookTest::HookTest;

    void startWithList(const char* bundleIdentifier = "com.apple.springboard") {
        start(bundleIdentifier);
        controller_ = [[CallBarABViewController alloc] init];
        controller_->cell = newCell();
    }

    CallBarTableViewTransparentCell* newCell() {
        return [[CallBarTableViewTransparentCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                      reuseIdentifier:@"row"];
    }
    UITableViewCell* cell() { return controller_->cell; }
    UIImageView* picture() { return pictureOf(cell()); }

    static NSDictionary* entry(id call, NSString* address = @"none") {
        return @{@"calls" : call != nil ? @[ call ] : @[], @"address" : address};
    }
    static id uidCall(NSInteger identifier) {
        UidCall* call = [[[UidCall alloc] init] autorelease];
        call->identifier = identifier;
        return call;
    }
    template <class Call>
    static Call* namedCall(NSInteger identifier, NSString* name) {
        Call* call = [[[Call alloc] init] autorelease];
        call->identifier = identifier;
        call->name = name;
        return call;
    }

    // Asks the list for a row, and answers the cell.
    UITableViewCell* ask(NSInteger row = 0) {
        return [controller_ tableView:nil cellForRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]];
    }
    void show(NSArray* entries) { controller_->_allEntries = [entries retain]; }
    // Shows a list of one row and asks for it.
    void showRow(id call, NSString* address = @"none") {
        show(@[ entry(call, address) ]);
        ask();
    }

    CallBarABViewController* controller_ = nil;
};

TEST_F(RecentsList, ACellOfAnotherClassPassesThroughUnchanged) {
    startWithList();
    controller_->cell = [[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil];
    const NSUInteger views = [[cell() subviews] count];
    show(@[ entry(uidCall(1)) ]);
    EXPECT_EQ(ask(), controller_->cell);
    EXPECT_EQ([[cell() subviews] count], views);
    EXPECT_EQ(picture(), nil);
}

TEST_F(RecentsList, AListWithoutCellIsNoHarm) {
    startWithList();
    controller_->cell = nil;
    show(@[ entry(uidCall(1)) ]);
    EXPECT_EQ(ask(), nil);
}

TEST_F(RecentsList, SwitchedOffThePictureViewLosesItsImageAndLeavesTheCell) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    showRow(uidCall(ann));
    settle();
    UIImageView* before = [[picture() retain] autorelease];
    ASSERT_NE([before image], nil);
    [settings() setIsShowPicturesOnRecents:NO];
    EXPECT_EQ(ask(), cell());
    EXPECT_EQ(picture(), nil);
    EXPECT_EQ([before superview], nil);
    EXPECT_EQ([before image], nil);
}

TEST_F(RecentsList, SwitchedOnAgainANewPictureViewStandsInTheCellItself) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    showRow(uidCall(ann));
    UIImageView* before = [[picture() retain] autorelease];
    EXPECT_EQ([before superview], [cell() contentView]);
    [settings() setIsZelkaCBEnabled:NO];
    ask();
    [settings() setIsZelkaCBEnabled:YES];
    ask();
    ASSERT_NE(picture(), nil);
    EXPECT_NE(picture(), before);
    EXPECT_EQ([picture() superview], cell());
    EXPECT_EQ(frameOf(picture()), "2 2 40 40");
}

TEST_F(RecentsList, ASecondRequestKeepsTheCellsPictureView) {
    startWithList();
    showRow(uidCall(addWithPhoto(kRed)));
    UIImageView* before = picture();
    ask();
    EXPECT_EQ(picture(), before);
}

TEST_F(RecentsList, RightToLeftThePictureStandsBeforeTheAccessory) {
    root.setDevice("iphone6-8.4", true);
    startWithList();
    UIApplicationStart(nil, nil);
    [cell() setAccessoryType:UITableViewCellAccessoryDetailButton];
    [[cell() _defaultAccessoryView] setFrame:CGRectMake(300, 10, 22, 22)];
    showRow(uidCall(addWithPhoto(kRed)));
    EXPECT_EQ(frameOf(picture()), "260 2 40 40");
}

TEST_F(RecentsList, OnlyMissedShowsTheMissedEntries) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    controller_->onlyMissed = YES;
    controller_->_missedEntries = [@[ entry(uidCall(bob)) ] retain];
    show(@[ entry(uidCall(ann)) ]);
    ask();
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, WhatStandsBesideTheMissedFlagIsNotReadAsTheFlag) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    memset(controller_->neighbour, 0xFF, sizeof controller_->neighbour);
    showRow(uidCall(ann));
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
}

TEST_F(RecentsList, ARowBehindTheLastMissedEntryKeepsItsPicture) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    controller_->onlyMissed = YES;
    controller_->_missedEntries = [@[ entry(uidCall(ann)), entry(uidCall(ann)), entry(uidCall(ann)) ] retain];
    show(@[ entry(nil), entry(nil), entry(nil), entry(nil) ]);
    ask();
    UIImage* marker = test::redPicture(4, 4, 1);
    [picture() setImage:marker];
    EXPECT_EQ(ask(3), cell());
    EXPECT_EQ([picture() image], marker);
    settle();
}

TEST_F(RecentsList, AListWithoutEntriesKeepsThePicture) {
    startWithList();
    ask();
    EXPECT_EQ([picture() image], nil);
    EXPECT_EQ(queued(), 0);
}

TEST_F(RecentsList, ANegativeRowIsBehindEveryEntry) {
    startWithList();
    show(@[ entry(uidCall(addWithPhoto(kRed))) ]);
    ask(-1);
    EXPECT_EQ([picture() image], nil);
}

TEST_F(RecentsList, CallThatAnswersBothUidAndRecordIdUsesUid) {
    startWithList();
    addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    BothCall* call = [[[BothCall alloc] init] autorelease];
    call->identifier = bob;
    showRow(call);
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
    EXPECT_EQ(happened(), "");
}

TEST_F(RecentsList, CallThatAnswersARecordIdAloneUsesIt) {
    startWithList();
    addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    RecordCall* call = [[[RecordCall alloc] init] autorelease];
    call->number = [[NSNumber alloc] initWithInt:bob];
    showRow(call);
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, CallWithANilRecordIdHasNoContact) {
    startWithList();
    showRow([[[RecordCall alloc] init] autorelease]);
    EXPECT_NE([picture() image], nil);
    EXPECT_EQ(queued(), 0);
}

TEST_F(RecentsList, TheLowHalfOfAWideUidIsTheContact) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    showRow(uidCall((NSInteger{5} << 32) + ann));
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
}

TEST_F(RecentsList, CallWithoutIdIsFoundByItsAddress) {
    startWithList();
    phone::Person ann;
    ann.first = "Ann";
    ann.emails = {{"ann@example.com", ""}};
    const int contact = add(ann);
    setThumbnail(contact, test::bmp(8, 8, kGreen));
    showRow([[[NSObject alloc] init] autorelease], @"ann@example.com");
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, AnEntryWithoutCallsIsFoundByItsAddress) {
    startWithList();
    phone::Person ann;
    ann.first = "Ann";
    ann.phones = {{"+1 212 555 0142", ""}};
    const int contact = add(ann);
    setThumbnail(contact, test::bmp(8, 8, kGreen));
    showRow(nil, @"(212) 555-0142");
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, AnUnknownAddressShowsTheGenericMonogramAndQueuesNothing) {
    startWithList();
    replaceBundlePicture("user_monogram_round", kYellow);
    addNamed("Ann", "Lee");
    showRow([[[NSObject alloc] init] autorelease], @"+1 646 555 0199");
    EXPECT_TRUE(shows(cell(), kYellow));
    EXPECT_EQ(queued(), 0);
    EXPECT_EQ(phone::pendingWork(), 0);
}

TEST_F(RecentsList, ContactsBelowOneShowTheGenericMonogram) {
    startWithList();
    replaceBundlePicture("user_monogram_round", kYellow);
    for (const NSInteger none : {NSInteger{0}, NSInteger{-1}, NSInteger{1} << 32}) {
        [picture() setImage:nil];
        showRow(uidCall(none));
        EXPECT_TRUE(shows(cell(), kYellow)) << none;
        EXPECT_EQ(queued(), 0);
    }
}

TEST_F(RecentsList, ACachedPictureIsSetAtOnceAndNothingIsQueued) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    UIImage* cached = test::redPicture(6, 6, 1);
    [Utils setContactImage:cached contactId:ann];
    showRow(uidCall(ann));
    EXPECT_EQ([picture() image], cached);
    EXPECT_EQ(queued(), 0);
}

TEST_F(RecentsList, AnUncachedPictureFollowsItsPlaceholder) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [[Utils queue] setSuspended:YES];
    showRow(namedCall<NamedCall>(ann, @"Ann Lee"));
    UIImage* placeholder = [[[picture() image] retain] autorelease];
    ASSERT_NE(placeholder, nil);
    EXPECT_EQ([placeholder size].width, 40);
    EXPECT_FALSE(shows(cell(), kRed));
    EXPECT_EQ(queued(), 1);
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
    EXPECT_EQ([picture() image], [Utils getContactImageInCache:ann]);
}

TEST_F(RecentsList, ThePlaceholderIsNotCached) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [[Utils queue] setSuspended:YES];
    showRow(namedCall<NamedCall>(ann, @"Ann Lee"));
    EXPECT_EQ([Utils getContactImageInCache:ann], nil);
    [[Utils queue] setSuspended:NO];
    settle();
}

TEST_F(RecentsList, AReusedCellReceivesTheLatePictureOfItsEarlierRow) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    [Utils getContactImageOnly:bob monogramText:nil newImage:NO];
    show(@[ entry(uidCall(ann)), entry(uidCall(bob)) ]);
    [[Utils queue] setSuspended:YES];
    ask(0);
    ask(1);
    EXPECT_TRUE(shows(cell(), kGreen));
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
    ask(1);
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, ALatePictureGoesToThePictureViewThatTheCellHasThen) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [[Utils queue] setSuspended:YES];
    showRow(uidCall(ann));
    UIImageView* before = [[picture() retain] autorelease];
    [before removeFromSuperview];
    UIImage* placeholder = [[[before image] retain] autorelease];
    UIImageView* later = [[[UIImageView alloc] initWithFrame:CGRectMake(0, 0, 40, 40)] autorelease];
    [later setTag:test::kPictureTag];
    [cell() addSubview:later];
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
    EXPECT_EQ([before image], placeholder);
}

TEST_F(RecentsList, ALatePictureForACellWithoutPictureViewIsKeptInTheCacheAlone) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [[Utils queue] setSuspended:YES];
    showRow(uidCall(ann));
    [picture() removeFromSuperview];
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_EQ(picture(), nil);
    EXPECT_NE([Utils getContactImageInCache:ann], nil);
}

TEST_F(RecentsList, AWaitingPictureDoesNotKeepItsCellAlive) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [[Utils queue] setSuspended:YES];
    @autoreleasepool {
        FreedWitness* witness = [[FreedWitness alloc] init];
        objc_setAssociatedObject(cell(), "witness", witness, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
        [witness release];
        showRow(uidCall(ann));
        [controller_->cell release];
        controller_->cell = nil;
    }
    EXPECT_EQ(happened(), "freed ");
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_NE([Utils getContactImageInCache:ann], nil);
}

TEST_F(RecentsList, AContactWithoutPhotoGetsTheInitialsOfItsCallersName) {
    startWithList();
    const int ann = addNamed("Ann", "Lee");
    showRow(namedCall<NamedCall>(ann, @"Zoe Yang"));
    settle();
    UIImage* named = [[[picture() image] retain] autorelease];
    const phone::Pixel disc = test::pixel(named, 40, 6);
    const auto drawn = [&disc](NSString* letters) {
        UIColor* color = [UIColor colorWithRed:disc.r / 255.0 green:disc.g / 255.0 blue:disc.b / 255.0 alpha:1];
        return [Utils monogramImage:letters size:CGSizeMake(40, 40) color:color font:[UIFont systemFontOfSize:17]];
    };
    EXPECT_TRUE(test::samePixels(named, drawn(@"ZY")));
    EXPECT_FALSE(test::samePixels(named, drawn(@"AL")));
}

TEST_F(RecentsList, ACallWithoutCallersNameAsksTheAddressBookForInitials) {
    startWithList();
    const int nameless = addNamed(std::nullopt, std::nullopt);
    replaceBundlePicture("user_monogram_round", kYellow);
    showRow(uidCall(nameless));
    // Nobody's initials: the silhouette, first as the placeholder and then for good.
    EXPECT_TRUE(shows(cell(), kYellow));
    settle();
    EXPECT_TRUE(shows(cell(), kYellow));
}

TEST_F(RecentsList, MonogramsOffThePlaceholderIsTheBundlesRecentPicture) {
    startWithList();
    replaceBundlePicture("recent", kYellow);
    const int ann = addWithPhoto(kRed);
    [settings() setIsMonogramEnabled:NO];
    [[Utils queue] setSuspended:YES];
    showRow(namedCall<NamedCall>(ann, @"Ann Lee"));
    EXPECT_TRUE(shows(cell(), kYellow));
    EXPECT_EQ([[picture() image] size].width, 80);
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
}

struct PlaceholderFile {
    const char *profile, *file;
};

class RecentsPlaceholder : public RecentsList, public testing::WithParamInterface<PlaceholderFile> {
  protected:
    RecentsPlaceholder() : RecentsList(GetParam().profile) {}
};

TEST_P(RecentsPlaceholder, IsTheFileOfTheScreensScale) {
    startWithList();
    replaceBundlePicture("recent", kRed);
    root.write(std::string("/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/") + GetParam().file,
               test::bmp(8, 8, kGreen));
    [settings() setIsMonogramEnabled:NO];
    [[Utils queue] setSuspended:YES];
    showRow(uidCall(addNamed("Ann", "Lee")));
    EXPECT_TRUE(shows(cell(), kGreen));
    [[Utils queue] setSuspended:NO];
    settle();
}

INSTANTIATE_TEST_SUITE_P(Screens, RecentsPlaceholder,
                         testing::Values(PlaceholderFile{"iphone6plus-9.3", "recent@3x.png"},
                                         PlaceholderFile{"iphone6-8.4", "recent@2x.png"},
                                         PlaceholderFile{"ipad2-6.1", "recent.png"}));

TEST_F(RecentsList, TheFeatureSwitchedOffWhileTheRowIsMadeGivesTheRecentPicture) {
    for (NSString* flip in @[ @"isZelkaCBEnabled", @"isMonogramEnabled" ]) {
        if (controller_ == nil) startWithList();
        replaceBundlePicture("recent", kYellow);
        [Utils clearImageCache];
        [settings() loadSettings];
        FlippingUidCall* call = namedCall<FlippingUidCall>(addWithPhoto(kRed), @"Ann Lee");
        call->flip = flip;
        [[Utils queue] setSuspended:YES];
        showRow(call);
        EXPECT_TRUE(shows(cell(), kYellow)) << [flip UTF8String];
        [[Utils queue] setSuspended:NO];
        settle();
        EXPECT_TRUE(shows(cell(), kRed)) << [flip UTF8String];
    }
}

TEST_F(RecentsList, MonogramsSwitchedOffAfterTheInitialsWereTakenGiveTheRecentPicture) {
    startWithList();
    replaceBundlePicture("recent", kYellow);
    [[Utils queue] setSuspended:YES];
    showRow(namedCall<FlippingNameCall>(addNamed("Ann", "Lee"), @"Ann Lee"));
    EXPECT_TRUE(shows(cell(), kYellow));
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_TRUE(shows(cell(), kYellow));
}

TEST_F(RecentsList, ALoadThatYieldsNothingLeavesThePlaceholder) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [[Utils queue] setSuspended:YES];
    showRow(namedCall<NamedCall>(ann, @"Ann Lee"));
    UIImage* placeholder = [[[picture() image] retain] autorelease];
    // Memory for the finished picture cannot be had.
    Method make = class_getClassMethod([UIImage class], @selector(imageWithCGImage:));
    const IMP before = method_setImplementation(
        make, (IMP) + [](id, SEL, CGImageRef) -> id { return nil; });
    [[Utils queue] setSuspended:NO];
    settle();
    method_setImplementation(make, before);
    EXPECT_EQ([picture() image], placeholder);
    EXPECT_EQ([Utils getContactImageInCache:ann], nil);
}

TEST_F(RecentsList, ListensToSettingsChangesFromItsLoadingToItsEnd) {
    startWithList();
    NotedTable* table = [[[NotedTable alloc] initWithFrame:CGRectMake(0, 0, 320, 480)] autorelease];
    controller_->table = table;
    [controller_ viewDidLoad];
    EXPECT_EQ(happened(), "loaded ");
    forget();
    [[NSNotificationCenter defaultCenter] postNotificationName:@"com.norvex.ZelkaSettingsChangedNotification"
                                                        object:@"anybody"];
    EXPECT_EQ(happened(), "reload ");
    forget();
    [controller_ release];
    EXPECT_EQ(happened(), "dealloc ");
    [[NSNotificationCenter defaultCenter] postNotificationName:@"com.norvex.ZelkaSettingsChangedNotification"
                                                        object:nil];
    EXPECT_EQ(happened(), "dealloc ");
}

}  // namespace
