#include "tests/support/property_list.h"
#include "tests/unit/hooks/hook_test.h"

// Equal to every other one.
@interface EqualGenerator : ABMonogrammer
@end
@implementation EqualGenerator
- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:[ABMonogrammer class]];
}
- (NSUInteger)hash {
    return 1;
}
@end

namespace {

using test::kGreen;
using test::kRed;
using test::kYellow;

class Monogrammer : public test::HookTest {
  protected:
    explicit Monogrammer(const char* profile = "iphone6-8.4") : HookTest(profile) {}

    // CallBar's generator is the first that its controller answers.
    void startWithGenerator(const char* bundleIdentifier = "com.apple.springboard") {
        start(bundleIdentifier);
        replaceBundlePicture("user_monogram_round", kYellow);
        replaceBundlePicture("user_monogram", kYellow);
        generator_ = [[ABMonogrammer alloc] initWithDiameter:60];
        system_ = [[ABMonogrammer alloc] initWithDiameter:60];
        CallBarControllerModern* controller = [[[CallBarControllerModern alloc] init] autorelease];
        controller->generator = generator_;
        [controller monogrammer];
        flag_ = 42;
    }

    static UIImage* initials(ABMonogrammer* of, NSString* text = @"AL") {
        return [[of _copyMonogramWithInitials:text] autorelease];
    }
    static UIImage* fromData(ABMonogrammer* of, NSData* bytes) {
        return [[of _copyMonogramWithImageData:bytes] autorelease];
    }
    UIImage* person(ABMonogrammer* of, int contact) {
        ABRecordRef record = contact > 0 ? [[ABUIPerson personWithRecordID:contact] record] : nullptr;
        return [[of monogramForPerson:record isPersonImage:&flag_] autorelease];
    }
    // The grey of the system's disc, near its upper edge.
    static bool isSystemDisc(UIImage* image) { return test::near(test::pixel(image, 60, 7), {163, 169, 183, 255}, 10); }
    static bool isMiddle(UIImage* image, test::Rgb color) {
        return test::near(middle(image), {color.r, color.g, color.b, 255}, 3);
    }
    // Whether the picture is white exactly where the generator's font draws the letters, whatever its disc's colour.
    bool showsInGeneratorsFont(UIImage* picture, NSString* letters) {
        UIFont* font = [generator_ font];
        UIImage* drawn = [Utils monogramImage:letters size:CGSizeMake(60, 60) color:[UIColor blackColor] font:font];
        for (int y = 0; y < 120; y += 3)
            for (int x = 30; x < 90; x += 3) {
                const bool white = test::pixel(drawn, x, y).r > 250;
                if (test::near(test::pixel(picture, x, y), {255, 255, 255, 255}, 5) != white) return false;
            }
        return true;
    }
    static std::string sizeOf(UIImage* image) {
        return [[NSString stringWithFormat:@"%g x %g", [image size].width, [image size].height] UTF8String];
    }

    // Of somebody with a photo, with monograms on and off.
    void expectInitialsAskedByTheSettingAlone() {
        ABRecordRef ann = [[ABUIPerson personWithRecordID:addWithPhoto(kGreen)] record];
        for (const BOOL monograms : {YES, NO}) {
            [settings() setIsMonogramEnabled:monograms];
            [Utils clearImageCache];
            const int before = test::sqliteCalls().prepared;
            [[generator_ monogramForPerson:ann isPersonImage:&flag_] release];
            // One statement reads the photo, another the name.
            EXPECT_EQ(test::sqliteCalls().prepared - before, monograms ? 2 : 1);
        }
    }

