#include "tests/support/parameter_name.h"
#include "tests/unit/hooks/recents_test.h"

namespace {

using test::kGreen;
using test::kRed;
using test::kYellow;
using test::RecentsList;

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

TEST_F(RecentsList, APictureThatIsCachedMeanwhileIsShownAndNotMadeAnew) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    [[Utils queue] setSuspended:YES];
    showRow(uidCall(ann));
    UIImage* cached = test::redPicture(6, 6, 1);
    [Utils setContactImage:cached contactId:ann];
    [[Utils queue] setSuspended:NO];
    settle();
    EXPECT_EQ([picture() image], cached);
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

TEST_F(RecentsList, ANameOfDoubleQuotesAloneGivesADiscWithoutLetters) {
    startWithList();
    showRow(namedCall<NamedCall>(addNamed("\"", std::nullopt), @"\""));
    settle();
    UIImage* disc = [picture() image];
    const phone::Pixel color = test::pixel(disc, 40, 6);
    EXPECT_EQ(test::pixel(disc, 40, 40), color);
    EXPECT_EQ(test::pixel(disc, 30, 40), color);
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

TEST_F(RecentsList, MonogramsOffTheAddressBookIsNotAskedForInitials) {
    startWithList();
    [[Utils queue] setSuspended:YES];
    expectInitialsAskedByTheSettingAlone(uidCall(addWithPhoto(kRed)));
    [[Utils queue] setSuspended:NO];
    settle();
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

void PrintTo(const PlaceholderFile& file, std::ostream* out) { *out << file.profile; }

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
                                         PlaceholderFile{"ipad2-6.1", "recent.png"}),
                         test::ParameterName());

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

TEST_F(RecentsList, TheFeatureSwitchedOffWhileTheRowIsMadeTakesNoInitials) {
    startWithList();
    replaceBundlePicture("recent", kRed);
    replaceBundlePicture("user_monogram_round", kYellow);
    FlippingUidCall* call = namedCall<FlippingUidCall>(addNamed("Ann", "Lee"), @"Ann Lee");
    call->flip = @"isZelkaCBEnabled";
    showRow(call);
    EXPECT_TRUE(shows(cell(), kRed));
    settle();
    // Monograms are still on, but nobody has told the letters: the silhouette.
    EXPECT_TRUE(shows(cell(), kYellow));
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

TEST_F(RecentsList, AChangeWhileItsViewIsLoadedIsNotHeard) {
    startWithList();
    controller_->table = [[[NotedTable alloc] initWithFrame:CGRectMake(0, 0, 320, 480)] autorelease];
    controller_->postedWhileLoading = @"com.norvex.ZelkaSettingsChangedNotification";
    [controller_ viewDidLoad];
    EXPECT_EQ(happened(), "loaded ");
}

TEST_F(RecentsList, StopsListeningAfterTheHostsOwnEnd) {
    startWithList();
    [controller_ viewDidLoad];
    static id ending;
    ending = controller_;
    forget();
    method_setImplementation(
        class_getInstanceMethod([NSNotificationCenter class], @selector(removeObserver:)),
        (IMP) + [](id, SEL, id observer) {
            if (observer == ending) [hostEvents() appendString:@"removed "];
        });
    [controller_ release];
    EXPECT_EQ(happened(), "dealloc removed ");
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
