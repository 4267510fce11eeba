#include <math.h>

#include <filesystem>

#include "tests/support/extension.h"
#include "tests/support/pictures.h"
#include "tests/unit/render/random_draws.h"

namespace {

using phone::Pixel;
using test::near;
using test::pixel;
using test::samePixels;

constexpr Pixel kBlue{0, 0, 255, 255};
constexpr CGSize kSmall = {40, 40};

struct Box {
    int left = 1000, top = 1000, right = -1, bottom = -1, pixels = 0;
};

// Where the picture is white.
Box lettersOf(UIImage* picture) {
    Box box;
    for (int y = 0; y < static_cast<int>(test::pixelsHigh(picture)); ++y)
        for (int x = 0; x < static_cast<int>(test::pixelsWide(picture)); ++x) {
            if (!near(pixel(picture, x, y), {255, 255, 255, 255}, 40)) continue;
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y),
                   box.pixels + 1};
        }
    return box;
}

double coveredPixels(UIImage* picture) {
    double sum = 0;
    for (int y = 0; y < static_cast<int>(test::pixelsHigh(picture)); ++y)
        for (int x = 0; x < static_cast<int>(test::pixelsWide(picture)); ++x) sum += pixel(picture, x, y).a / 255.0;
    return sum;
}

class Monograms : public test::ExtensionTest {
  protected:
    using ExtensionTest::ExtensionTest;
    void start(bool rounded = true, bool monograms = true) {
        boot();
        [settings() setIsRoundedPicsEnabled:rounded];
        [settings() setIsMonogramEnabled:monograms];
    }
    UIImage* draw(NSString* text, CGSize size = kSmall, CGFloat fontSize = 17) {
        return [Utils monogramImage:text size:size color:[UIColor blueColor] font:[UIFont systemFontOfSize:fontSize]];
    }
    NSString* resource(const char* file) {
        return [NSString stringWithFormat:@"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/%s", file];
    }
    void removeResource(const char* file) {
        std::error_code error;
        EXPECT_TRUE(std::filesystem::remove(root.host([resource(file) UTF8String]), error)) << file;
    }
};

TEST_F(Monograms, HaveTheirSizeInPointsAtTheScreensScale) {
    start();
    UIImage* picture = draw(@"ab");
    EXPECT_EQ([picture size].width, 40);
    EXPECT_EQ([picture size].height, 40);
    EXPECT_EQ([picture scale], 2);
    EXPECT_EQ(test::pixelsWide(picture), 80u);
}

TEST_F(Monograms, ShowWhiteCapitalsCentredInTheirLineBox) {
    start();
    UIImage* picture = draw(@"ab");
    EXPECT_TRUE(samePixels(picture, draw(@"AB")));
    EXPECT_FALSE(samePixels(picture, draw(@"CD")));
    const Box letters = lettersOf(picture);
    ASSERT_GT(letters.pixels, 60);
    EXPECT_NEAR(letters.left, 79 - letters.right, 4);
    // The box of 21 points that begins at 9.5 from the top.
    EXPECT_GE(letters.top, 19);
    EXPECT_LE(letters.bottom, 61);
    EXPECT_GT(letters.bottom - letters.top, 17);
}

// What a square of blue with the letters in a box of 21 points, 9.5 from the top, comes to.
UIImage* lettersInTheirBox(NSString* letters) {
    UIGraphicsBeginImageContextWithOptions(kSmall, NO, 2);
    [[UIColor blueColor] setFill];
    UIRectFill(CGRectMake(0, 0, 40, 40));
    [[UIColor whiteColor] setFill];
    [letters drawInRect:CGRectMake(0, 9.5, 40, 21)
               withFont:[UIFont systemFontOfSize:17]
          lineBreakMode:NSLineBreakByTruncatingTail
              alignment:NSTextAlignmentCenter];
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return [picture imageWithRoundedCornersRadius:5];
}

TEST_F(Monograms, AreTheSameAsTheirCapitalsDrawnCentredInTheLineBox) {
    start(false);
    EXPECT_TRUE(samePixels(draw(@"ab"), lettersInTheirBox(@"AB")));
}