    ABMonogrammer* generator_ = nil;
    ABMonogrammer* system_ = nil;
    BOOL flag_ = 42;
};

TEST_F(Monogrammer, InitialsAreDrawnByTheLibraryAtSixtyPoints) {
    startWithGenerator();
    UIImage* picture = initials(generator_);
    EXPECT_EQ(sizeOf(picture), "60 x 60");
    EXPECT_FALSE(isSystemDisc(picture));
    EXPECT_EQ(test::pixel(picture, 2, 2).a, 0);
}

TEST_F(Monogrammer, InitialsAreDrawnInTheGeneratorsFont) {
    startWithGenerator();
    EXPECT_TRUE(showsInGeneratorsFont(initials(generator_), @"AL"));
    EXPECT_FALSE(showsInGeneratorsFont(initials(generator_), @"ZY"));
}

TEST_F(Monogrammer, SquarePersonsInitialsAreDrawnInTheGeneratorsFont) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    UIImage* picture = person(generator_, addNamed("Ann", "Lee"));
    EXPECT_TRUE(showsInGeneratorsFont(picture, @"AL"));
    EXPECT_FALSE(showsInGeneratorsFont(picture, @"ZY"));
}

TEST_F(Monogrammer, EveryResultIsTheCallersToRelease) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addWithPhoto(kRed);
    UIImage* pictures[4];
    @autoreleasepool {
        pictures[0] = [generator_ _copyMonogramWithInitials:@"AL"];
        pictures[1] = [generator_ _copyMonogramWithImageData:test::data(test::bmp(8, 8, kRed))];
        pictures[2] = [generator_ _copyMonogramWithImageData:nil];
        pictures[3] = [generator_ monogramForPerson:[[ABUIPerson personWithRecordID:ann] record] isPersonImage:&flag_];
    }
    [Utils clearImageCache];
    for (UIImage* picture : pictures) {
        EXPECT_EQ([picture retainCount], 1u);
        [picture release];
    }
}

TEST_F(Monogrammer, ImageDataIsShownInTheLibrarysShape) {
    startWithGenerator();
    UIImage* picture = fromData(generator_, test::data(test::bmp(8, 8, kRed)));
    EXPECT_EQ(sizeOf(picture), "80 x 80");
    EXPECT_TRUE(isMiddle(picture, kRed));
}

TEST_F(Monogrammer, EmptyAndMissingImageDataGiveTheDefaultPicture) {
    startWithGenerator();
    EXPECT_TRUE(isMiddle(fromData(generator_, [NSData data]), kYellow));
    EXPECT_TRUE(isMiddle(fromData(generator_, nil), kYellow));
    EXPECT_EQ(fromData(system_, nil), nil);
}

TEST_F(Monogrammer, OneByteOfImageDataIsDecodedAndGivesAnEmptyPicture) {
    startWithGenerator();
    UIImage* picture = fromData(generator_, test::data("x"));
    ASSERT_NE(picture, nil);
    EXPECT_TRUE(test::isTransparent(picture));
}

TEST_F(Monogrammer, RoundedPersonsKeepTheSystemsPicture) {
    startWithGenerator();
    const int ann = addNamed("Ann", "Lee");
    UIImage* picture = person(generator_, ann);
    EXPECT_TRUE(isSystemDisc(picture));
    EXPECT_TRUE(test::samePixels(picture, person(system_, ann)));
    EXPECT_EQ([Utils getContactImageInCache:ann], nil);
    // The two others are the library's all the same.
    EXPECT_FALSE(isSystemDisc(initials(generator_)));
    EXPECT_TRUE(isMiddle(fromData(generator_, nil), kYellow));
}

TEST_F(Monogrammer, ACallerWithoutFlagGetsTheSamePictures) {
    startWithGenerator();
    ABRecordRef ann = [[ABUIPerson personWithRecordID:addWithPhoto(kGreen)] record];
    for (const BOOL rounded : {YES, NO}) {
        [settings() setIsRoundedPicsEnabled:rounded];
        UIImage* flagged = [[generator_ monogramForPerson:ann isPersonImage:&flag_] autorelease];
        UIImage* picture = [[generator_ monogramForPerson:ann isPersonImage:nullptr] autorelease];
        EXPECT_TRUE(isMiddle(picture, kGreen));
        EXPECT_TRUE(test::samePixels(picture, flagged));
        UIImage* nobody = [[generator_ monogramForPerson:nullptr isPersonImage:nullptr] autorelease];
        EXPECT_TRUE(isMiddle(nobody, kYellow));
    }
}

