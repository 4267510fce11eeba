#include <math.h>

#include <string>

#include "simulator/runtime/process/library_loader.h"
#include "tests/support/extension.h"
#include "tests/support/library_path.h"
#include "tests/support/pictures.h"

namespace {

using phone::Pixel;
using test::near;
using test::pixel;

constexpr Pixel kRed{255, 0, 0, 255}, kGreen{0, 255, 0, 255}, kBlue{0, 0, 255, 255}, kYellow{255, 255, 0, 255};

// Quarters: red and green above blue and yellow.
test::Rgb quarters(int x, int y) {
    if (y < 5) return x < 10 ? test::kRed : test::kGreen;
    return x < 10 ? test::kBlue : test::kYellow;
}
test::Rgb redUpToColumn40(int x, int) { return x < 40 ? test::kRed : test::kGreen; }
test::Rgb redUpToRow40(int, int y) { return y < 40 ? test::kRed : test::kGreen; }

// What a disc covers, in whole pixels: the sum of all alphas.
double coveredPixels(UIImage* picture) {
    double sum = 0;
    for (size_t y = 0; y < test::pixelsHigh(picture); ++y)
        for (size_t x = 0; x < test::pixelsWide(picture); ++x)
            sum += pixel(picture, static_cast<int>(x), static_cast<int>(y)).a / 255.0;
    return sum;
}

int halfCoveredPixels(UIImage* picture) {
    int found = 0;
    for (size_t y = 0; y < test::pixelsHigh(picture); ++y)
        for (size_t x = 0; x < test::pixelsWide(picture); ++x) {
            const int alpha = pixel(picture, static_cast<int>(x), static_cast<int>(y)).a;
            found += alpha > 10 && alpha < 245;
        }
    return found;
}

// A disc that touches all four edges: its area, its smooth edge, its empty corners.
void expectDisc(UIImage* picture) {
    const int side = static_cast<int>(test::pixelsWide(picture));
    ASSERT_EQ(test::pixelsHigh(picture), static_cast<size_t>(side));
    EXPECT_NEAR(coveredPixels(picture), M_PI * side * side / 4, side * 0.5);
    EXPECT_GT(halfCoveredPixels(picture), side);
    for (int x : {0, side - 1})
        for (int y : {0, side - 1}) EXPECT_EQ(pixel(picture, x, y).a, 0);
    EXPECT_GT(pixel(picture, side / 2, 0).a, 200);
    EXPECT_GT(pixel(picture, 0, side / 2).a, 200);
    EXPECT_GT(pixel(picture, side - 1, side / 2).a, 200);
    EXPECT_GT(pixel(picture, side / 2, side - 1).a, 200);
}

// A square whose four corners are cut at the radius, in pixels.
void expectRoundedSquare(UIImage* picture, double radius) {
    const int side = static_cast<int>(test::pixelsWide(picture));
    EXPECT_NEAR(coveredPixels(picture), side * side - (4 - M_PI) * radius * radius, 2 + radius * 0.3);
    for (int x : {0, side - 1})
        for (int y : {0, side - 1}) EXPECT_LT(pixel(picture, x, y).a, 40);
    const int inside = static_cast<int>(radius) + 1;
    EXPECT_EQ(pixel(picture, inside, 0).a, 255);
    EXPECT_EQ(pixel(picture, 0, side - 1 - inside).a, 255);
}

class Shaping : public test::ExtensionTest {
  protected:
    void start(bool rounded) {
        boot();
        [settings() setIsRoundedPicsEnabled:rounded];
    }
    UIImage* decoded(const std::string& bytes) { return [UIImage imageWithData:test::data(bytes)]; }
};

TEST_F(Shaping, OfDataMakesADiscWhenRounded) {
    start(true);
    UIImage* picture = [Utils getImageFromImageData:test::data(test::bmp(20, 10, quarters))];
    EXPECT_EQ([picture size].width, 80);
    EXPECT_EQ([picture size].height, 80);
    EXPECT_EQ([picture scale], 1);
    expectDisc(picture);
}

TEST_F(Shaping, OfDataMakesASquareWithSmallCornersWhenNotRounded) {
    start(false);
    UIImage* picture = [Utils getImageFromImageData:test::data(test::bmp(20, 10, quarters))];
    EXPECT_EQ(test::pixelsWide(picture), 80u);
    expectRoundedSquare(picture, 5);
}

TEST_F(Shaping, OfDataStretchesThePictureUpright) {
    start(false);
    UIImage* picture = [Utils getImageFromImageData:test::data(test::bmp(20, 10, quarters))];
    EXPECT_TRUE(near(pixel(picture, 15, 15), kRed));
    EXPECT_TRUE(near(pixel(picture, 65, 15), kGreen));
    EXPECT_TRUE(near(pixel(picture, 15, 65), kBlue));
    EXPECT_TRUE(near(pixel(picture, 65, 65), kYellow));
}

TEST_F(Shaping, OfNoDataGivesNothing) {
    start(true);
    EXPECT_EQ([Utils getImageFromImageData:nil], nil);
    EXPECT_EQ([Utils getImageFromImageData:[NSData data]], nil);
}

TEST_F(Shaping, OfDataThatIsNoPictureIsTransparent) {
    start(true);
    std::string truncated = test::bmp(40, 40, test::kRed);
    truncated.resize(truncated.size() / 2);
    const std::string noPictures[] = {"x",
                                      "not a picture at all",
                                      std::string(1, '\0'),
                                      truncated,
                                      test::bmpHeader(60000, 60000),
                                      std::string("\xFF\xD8\xFF\xE0", 4),
                                      std::string("\x89PNG\r\n\x1A\n", 8),
                                      std::string(100000, '\xFF')};
    for (const std::string& bytes : noPictures) {
        UIImage* picture = [Utils getImageFromImageData:test::data(bytes)];
        ASSERT_NE(picture, nil);
        EXPECT_EQ([picture size].width, 80);
        EXPECT_TRUE(test::isTransparent(picture));
    }
}

TEST_F(Shaping, OfAnAnimationTakesItsFirstFrame) {
    start(false);
    UIImage* picture = [Utils getImageFromImageData:test::data(test::animatedGif())];
    EXPECT_TRUE(near(pixel(picture, 40, 40), kRed));
}

TEST_F(Shaping, OfLargePicturesShrinksThem) {
    start(true);
    UIImage* picture = [Utils getImageFromImageData:test::data(test::bmp(3000, 1000, test::kGreen))];
    EXPECT_TRUE(near(pixel(picture, 40, 40), kGreen));
    expectDisc(picture);
}

TEST_F(Shaping, RoundsAPictureToADiscOf80PointsAtTheScreensScale) {
    start(true);
    UIImage* picture = [Utils roundedImage:decoded(test::bmp(20, 10, quarters))];
    EXPECT_EQ([picture size].width, 80);
    EXPECT_EQ([picture size].height, 80);
    EXPECT_EQ(test::pixelsWide(picture), 160u);
    expectDisc(picture);
    EXPECT_TRUE(near(pixel(picture, 45, 45), kRed));
    EXPECT_TRUE(near(pixel(picture, 115, 45), kGreen));
    EXPECT_TRUE(near(pixel(picture, 45, 115), kBlue));
    EXPECT_TRUE(near(pixel(picture, 115, 115), kYellow));
}

TEST_F(Shaping, RoundsAcrossTheWidthOfTheBox) {
    start(true);
    // Higher than wide: the circle's radius is half of the width, around the middle.
    UIImage* picture = [Utils roundedImage:decoded(test::bmp(20, 10, test::kRed)) width:20 height:40];
    EXPECT_EQ([picture size].width, 20);
    EXPECT_EQ([picture size].height, 40);
    EXPECT_TRUE(near(pixel(picture, 20, 40), kRed));
    EXPECT_EQ(pixel(picture, 20, 15).a, 0);
    EXPECT_EQ(pixel(picture, 20, 64).a, 0);
}

TEST_F(Shaping, GivesTheVerySamePictureWhenNotRounded) {
    start(false);
    UIImage* source = decoded(test::bmp(20, 10, test::kRed));
    EXPECT_EQ([Utils roundedImage:source], source);
    EXPECT_EQ([Utils roundedImage:source width:7 height:7], source);
}

TEST_F(Shaping, OfNoPictureGivesNone) {
    start(true);
    EXPECT_EQ([Utils roundedImage:nil], nil);
    EXPECT_EQ([Utils roundedImage:nil width:10 height:10], nil);
}

TEST_F(Shaping, ResizesToTwiceTheSizeKeepingTheShape) {
    start(true);
    UIImage* wide = [Utils resizeImage:test::redPicture(200, 100, 1) withWidth:40 withHeight:40];
    EXPECT_EQ([wide size].width, 80);
    EXPECT_EQ([wide size].height, 40);
    EXPECT_EQ(test::pixelsWide(wide), 160u);
    EXPECT_TRUE(near(pixel(wide, 80, 40), kRed));
    UIImage* high = [Utils resizeImage:test::redPicture(10, 20, 2) withWidth:40 withHeight:30];
    EXPECT_EQ([high size].width, 30);
    EXPECT_EQ([high size].height, 60);
}

TEST_F(Shaping, ResizesInSinglePrecision) {
    start(true);
    // In double precision the product would be a little over 80, and one more column of pixels.
    UIImage* picture = [Utils resizeImage:test::redPicture(240, 100, 1) withWidth:40 withHeight:40];
    EXPECT_EQ([picture size].width, 80);
    EXPECT_EQ(test::pixelsWide(picture), 160u);
    // A ratio in double precision would make it 80 here.
    picture = [Utils resizeImage:test::redPicture(300, 100, 1) withWidth:40 withHeight:40];
    EXPECT_EQ(test::pixelsWide(picture), 161u);
}

TEST_F(Shaping, EnlargesAPictureThatFitsTheBoxByTheScreensScale) {
    start(true);
    UIImage* picture = [Utils scaleImage:test::redPicture(10, 10, 1) toSize:CGSizeMake(60, 60)];
    EXPECT_EQ([picture size].width, 60);
    EXPECT_EQ([picture scale], 1);
    EXPECT_EQ(test::pixelsWide(picture), 60u);
    EXPECT_EQ(coveredPixels(picture), 400);
    EXPECT_TRUE(near(pixel(picture, 20, 20), kRed));
    EXPECT_TRUE(near(pixel(picture, 39, 39), kRed));
}

TEST_F(Shaping, CoversTheBoxWithAPictureThatIsTooWide) {
    start(true);
    // As high as the box: drawn as it is, 30 points of it on either side of the box.
    UIImage* picture = [Utils scaleImage:decoded(test::bmp(120, 60, redUpToColumn40)) toSize:CGSizeMake(60, 60)];
    EXPECT_EQ(coveredPixels(picture), 3600);
    for (int y : {1, 30, 58}) {
        EXPECT_TRUE(near(pixel(picture, 8, y), kRed));
        EXPECT_TRUE(near(pixel(picture, 12, y), kGreen));
    }
}

TEST_F(Shaping, CoversTheBoxWithAPictureThatIsTooHigh) {
    start(true);
    UIImage* picture = [Utils scaleImage:decoded(test::bmp(60, 120, redUpToRow40)) toSize:CGSizeMake(60, 60)];
    EXPECT_EQ(coveredPixels(picture), 3600);
    for (int x : {1, 30, 58}) {
        EXPECT_TRUE(near(pixel(picture, x, 8), kRed));
        EXPECT_TRUE(near(pixel(picture, x, 12), kGreen));
    }
}

TEST_F(Shaping, EnlargesAPictureThatIsTooHighToTheWidthOfTheBox) {
    start(true);
    // One and a half times as large: 150 points high, of which the first 45 are above the box.
    UIImage* picture = [Utils scaleImage:decoded(test::bmp(40, 100, redUpToRow40)) toSize:CGSizeMake(60, 60)];
    EXPECT_EQ(coveredPixels(picture), 3600);
    EXPECT_TRUE(near(pixel(picture, 30, 12), kRed));
    EXPECT_TRUE(near(pixel(picture, 30, 17), kGreen));
    UIImage* narrow = [Utils scaleImage:test::redPicture(30, 120, 1) toSize:CGSizeMake(60, 60)];
    EXPECT_EQ(coveredPixels(narrow), 3600);
}

TEST_F(Shaping, CutsCornersAtARadiusInPoints) {
    start(false);
    UIImage* picture = [test::redPicture(40, 40, 2) imageWithRoundedCornersRadius:10];
    EXPECT_EQ([picture size].width, 40);
    EXPECT_EQ(test::pixelsWide(picture), 80u);
    expectRoundedSquare(picture, 20);
    expectDisc([test::redPicture(40, 40, 1) imageWithRoundedCornersRadius:20]);
}

TEST_F(Shaping, OfAFileIsKeptUnderItsPath) {
    start(true);
    root.write("/var/mobile/face.bmp", test::bmp(20, 10, quarters));
    NSString* path = @"/var/mobile/face.bmp";
    UIImage* picture = [Utils getImage:path];
    EXPECT_EQ([picture size].width, 80);
    EXPECT_EQ([picture scale], 1);
    expectDisc(picture);
    EXPECT_TRUE(near(pixel(picture, 20, 20), kRed));
    EXPECT_EQ([Utils getContactImageInCacheForKey:path], picture);
    root.write("/var/mobile/face.bmp", test::bmp(20, 10, test::kBlue));
    EXPECT_EQ([Utils getImage:path], picture);
    EXPECT_EQ(([Utils getImage:path size:CGSizeMake(10, 10)]), picture);
}

TEST_F(Shaping, OfAFileHasWholePixelsOfTheSizeAskedFor) {
    start(false);
    root.write("/var/mobile/face.bmp", test::bmp(20, 10, test::kRed));
    UIImage* picture = [Utils getImage:@"/var/mobile/face.bmp" size:CGSizeMake(60.9, 30.2)];
    EXPECT_EQ(test::pixelsWide(picture), 60u);
    EXPECT_EQ(test::pixelsHigh(picture), 30u);
    EXPECT_NEAR(coveredPixels(picture), 60 * 30 - (4 - M_PI) * 25, 4);
}

TEST_F(Shaping, OfAMissingFileIsTransparentAndKept) {
    start(true);
    NSString* path = @"/var/mobile/nowhere.png";
    UIImage* picture = [Utils getImage:path];
    EXPECT_EQ([picture size].width, 80);
    EXPECT_TRUE(test::isTransparent(picture));
    root.write("/var/mobile/nowhere.png", test::bmp(20, 10, test::kRed));
    EXPECT_EQ([Utils getImage:path], picture);
}

TEST_F(Shaping, OfAFileWithoutASizeGivesNothingAndKeepsNothing) {
    start(true);
    NSString* path = @"/var/mobile/face.bmp";
    for (CGFloat side : {0.0, 0.5, -3.0, static_cast<double>(NAN), static_cast<double>(INFINITY), 1e300}) {
        EXPECT_EQ(([Utils getImage:path size:CGSizeMake(side, 80)]), nil);
        EXPECT_EQ([Utils getContactImageInCacheForKey:path], nil);
    }
}

TEST_F(Shaping, OfNoPathIsTransparent) {
    start(true);
    EXPECT_TRUE(test::isTransparent([Utils getImage:nil]));
}

struct Outline {
    std::string elements;
};

void describe(void* info, const CGPathElement* element) {
    static const char* const names[] = {"M", "L", "Q", "C", "Z"};
    static const int points[] = {1, 1, 2, 3, 0};
    auto& text = static_cast<Outline*>(info)->elements;
    text += names[element->type];
    char number[64];
    for (int i = 0; i < points[element->type]; ++i) {
        snprintf(number, sizeof number, " %g,%g", element->points[i].x, element->points[i].y);
        text += number;
    }
    text += "; ";
}

std::string outlineOf(CGRect rect, CGFloat radius) {
    using Create = CGMutablePathRef (*)(CGRect, CGFloat);
    auto create = reinterpret_cast<Create>(phone::librarySymbol(test::libraryPath(), "createRoundedCornerPath"));
    if (create == nullptr) return "not exported";
    CGMutablePathRef path = create(rect, radius);
    Outline outline;
    CGPathApply(path, &outline, describe);
    CGPathRelease(path);
    return outline.elements;
}

TEST_F(Shaping, ExportsARoundedRectangleOfLinesAndQuadraticCurves) {
    boot();
    EXPECT_EQ(outlineOf(CGRectMake(10, 20, 100, 50), 5),
              "M 15,20; L 105,20; Q 110,20 110,25; L 110,65; Q 110,70 105,70; L 15,70; Q 10,70 10,65; L 10,25; "
              "Q 10,20 15,20; ");
}

TEST_F(Shaping, ExportsAPlainRectangleForRadiusZero) {
    boot();
    EXPECT_EQ(outlineOf(CGRectMake(0, 0, 4, 3), 0),
              "M 0,0; L 4,0; Q 4,0 4,0; L 4,3; Q 4,3 4,3; L 0,3; Q 0,3 0,3; L 0,0; Q 0,0 0,0; ");
}

}  // namespace