TEST_F(Monograms, CutOffAtTheTailWhatDoesNotFitTheLineBox) {
    start(false);
    for (NSString* letters in @[ @"WWWWWWWWWWWW", @"ABCDEFGHIJKL" ])
        EXPECT_TRUE(samePixels(draw(letters), lettersInTheirBox(letters))) << [letters UTF8String];
}

TEST_F(Monograms, AreSmoothDiscsWhenRounded) {
    start(true);
    UIImage* picture = draw(@"A");
    EXPECT_NEAR(coveredPixels(picture), M_PI * 40 * 40, 40);
    for (int x : {0, 79})
        for (int y : {0, 79}) EXPECT_EQ(pixel(picture, x, y).a, 0);
    EXPECT_TRUE(near(pixel(picture, 40, 5), kBlue));
    EXPECT_TRUE(near(pixel(picture, 5, 40), kBlue));
    EXPECT_TRUE(near(pixel(picture, 74, 40), kBlue));
    EXPECT_TRUE(near(pixel(picture, 40, 74), kBlue));
}

TEST_F(Monograms, AreSquaresWithCornersOfFivePointsWhenNotRounded) {
    start(false);
    UIImage* picture = draw(@"A");
    EXPECT_NEAR(coveredPixels(picture), 80 * 80 - (4 - M_PI) * 100, 6);
    for (int x : {0, 79})
        for (int y : {0, 79}) EXPECT_LT(pixel(picture, x, y).a, 10);
    EXPECT_EQ(pixel(picture, 11, 0), kBlue);
    EXPECT_EQ(pixel(picture, 0, 68), kBlue);
}

TEST_F(Monograms, CutOffTextThatDoesNotFit) {
    start(false);
    UIImage* picture = draw(@"WWWWWWWWWWWW");
    const Box letters = lettersOf(picture);
    EXPECT_GT(letters.pixels, 60);
    EXPECT_LE(letters.bottom, 61);
    EXPECT_FALSE(samePixels(picture, draw(@"WW")));
}

TEST_F(Monograms, SurviveEveryKindOfText) {
    start();
    const unichar high[] = {0xD83D};
    const unichar low[] = {0xDE00, 'x'};
    NSMutableString* longName = [NSMutableString string];
    for (int i = 0; i < 10000; ++i) [longName appendString:@"é"];
    NSArray* texts = @[
        @"😀", @"مح", @"山太", @"ß", @"\u0301", @"e\u0301\u0302\u0303", @"\n", @"\t", @"\u202Eab",
        @"👩‍👩‍👧‍👦", [NSString stringWithCharacters:high length:1],
        [NSString stringWithCharacters:low length:2], longName
    ];
    for (NSString* text in texts) {
        UIImage* picture = draw(text);
        EXPECT_EQ([picture size].width, 40);
        EXPECT_TRUE(near(pixel(picture, 40, 3), kBlue));
        EXPECT_TRUE(near(pixel(picture, 40, 76), kBlue));
        EXPECT_EQ(pixel(picture, 0, 0).a, 0);
    }
}

TEST_F(Monograms, WithoutAnAreaAreNone) {
    start();
    EXPECT_EQ(draw(@"A", CGSizeMake(0, 0)), nil);
    EXPECT_EQ(([Utils monogramImage:@"A" contactID:4 size:CGSizeMake(0, 40)]), nil);
    EXPECT_EQ([Utils getContactImageInCache:4], nil);
}

TEST_F(Monograms, OfAContactAreKeptWhateverIsAskedForLater) {
    start();
    UIImage* first = [Utils monogramImage:@"AB" contactID:7 size:kSmall color:[UIColor blueColor]];
    EXPECT_EQ(([Utils monogramImage:@"CD" contactID:7 size:CGSizeMake(60, 60) color:[UIColor redColor]]), first);
    EXPECT_EQ(([Utils monogramImage:@"CD" contactID:7]), first);
    EXPECT_EQ([Utils getMonogramImage:7], first);
    EXPECT_EQ(([Utils getMonogramImageFromName:@"X" contactID:7]), first);
    EXPECT_EQ([Utils getContactImageInCache:7], first);
}