TEST_F(Monogrammer, NobodyIsTheDefaultPictureRoundedOrNot) {
    startWithGenerator();
    for (const BOOL rounded : {YES, NO}) {
        [settings() setIsRoundedPicsEnabled:rounded];
        EXPECT_TRUE(isMiddle(person(generator_, 0), kYellow));
        EXPECT_EQ(flag_, 42);
    }
}

TEST_F(Monogrammer, SquarePersonsGetTheirPhotoAndTheFlagIsLeftAlone) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addWithPhoto(kGreen);
    UIImage* picture = person(generator_, ann);
    EXPECT_TRUE(isMiddle(picture, kGreen));
    EXPECT_EQ(flag_, 42);
    EXPECT_EQ([Utils getContactImageInCache:ann], picture);
    EXPECT_EQ(person(generator_, ann), picture);
}

TEST_F(Monogrammer, SquarePersonsWithoutPhotoGetASixtyPointMonogramThatIsCached) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addNamed("Ann", "Lee");
    UIImage* picture = person(generator_, ann);
    EXPECT_EQ(sizeOf(picture), "60 x 60");
    EXPECT_EQ([Utils getContactImageInCache:ann], picture);
    EXPECT_EQ(flag_, 42);
}

TEST_F(Monogrammer, ACachedPictureOfTheContactIsUsed) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addWithPhoto(kGreen);
    UIImage* cached = test::redPicture(9, 9, 1);
    [Utils setContactImage:cached contactId:ann];
    EXPECT_EQ(person(generator_, ann), cached);
}

TEST_F(Monogrammer, MonogramsOffThePersonGetsTheRecentPicture) {
    startWithGenerator();
    replaceBundlePicture("recent", kRed);
    [settings() setIsRoundedPicsEnabled:NO];
    [settings() setIsMonogramEnabled:NO];
    EXPECT_TRUE(isMiddle(person(generator_, addNamed("Ann", "Lee")), kRed));
}

TEST_F(Monogrammer, TheAddressBookIsAskedForInitialsOnlyWhileMonogramsAreOn) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    expectInitialsAskedByTheSettingAlone();
}

TEST_F(Monogrammer, AnUnsavedPersonKeepsTheSystemsPicture) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addNamed("Ann", "Lee");
    // A person that the book has not stored yet has no ID.
    ABRecordRef record = [[ABUIPerson personWithRecordID:ann] record];
    Ivar identifier = class_getInstanceVariable(object_getClass((id)record), "_recordID");
    for (const int none : {0, -1}) {
        auto* start = static_cast<char*>(const_cast<void*>(record));
        *reinterpret_cast<ABRecordID*>(start + ivar_getOffset(identifier)) = none;
        UIImage* picture = [[generator_ monogramForPerson:record isPersonImage:&flag_] autorelease];
        EXPECT_TRUE(isSystemDisc(picture)) << none;
        EXPECT_EQ(flag_, NO);
    }
}

TEST_F(Monogrammer, AnotherGeneratorAlwaysGetsTheSystemsPictures) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addNamed("Ann", "Lee");
    EXPECT_TRUE(isSystemDisc(initials(system_)));
    EXPECT_TRUE(isSystemDisc(person(system_, ann)));
    EXPECT_EQ(flag_, NO);
    EXPECT_TRUE(isSystemDisc(person(system_, 0)));
    EXPECT_EQ(sizeOf(fromData(system_, test::data(test::bmp(8, 8, kRed)))), "60 x 60");
}

TEST_F(Monogrammer, AnotherGeneratorThatIsEqualGetsTheSystemsPicturesToo) {
    start();
    generator_ = [[EqualGenerator alloc] initWithDiameter:60];
    system_ = [[EqualGenerator alloc] initWithDiameter:60];
    ASSERT_TRUE([system_ isEqual:generator_] && [generator_ isEqual:system_]);
    CallBarControllerModern* controller = [[[CallBarControllerModern alloc] init] autorelease];
    controller->generator = generator_;
    [controller monogrammer];
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addNamed("Ann", "Lee");
    EXPECT_FALSE(isSystemDisc(initials(generator_)));
    EXPECT_FALSE(isSystemDisc(person(generator_, ann)));
    EXPECT_TRUE(isSystemDisc(initials(system_)));
    EXPECT_TRUE(isSystemDisc(person(system_, ann)));
    EXPECT_EQ(fromData(system_, nil), nil);
}

