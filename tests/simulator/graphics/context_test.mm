#include <limits>
#include <thread>

#import "tests/simulator/graphics/drawing.h"

namespace {

class ImageContexts : public DrawingTest {};

TEST_F(ImageContexts, HaveTheirOriginAtTheTopLeft) {
    UIImage* image = drawn({4, 4}, 1, [](CGContextRef context) {
        [[UIColor redColor] setFill];
        CGContextFillRect(context, CGRectMake(0, 0, 1, 1));
    });
    EXPECT_EQ(pixel(image, 0, 0), red);
    EXPECT_EQ(coverage(image), 1);
}

TEST_F(ImageContexts, CountInPoints) {
    UIImage* image = drawn({4, 3}, 3, [](CGContextRef context) {
        EXPECT_EQ(CGContextGetCTM(context).a, 3);
        EXPECT_EQ(CGContextGetCTM(context).d, -3);
        CGContextFillRect(context, CGRectMake(0, 0, 1, 1));
    });
    EXPECT_TRUE(CGSizeEqualToSize([image size], { 4, 3 }));
    EXPECT_EQ([image scale], 3);
    EXPECT_EQ(CGImageGetWidth([image CGImage]), 12u);
    EXPECT_EQ(coverage(image), 9);
}

TEST_F(ImageContexts, TakeTheScreensScaleForZero) {
    EXPECT_EQ([drawn({4, 4}, 0, [](CGContextRef) {}) scale], 2);  // the default phone's
    UIGraphicsBeginImageContext({4, 4});
    EXPECT_EQ([UIGraphicsGetImageFromCurrentImageContext() scale], 1);
    UIGraphicsEndImageContext();
}

TEST_F(ImageContexts, HoldFractionsOfAPixelWhole) {
    UIImage* image = drawn({10.3, 7.5}, 2, [](CGContextRef) {});
    EXPECT_EQ(CGImageGetWidth([image CGImage]), 21u);
    EXPECT_EQ(CGImageGetHeight([image CGImage]), 15u);
    EXPECT_EQ([image size].width, 10.5);
}

TEST_F(ImageContexts, WithoutAreaAreNone) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const CGSize size : {CGSize{0, 4}, CGSize{4, 0}, CGSize{-4, 4}, CGSize{nan, 4}, CGSize{1e300, 4}}) {
        UIGraphicsBeginImageContext({1, 1});
        const CGContextRef outer = UIGraphicsGetCurrentContext();
        UIGraphicsBeginImageContext(size);
        EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
        EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nil);
        UIGraphicsEndImageContext();
        EXPECT_EQ(UIGraphicsGetCurrentContext(), outer);
        UIGraphicsEndImageContext();
    }
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST_F(ImageContexts, OpaqueOnesBeginBlack) {
    UIGraphicsBeginImageContextWithOptions({2, 2}, YES, 1);
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(pixel(image, 0, 0), (phone::Pixel{0, 0, 0, 255}));
}

TEST_F(ImageContexts, AreStackedWithPushedOnes) {
    UIGraphicsBeginImageContext({2, 2});
    const CGContextRef image = UIGraphicsGetCurrentContext();
    const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    const CGContextRef bitmap = CGBitmapContextCreate(nullptr, 2, 2, 8, 8, space, kCGImageAlphaPremultipliedFirst);
    CGColorSpaceRelease(space);
    UIGraphicsPushContext(bitmap);
    CGContextRelease(bitmap);
    EXPECT_EQ(UIGraphicsGetCurrentContext(), bitmap);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nil);
    UIGraphicsEndImageContext();  // not an image context: stays
    EXPECT_EQ(UIGraphicsGetCurrentContext(), bitmap);
    UIGraphicsPopContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), image);
    UIGraphicsPopContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), image);
    UIGraphicsEndImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST_F(ImageContexts, BelongToTheirThread) {
    UIGraphicsBeginImageContext({2, 2});
    CGContextRef seen = UIGraphicsGetCurrentContext();
    std::thread([&] { seen = UIGraphicsGetCurrentContext(); }).join();
    EXPECT_EQ(seen, nullptr);
    UIGraphicsEndImageContext();
}

TEST_F(ImageContexts, KeepEarlierPicturesAsTheyWere) {
    UIGraphicsBeginImageContext({2, 2});
    UIImage* before = UIGraphicsGetImageFromCurrentImageContext();
    [[UIColor blueColor] set];
    UIRectFill(CGRectMake(0, 0, 2, 2));
    UIImage* after = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(pixel(before, 0, 0), clear);
    EXPECT_EQ(pixel(after, 0, 0), blue);
}

class Colors : public DrawingTest {};

