// Pictures of another scale than the screen's, and pictures that are to be turned.
#include <math.h>

#include "tests/simulator/graphics/encoded_pictures.h"
#include "tests/support/extension.h"
#include "tests/support/pictures.h"

namespace {

using phone::Pixel;
using test::near;
using test::pixel;

constexpr Pixel kRed{255, 0, 0, 255}, kBlue{0, 0, 255, 255};
constexpr CGSize kSmall = {40, 40};

// "points x points at scale", with the pixels that these come to.
std::string shapeOf(UIImage* picture) {
    char text[96];
    snprintf(text, sizeof text, "%g x %g at %g: %zu x %zu", [picture size].width, [picture size].height,
             [picture scale], test::pixelsWide(picture), test::pixelsHigh(picture));
    return text;
}

// The screen has two pixels a point.
class Scales : public test::ExtensionTest {};

TEST_F(Scales, OfPicturesOverAColourAreTheScreensWhateverTheSources) {
    boot();
    for (CGFloat scale : {1, 2, 3}) {
        UIImage* source = test::redPicture(40, 40, scale);
        ASSERT_EQ([source scale], scale);
        UIImage* picture = [Utils getMonogramImage:0 source:source size:kSmall color:[UIColor blueColor]];
        EXPECT_EQ(shapeOf(picture), "40 x 40 at 2: 80 x 80") << scale;
        EXPECT_TRUE(near(pixel(picture, 40, 40), kRed)) << scale;
        EXPECT_EQ(pixel(picture, 5, 5).a, 0) << scale;
    }
}

TEST_F(Scales, OfPicturesWithCornersAreTheScreensWhateverTheSources) {
    boot();
    for (CGFloat scale : {1, 2, 3}) {
        UIImage* picture = [test::redPicture(40, 40, scale) imageWithRoundedCornersRadius:10];
        EXPECT_EQ(shapeOf(picture), "40 x 40 at 2: 80 x 80") << scale;
        EXPECT_EQ(pixel(picture, 1, 1).a, 0) << scale;
        EXPECT_TRUE(near(pixel(picture, 21, 1), kRed)) << scale;
    }
}

TEST_F(Scales, OfRoundedAndResizedPicturesAreTheScreensWhateverTheSources) {
    boot();
    for (CGFloat scale : {1, 2, 3}) {
        UIImage* source = test::redPicture(40, 40, scale);
        EXPECT_EQ(shapeOf([Utils roundedImage:source]), "80 x 80 at 2: 160 x 160") << scale;
        EXPECT_EQ(shapeOf([Utils resizeImage:source withWidth:30 withHeight:30]), "60 x 60 at 2: 120 x 120") << scale;
        EXPECT_EQ(shapeOf([Utils scaleImage:source toSize:kSmall]), "40 x 40 at 1: 40 x 40") << scale;
    }
}

class ThreefoldScales : public test::ExtensionTest {
  protected:
    ThreefoldScales() : ExtensionTest("iphone6plus-8.4") {}
};

TEST_F(ThreefoldScales, AreThoseOfThePicturesOnAThreefoldScreen) {
    boot();
    UIImage* source = test::redPicture(40, 40, 2);
    EXPECT_EQ(shapeOf([Utils getMonogramImage:0 source:source size:kSmall color:[UIColor blueColor]]),
              "40 x 40 at 3: 120 x 120");
    EXPECT_EQ(shapeOf([source imageWithRoundedCornersRadius:10]), "40 x 40 at 3: 120 x 120");
    EXPECT_EQ(shapeOf([Utils monogramImage:@"A"]), "40 x 40 at 3: 120 x 120");
    EXPECT_EQ(shapeOf([Utils getImageFromImageData:test::data(test::bmp(8, 8, test::kRed))]), "80 x 80 at 1: 80 x 80");
}

// Red is at the top left of what the camera stored, blue below it.
std::string turned() { return withOrientation(encode(quarters(32, 32), "jpeg"), 6); }

TEST_F(Scales, OfDataThePictureIsTakenAsTheCameraStoredIt) {
    boot();
    [settings() setIsRoundedPicsEnabled:NO];
    const std::string bytes = turned();
    ASSERT_EQ([[UIImage imageWithData:test::data(bytes)] imageOrientation], UIImageOrientationRight);
    root.write("/var/mobile/turned.jpg", bytes);
    for (UIImage* picture in
         @[ [Utils getImageFromImageData:test::data(bytes)], [Utils getImage:@"/var/mobile/turned.jpg"] ]) {
        EXPECT_EQ(shapeOf(picture), "80 x 80 at 1: 80 x 80");
        EXPECT_EQ([picture imageOrientation], UIImageOrientationUp);
        EXPECT_TRUE(near(pixel(picture, 20, 20), kRed, 20));
        EXPECT_TRUE(near(pixel(picture, 20, 60), kBlue, 20));
    }
}

TEST_F(Scales, OfPicturesThatAreDrawnTheTopIsAtTheTop) {
    boot();
    UIImage* source = [UIImage imageWithData:test::data(turned())];
    UIImage* round = [Utils roundedImage:source];
    EXPECT_TRUE(near(pixel(round, 110, 50), kRed, 20));
    EXPECT_TRUE(near(pixel(round, 50, 50), kBlue, 20));
    UIImage* cut = [source imageWithRoundedCornersRadius:2];
    EXPECT_TRUE(near(pixel(cut, 48, 16), kRed, 20));
    EXPECT_TRUE(near(pixel(cut, 16, 16), kBlue, 20));
}

}  // namespace
