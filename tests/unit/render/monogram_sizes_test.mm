// Monograms and silhouettes of other sizes than a list's, and those of nobody that the cache holds.
#include <math.h>

#include "tests/support/extension.h"
#include "tests/support/pictures.h"

namespace {

using phone::Pixel;
using test::near;
using test::pixel;

constexpr Pixel kRed{255, 0, 0, 255}, kBlue{0, 0, 255, 255};
constexpr const char* kBundle = "/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/";

double coveredPixels(UIImage* picture) {
    double sum = 0;
    for (int y = 0; y < static_cast<int>(test::pixelsHigh(picture)); ++y)
        for (int x = 0; x < static_cast<int>(test::pixelsWide(picture)); ++x) sum += pixel(picture, x, y).a / 255.0;
    return sum;
}

class MonogramSizes : public test::ExtensionTest {
  protected:
    // Puts artwork of that many points a side in the silhouette's place. The screen has two pixels a point.
    void replaceArtwork(int width, int height) {
        for (const char* name : {"user_monogram_round@2x.png", "user_monogram@2x.png"})
            root.write(std::string(kBundle) + name, test::bmp(width * 2, height * 2, test::kRed));
    }
};

TEST_F(MonogramSizes, OfRoundOnesFillTheirBoxThoughItIsNoSquare) {
    boot();
    for (CGSize size : {CGSizeMake(60, 40), CGSizeMake(40, 60), CGSizeMake(90, 30)}) {
        SCOPED_TRACE(([[NSString stringWithFormat:@"%g x %g", size.width, size.height] UTF8String]));
        UIImage* picture = [Utils monogramImage:@"i"
                                           size:size
                                          color:[UIColor blueColor]
                                           font:[UIFont systemFontOfSize:10]];
        const int width = static_cast<int>(size.width * 2), height = static_cast<int>(size.height * 2);
        EXPECT_NEAR(coveredPixels(picture), M_PI * width * height / 4, 60);
        EXPECT_TRUE(near(pixel(picture, 3, height / 2), kBlue));
        EXPECT_TRUE(near(pixel(picture, width - 4, height / 2), kBlue));
        EXPECT_TRUE(near(pixel(picture, width / 2, 3), kBlue));
        EXPECT_TRUE(near(pixel(picture, width / 2, height - 4), kBlue));
    }
}

TEST_F(MonogramSizes, OfRoundSilhouettesAreTheArtworks) {
    boot();
    for (int side : {24, 60, 100}) {
        SCOPED_TRACE(side);
        replaceArtwork(side, side);
        UIImage* picture = [Utils getMonogramImage:0 color:[UIColor blueColor]];
        EXPECT_EQ([picture size].width, side);
        EXPECT_EQ([picture size].height, side);
        EXPECT_NEAR(coveredPixels(picture), M_PI * side * side, side);
        EXPECT_TRUE(near(pixel(picture, side, side), kRed));
    }
}

TEST_F(MonogramSizes, OfSquareSilhouettesAreTheArtworks) {
    boot();
    [settings() setIsRoundedPicsEnabled:NO];
    for (CGSize size : {CGSizeMake(24, 16), CGSizeMake(70, 90)}) {
        SCOPED_TRACE(([[NSString stringWithFormat:@"%g x %g", size.width, size.height] UTF8String]));
        replaceArtwork(static_cast<int>(size.width), static_cast<int>(size.height));
        UIImage* picture = [Utils getMonogramImage:0 color:[UIColor blueColor]];
        EXPECT_EQ([picture size].width, size.width);
        EXPECT_EQ([picture size].height, size.height);
        EXPECT_EQ(coveredPixels(picture), size.width * size.height * 4);
        EXPECT_TRUE(near(pixel(picture, 1, 1), kRed));
    }
}

TEST_F(MonogramSizes, OfADiscOverASourceGoByTheSizeAskedForAndNotByTheSource) {
    boot();
    UIImage* source = test::redPicture(80, 80, 2);
    for (CGFloat side : {20, 60}) {
        UIImage* picture = [Utils getMonogramImage:0
                                            source:source
                                              size:CGSizeMake(side, side)
                                             color:[UIColor blueColor]];
        EXPECT_EQ([picture size].width, 80);
        EXPECT_NEAR(coveredPixels(picture), M_PI * side * side, side) << side;
        EXPECT_TRUE(near(pixel(picture, static_cast<int>(side), static_cast<int>(side)), kRed)) << side;
    }
}

TEST_F(MonogramSizes, OfADiscThatIsLargerThanItsSourceShowWhatOfItFallsOntoTheSource) {
    boot();
    UIImage* picture = [Utils getMonogramImage:0
                                        source:test::redPicture(40, 40, 2)
                                          size:CGSizeMake(60, 60)
                                         color:[UIColor blueColor]];
    EXPECT_EQ([picture size].width, 40);
    // 7 points from the corner is outside of a disc of 60 points, but would be inside of one of 40.
    EXPECT_EQ(pixel(picture, 14, 14).a, 0);
    EXPECT_TRUE(near(pixel(picture, 20, 20), kRed));
    EXPECT_TRUE(near(pixel(picture, 79, 79), kRed));
}

class MonogramsOfNobody : public test::ExtensionTest {
  protected:
    // Keeps a picture under the number.
    UIImage* keep(int nobody) {
        UIImage* kept = test::redPicture(9, 9, 1);
        [Utils setContactImage:kept contactId:nobody];
        return kept;
    }
};

TEST_F(MonogramsOfNobody, AreThePictureThatTheCacheHoldsUnderTheirNumber) {
    boot();
    UIFont* font = [UIFont systemFontOfSize:20];
    UIColor* blue = [UIColor blueColor];
    const CGSize size = CGSizeMake(60, 60);
    UIImage* source = test::redPicture(20, 20, 1);
    for (int nobody : {0, -1, -4711}) {
        SCOPED_TRACE(nobody);
        UIImage* kept = keep(nobody);
        EXPECT_EQ(([Utils monogramImage:@"AB" contactID:nobody]), kept);
        EXPECT_EQ(([Utils monogramImage:@"AB" contactID:nobody size:size]), kept);
        EXPECT_EQ(([Utils monogramImage:@"AB" contactID:nobody size:size font:font]), kept);
        EXPECT_EQ(([Utils monogramImage:@"AB" contactID:nobody size:size color:blue]), kept);
        EXPECT_EQ(([Utils monogramImage:@"AB" contactID:nobody size:size color:blue font:font]), kept);
        EXPECT_EQ(([Utils getMonogramImageFromName:@"Anna" contactID:nobody]), kept);
        EXPECT_EQ([Utils getMonogramImage:nobody], kept);
        EXPECT_EQ(([Utils getMonogramImage:nobody color:blue]), kept);
        EXPECT_EQ(([Utils getMonogramImage:nobody source:source size:size color:blue]), kept);
    }
}

TEST_F(MonogramsOfNobody, WithoutANumberAreThePictureThatTheCacheHoldsUnderZero) {
    boot();
    UIImage* kept = keep(0);
    UIFont* font = [UIFont systemFontOfSize:20];
    EXPECT_EQ([Utils monogramImage:@"AB"], kept);
    EXPECT_EQ(([Utils monogramImage:@"AB" size:CGSizeMake(60, 60)]), kept);
    EXPECT_EQ(([Utils monogramImage:@"AB" size:CGSizeMake(60, 60) font:font]), kept);
    EXPECT_EQ([Utils getMonogramImageFromName:@"Anna"], kept);
    EXPECT_EQ([Utils getMonogramImage], kept);
    EXPECT_EQ([Utils defaultImage], kept);
    EXPECT_EQ(([Utils getMonogramImageFromName:@"Anna" email:@"anna@example.com"]), kept);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"anna@example.com"], kept);
    // What is drawn and never looked up: letters of a given size, colour and font.
    EXPECT_NE(([Utils monogramImage:@"AB" size:CGSizeMake(60, 60) color:[UIColor blueColor] font:font]), kept);
}

}  // namespace