TEST_F(Monograms, OfNobodyAreDrawnAnewAndNotKept) {
    start();
    for (NSInteger nobody : {0L, -1L}) {
        UIImage* first = [Utils monogramImage:@"AB" contactID:nobody];
        EXPECT_NE(first, nil);
        EXPECT_NE(([Utils monogramImage:@"AB" contactID:nobody]), first);
        EXPECT_EQ([Utils getContactImageInCache:static_cast<int>(nobody)], nil);
        EXPECT_NE([Utils getMonogramImage:nobody], nil);
        EXPECT_EQ([Utils getContactImageInCache:static_cast<int>(nobody)], nil);
    }
}

TEST_F(Monograms, TakeTheirDefaultsFromTheFullPaletteWithoutAFont) {
    start(false);
    auto backgroundOf = [](UIImage* picture) { return pixel(picture, 40, 2); };
    constexpr Pixel color{0x9f, 0x9c, 0xd2, 255};  // the third of the full palette
    test::scriptRandomDraws({1, 1});
    EXPECT_TRUE(near(backgroundOf([Utils monogramImage:@"A"]), color));
    test::scriptRandomDraws({1, 1});
    EXPECT_TRUE(near(backgroundOf([Utils monogramImage:@"A" size:CGSizeMake(60, 60)]), color));
    test::scriptRandomDraws({1});
    EXPECT_TRUE(near(backgroundOf([Utils monogramImage:@"A" contactID:1]), color));
    UIColor* third = [UIColor ZelkaCBColorWithHexaCode:0x9f9cd2];
    UIImage* spelt = [Utils monogramImage:@"A" size:kSmall color:third font:[UIFont systemFontOfSize:17]];
    EXPECT_TRUE(samePixels([Utils getContactImageInCache:1], spelt));
}

TEST_F(Monograms, AreDarkWithAFontOfTheCallers) {
    start(false);
    auto backgroundOf = [](UIImage* picture) { return pixel(picture, 40, 2); };
    constexpr Pixel color{0x57, 0x6c, 0x93, 255};  // the third of the dark palette
    UIFont* font = [UIFont systemFontOfSize:20];
    test::scriptRandomDraws({1, 1});
    UIImage* picture = [Utils monogramImage:@"A" size:CGSizeMake(60, 60) font:font];
    EXPECT_TRUE(near(backgroundOf(picture), color));
    EXPECT_EQ([picture size].width, 60);
    test::scriptRandomDraws({1});
    EXPECT_TRUE(near(backgroundOf([Utils monogramImage:@"A" contactID:1 size:kSmall font:font]), color));
}

TEST_F(Monograms, FromANameTakeItsInitials) {
    start(false);
    test::scriptRandomDraws({1, 1});
    UIImage* picture = [Utils getMonogramImageFromName:@"anna maria zuse"];
    test::scriptRandomDraws({1, 1});
    EXPECT_TRUE(samePixels(picture, [Utils monogramImage:@"AZ"]));
    UIImage* kept = [Utils getMonogramImageFromName:@"anna maria zuse" contactID:3];
    EXPECT_EQ([Utils getContactImageInCache:3], kept);
}

TEST_F(Monograms, FromANameAreKeptUnderTheEmailAddress) {
    start();
    UIImage* kept = [Utils getMonogramImageFromName:@"Anna" email:@"anna@example.com"];
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"anna@example.com"], kept);
    EXPECT_EQ(([Utils getMonogramImageFromName:@"Other" email:@"anna@example.com"]), kept);
    UIImage* unkept = [Utils getMonogramImageFromName:@"Anna" email:nil];
    EXPECT_NE(unkept, nil);
    EXPECT_NE(([Utils getMonogramImageFromName:@"Anna" email:nil]), unkept);
    EXPECT_EQ([Utils getContactImageInCache:0], nil);
}

TEST_F(Monograms, WithoutTextAreTheSilhouetteOverAColour) {
    start(true);
    test::scriptRandomDraws({1, 1});
    UIImage* picture = [Utils monogramImage:@"" size:kSmall color:[UIColor redColor] font:[UIFont systemFontOfSize:17]];
    UIImage* silhouette = [UIImage imageWithContentsOfFile:resource("user_monogram_round@2x.png")];
    ASSERT_NE(silhouette, nil);
    EXPECT_EQ([picture size].width, [silhouette size].width);
    EXPECT_EQ(pixel(picture, 0, 0).a, 0);
    test::scriptRandomDraws({5, 5, 1, 1});  // the first colour is drawn for letters and not used
    EXPECT_TRUE(samePixels(picture, [Utils monogramImage:nil]));
    EXPECT_FALSE(samePixels(picture, silhouette));
}