TEST_F(Monogrammer, NothingRememberedMeansTheSystemsPictures) {
    start();
    ABMonogrammer* generator = [[[ABMonogrammer alloc] initWithDiameter:60] autorelease];
    EXPECT_TRUE(isSystemDisc(initials(generator)));
    EXPECT_TRUE(isSystemDisc(person(generator, 0)));
    EXPECT_EQ(fromData(generator, nil), nil);
}

TEST_F(Monogrammer, TheViewServiceKeepsTheSystemsPictures) {
    startWithGenerator("net.vantrel.callbarviewservice");
    [settings() setIsRoundedPicsEnabled:NO];
    EXPECT_TRUE(isSystemDisc(initials(generator_)));
    EXPECT_EQ(fromData(generator_, nil), nil);
    EXPECT_TRUE(isSystemDisc(person(generator_, addNamed("Ann", "Lee"))));
    EXPECT_TRUE(isSystemDisc(person(generator_, 0)));
}

TEST_F(Monogrammer, AnotherProcessKeepsTheSystemsPictures) {
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabled", true},
                                                        {"ZelkaCBEnabledRoundedPictures", true},
                                                        {"ZelkaCBEnabledMonogramPictures", true},
                                                        {"ZelkaCBEnabledFavorites", true},
                                                        {"ZelkaCBEnabledRecents", true},
                                                        {"ZelkaCBEnabledContacts", true}}));
    startWithGenerator("com.apple.mobilephone");
    ASSERT_EQ(test::text([settings() description]),
              "Zelka For Call Enabled: 1\nRound Pictures Enabled: 1\nMonogram Enabled: 1\nZelka on Favorites: 1\n"
              "Zelka on Recents:1\nZelka on Contacts:1.");
    // Round persons are the system's everywhere.
    [settings() setIsRoundedPicsEnabled:NO];
    EXPECT_TRUE(isSystemDisc(initials(generator_)));
    EXPECT_EQ(fromData(generator_, nil), nil);
    EXPECT_EQ(sizeOf(fromData(generator_, test::data(test::bmp(8, 8, kRed)))), "60 x 60");
    EXPECT_TRUE(isSystemDisc(person(generator_, addNamed("Ann", "Lee"))));
    EXPECT_TRUE(isSystemDisc(person(generator_, 0)));
}

TEST_F(Monogrammer, FavoritesSwitchedOffAndOnAgainTakeEffectAtOnce) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    const int ann = addNamed("Ann", "Lee");
    for (NSString* key in @[ @"isShowPicturesOnFavorites", @"isZelkaCBEnabled" ]) {
        [settings() setValue:@(NO) forKey:key];
        EXPECT_TRUE(isSystemDisc(initials(generator_)));
        EXPECT_TRUE(isSystemDisc(person(generator_, ann)));
        EXPECT_EQ(fromData(generator_, nil), nil);
        [settings() setValue:@(YES) forKey:key];
        EXPECT_FALSE(isSystemDisc(initials(generator_)));
        EXPECT_FALSE(isSystemDisc(person(generator_, ann)));
    }
}

struct System6Monogrammer : Monogrammer {
    System6Monogrammer() : Monogrammer("iphone4s-6.1") {}
};

TEST_F(System6Monogrammer, BeforeSystem7AContactWithoutPhotoGetsTheRecentPicture) {
    startWithGenerator();
    replaceBundlePicture("recent", kRed);
    [settings() setIsRoundedPicsEnabled:NO];
    EXPECT_TRUE(isMiddle(person(generator_, addNamed("Ann", "Lee")), kRed));
}

TEST_F(System6Monogrammer, TheSettingAloneDecidesWhetherInitialsAreAsked) {
    startWithGenerator();
    [settings() setIsRoundedPicsEnabled:NO];
    ASSERT_FALSE([Utils isMonogramEnabled]);
    expectInitialsAskedByTheSettingAlone();
}

}  // namespace