TEST_F(Colors, CompareByComponents) {
    UIColor* color = [UIColor colorWithRed:0.25 green:0.5 blue:0.75 alpha:1];
    EXPECT_TRUE([color isEqual:[UIColor colorWithRed:0.25 green:0.5 blue:0.75 alpha:1]]);
    EXPECT_EQ([color hash], [[UIColor colorWithRed:0.25 green:0.5 blue:0.75 alpha:1] hash]);
    EXPECT_FALSE([color isEqual:[color colorWithAlphaComponent:0.5]]);
    EXPECT_FALSE([color isEqual:@"colour"]);
    EXPECT_FALSE([[UIColor whiteColor] isEqual:[UIColor colorWithRed:1 green:1 blue:1 alpha:1]]);
    EXPECT_EQ([UIColor whiteColor], [UIColor whiteColor]);
    EXPECT_TRUE([[color description] isEqual:@"UIDeviceRGBColorSpace 0.25 0.5 0.75 1"]);
}

TEST_F(Colors, GiveTheirComponentsWithinRange) {
    CGFloat r = 0, g = 0, b = 0, a = 0, w = 0;
    EXPECT_TRUE([[UIColor colorWithRed:2 green:-1 blue:0.5 alpha:1] getRed:&r green:&g blue:&b alpha:&a]);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(g, 0);
    EXPECT_EQ(b, 0.5);
    EXPECT_TRUE([[UIColor whiteColor] getRed:&r green:&g blue:&b alpha:nullptr]);
    EXPECT_EQ(g, 1);
    EXPECT_TRUE([[UIColor grayColor] getWhite:&w alpha:&a]);
    EXPECT_EQ(w, 0.5);
    EXPECT_FALSE([[UIColor redColor] getWhite:&w alpha:&a]);
    EXPECT_EQ(CGColorGetNumberOfComponents([[UIColor whiteColor] CGColor]), 2u);
    EXPECT_EQ([UIColor colorWithCGColor:nullptr], nil);
}

class BezierPaths : public DrawingTest {};

double clippedArea(UIBezierPath* path) {
    return coverage(drawn({40, 40}, 2, [&](CGContextRef context) {
        [path addClip];
        CGContextFillRect(context, CGRectMake(0, 0, 40, 40));
    }));
}

TEST_F(BezierPaths, RoundTheCornersOfTheClip) {
    const CGRect whole = CGRectMake(0, 0, 40, 40);
    const double corner = 1 - 3.14159265 / 4;
    EXPECT_NEAR(clippedArea([UIBezierPath bezierPathWithRoundedRect:whole cornerRadius:5]), 6400 - 4 * corner * 100, 4);
    EXPECT_EQ(clippedArea([UIBezierPath bezierPathWithRoundedRect:whole cornerRadius:0]), 6400);
    const double circle = clippedArea([UIBezierPath bezierPathWithOvalInRect:whole]);
    EXPECT_NEAR(circle, 6400 * (1 - corner), 12);
    EXPECT_NEAR(clippedArea([UIBezierPath bezierPathWithRoundedRect:whole cornerRadius:20]), circle, 2);
    EXPECT_NEAR(clippedArea([UIBezierPath bezierPathWithRoundedRect:whole cornerRadius:1000]), circle, 2);
}

TEST_F(BezierPaths, StayInsideTheirRect) {
    UIBezierPath* path = [UIBezierPath bezierPathWithRoundedRect:CGRectMake(3, 4, 20, 10) cornerRadius:99];
    EXPECT_TRUE(CGRectContainsRect(CGRectInset(CGRectMake(3, 4, 20, 10), -1e-6, -1e-6), [path bounds]));
    EXPECT_NEAR([path bounds].size.width, 20, 1e-6);
}

TEST_F(BezierPaths, RunClockwiseAsSeenOnTheScreen) {
    UIBezierPath* path = [UIBezierPath bezierPathWithArcCenter:{0, 0}
                                                        radius:10
                                                    startAngle:0
                                                      endAngle:3.14159265 / 2
                                                     clockwise:YES];
    EXPECT_NEAR([path bounds].size.width, 10, 0.1);  // a quarter, not three
    EXPECT_NEAR(CGPathGetCurrentPoint([path CGPath]).y, 10, 1e-6);
}

TEST_F(BezierPaths, FillAndStrokeInTheCurrentColors) {
    UIImage* image = drawn({10, 10}, 1, [](CGContextRef) {
        [[UIColor redColor] setFill];
        [[UIColor blueColor] setStroke];
        UIBezierPath* path = [UIBezierPath bezierPathWithRect:CGRectMake(2, 2, 6, 6)];
        [path setLineWidth:2];
        [path fill];
        [path stroke];
    });
    EXPECT_EQ(pixel(image, 5, 5), red);
    EXPECT_EQ(pixel(image, 1, 5), blue);
    EXPECT_EQ(pixel(image, 2, 5), blue);
    EXPECT_EQ(pixel(image, 0, 5), clear);
}

TEST_F(BezierPaths, ReportThatThereIsNoContext) {
    testing::internal::CaptureStderr();
    [[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 1, 1)] addClip];
    EXPECT_NE(testing::internal::GetCapturedStderr().find("CGContextClip: invalid context 0x0"), std::string::npos);
}

}  // namespace