TEST_F(Monograms, OfASilhouetteAreOverTheGivenColour) {
    start(false);
    UIImage* silhouette = [UIImage imageWithContentsOfFile:resource("user_monogram@2x.png")];
    UIImage* picture = [Utils getMonogramImage:3 color:[UIColor blueColor]];
    EXPECT_TRUE(samePixels(picture, [Utils getMonogramImage:0
                                                     source:silhouette
                                                       size:[silhouette size]
                                                      color:[UIColor blueColor]]));
    EXPECT_FALSE(samePixels(picture, [Utils getMonogramImage:0 color:[UIColor redColor]]));
    EXPECT_EQ([Utils getContactImageInCache:3], picture);
    EXPECT_EQ(([Utils getMonogramImage:3 color:[UIColor redColor]]), picture);
}

TEST_F(Monograms, WithoutTextAndSwitchedOffAreTheSilhouetteAsItIs) {
    start(true, false);
    UIImage* round = [UIImage imageWithContentsOfFile:resource("user_monogram_round@2x.png")];
    UIImage* square = [UIImage imageWithContentsOfFile:resource("user_monogram@2x.png")];
    EXPECT_TRUE(samePixels([Utils monogramImage:@"" contactID:5], round));
    [settings() setIsRoundedPicsEnabled:NO];
    EXPECT_TRUE(samePixels([Utils monogramImage:@"" contactID:6], square));
    EXPECT_FALSE(samePixels(round, square));
}

TEST_F(Monograms, SwitchedOffAreTheRecentPicture) {
    start(true, false);
    UIImage* recent = [Utils getImage:resource("recent@2x.png")];
    EXPECT_FALSE(test::isTransparent(recent));
    EXPECT_EQ(draw(@"AB"), recent);
    EXPECT_EQ([Utils defaultImage], recent);
    EXPECT_EQ(([Utils monogramImage:@"AB" contactID:9]), recent);
    EXPECT_EQ([Utils getContactImageInCache:9], recent);
}

TEST_F(Monograms, SwitchedOnGiveASilhouetteForTheDefaultPicture) {
    start();
    test::scriptRandomDraws({1, 1});
    UIImage* picture = [Utils defaultImage];
    test::scriptRandomDraws({1, 1});
    EXPECT_TRUE(samePixels(picture, [Utils getMonogramImage]));
    EXPECT_NE([Utils defaultImage], picture);
}

TEST_F(Monograms, LogAMissingSilhouette) {
    boot();
    removeResource("user_monogram_round@2x.png");
    removeResource("user_monogram_round.png");
    removeResource("user_monogram_round@3x.png");
    EXPECT_EQ([Utils getMonogramImage:8], nil);
    EXPECT_EQ([Utils monogramImage:nil contactID:8], nil);
    EXPECT_EQ([Utils getContactImageInCache:8], nil);
    EXPECT_EQ(loggedLines("com.norvex.ZelkaCB: Error => +[ZelkaCBUtils getMonogramImage:source:size:color:], [Line "
                          "1329], Source image is nil."),
              2);
}

TEST_F(Monograms, OverASourceAreClippedOnlyWhenRounded) {
    start(true);
    UIImage* source = test::redPicture(40, 40, 2);
    UIImage* round = [Utils getMonogramImage:1 source:source size:kSmall color:[UIColor blueColor]];
    EXPECT_EQ([round size].width, 40);
    EXPECT_EQ(test::pixelsWide(round), 80u);
    EXPECT_NEAR(coveredPixels(round), M_PI * 40 * 40, 40);
    EXPECT_EQ([Utils getContactImageInCache:1], round);
    [settings() setIsRoundedPicsEnabled:NO];
    UIImage* square = [Utils getMonogramImage:2 source:source size:kSmall color:[UIColor blueColor]];
    EXPECT_EQ(coveredPixels(square), 6400);
    EXPECT_EQ(([Utils getMonogramImage:2 source:nil size:kSmall color:nil]), square);
}

TEST_F(Monograms, OverATransparentSourceShowTheColour) {
    start(false);
    UIGraphicsBeginImageContextWithOptions(kSmall, NO, 2);
    UIImage* nothing = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    UIImage* square = [Utils getMonogramImage:0 source:nothing size:kSmall color:[UIColor blueColor]];
    EXPECT_NEAR(coveredPixels(square), 80 * 80 - (4 - M_PI) * 100, 6);
    EXPECT_EQ(pixel(square, 40, 40), kBlue);
    // A source of another size than the view is the size of the picture.
    UIImage* larger = [Utils getMonogramImage:0 source:nothing size:CGSizeMake(20, 20) color:[UIColor blueColor]];
    EXPECT_EQ([larger size].width, 40);
    EXPECT_NEAR(coveredPixels(larger), 40 * 40 - (4 - M_PI) * 100, 6);
}

TEST_F(Monograms, SwitchedOffGiveTheVerySource) {
    start(true, false);
    UIImage* source = test::redPicture(10, 10, 1);
    EXPECT_EQ(([Utils getMonogramImage:1 source:source size:kSmall color:[UIColor blueColor]]), source);
    EXPECT_EQ([Utils getContactImageInCache:1], nil);
    EXPECT_EQ(([Utils getMonogramImage:1 source:nil size:kSmall color:nil]), nil);
    EXPECT_EQ(log().find("Source image is nil."), std::string::npos);
}

TEST_F(Monograms, SwitchedOffAreTheCachedPictureUnlessASourceIsGiven) {
    start(true, false);
    UIImage* kept = test::redPicture(10, 10, 1);
    UIImage* source = test::redPicture(20, 20, 1);
    [Utils setContactImage:kept contactId:5];
    EXPECT_EQ(([Utils getMonogramImage:5 source:source size:kSmall color:[UIColor blueColor]]), source);
    EXPECT_EQ(([Utils getMonogramImage:5 color:[UIColor blueColor]]), kept);
    test::scriptRandomDraws({1});
    EXPECT_EQ([Utils getMonogramImage:5], kept);
    EXPECT_EQ(test::scriptedDrawsLeft(), 1) << "a colour was drawn for nothing";
}

class MonogramsOnAThreefoldScreen : public Monograms {
  protected:
    MonogramsOnAThreefoldScreen() : Monograms("iphone6plus-8.4") {}
};

TEST_F(MonogramsOnAThreefoldScreen, TakeTheirSilhouetteFromTheThreefoldFile) {
    start(true, false);
    for (const char* other :
         {"user_monogram_round.png", "user_monogram_round@2x.png", "user_monogram.png", "user_monogram@2x.png"})
        removeResource(other);
    UIImage* round = [Utils getMonogramImage:0];
    EXPECT_TRUE(samePixels(round, [UIImage imageWithContentsOfFile:resource("user_monogram_round@3x.png")]));
    EXPECT_EQ([round scale], 3);
    [settings() setIsRoundedPicsEnabled:NO];
    EXPECT_TRUE(
        samePixels([Utils getMonogramImage:0], [UIImage imageWithContentsOfFile:resource("user_monogram@3x.png")]));
}

class MonogramsOnSystem6 : public Monograms {
  protected:
    MonogramsOnSystem6() : Monograms("ipad2-6.1") {}
};

TEST_F(MonogramsOnSystem6, AreTheRecentPictureOfThePlainFile) {
    start(true, true);
    for (const char* other :
         {"recent@2x.png", "recent@3x.png", "user_monogram_round@2x.png", "user_monogram_round@3x.png"})
        removeResource(other);
    UIImage* picture = draw(@"AB");
    EXPECT_EQ(picture, [Utils getImage:resource("recent.png")]);
    EXPECT_FALSE(test::isTransparent(picture));
    EXPECT_TRUE(
        samePixels([Utils getMonogramImage], [UIImage imageWithContentsOfFile:resource("user_monogram_round.png")]));
}

}  // namespace
