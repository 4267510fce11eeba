#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/simulator/core_graphics/canvas.h"
#include "tests/support/parameter_name.h"

namespace {

// Red above, blue below.
CGImageRef createFlag(size_t width, size_t height) {
    Canvas canvas(width, height);
    canvas.fillRect(blue, CGRectMake(0, 0, CGFloat(width), CGFloat(height)));
    canvas.fillRect(red, CGRectMake(0, CGFloat(height) / 2, CGFloat(width), CGFloat(height) / 2));
    return CGBitmapContextCreateImage(canvas);
}

CGContextRef createOwnMemoryContext(size_t side) {
    const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    const CGContextRef context =
        CGBitmapContextCreate(nullptr, side, side, 8, side * 4, space, kCGImageAlphaPremultipliedFirst);
    CGColorSpaceRelease(space);
    return context;
}

TEST(Images, DrawUprightInABitmapContext) {
    const CGImageRef flag = createFlag(10, 10);
    Canvas canvas(10, 10);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 10, 10), flag);
    EXPECT_EQ(canvas.at(0, 0), red);
    EXPECT_EQ(canvas.at(9, 9), blue);
    CGImageRelease(flag);
}

TEST(Images, DrawUpsideDownWhereYPointsDown) {
    const CGImageRef flag = createFlag(10, 10);
    Canvas canvas(10, 10);
    canvas.flip();
    CGContextDrawImage(canvas, CGRectMake(0, 0, 10, 10), flag);
    EXPECT_EQ(canvas.at(0, 0), blue);
    EXPECT_EQ(canvas.at(9, 9), red);
    CGImageRelease(flag);
}

class StretchedImages : public testing::TestWithParam<std::pair<int, int>> {};

INSTANTIATE_TEST_SUITE_P(Sizes, StretchedImages,
                         testing::Values(std::pair{1, 1}, std::pair{7, 5}, std::pair{80, 80}, std::pair{100, 67},
                                         std::pair{333, 10}, std::pair{1000, 1000}),
                         test::ParameterName());

TEST_P(StretchedImages, AreOpaqueUpToTheEdgeAndKeepTheirColors) {
    const auto [width, height] = GetParam();
    Canvas source(width, height);
    source.fillRect({10, 200, 90, 255}, CGRectMake(0, 0, width, height));
    const CGImageRef image = CGBitmapContextCreateImage(source);
    Canvas canvas(84, 84);
    CGContextDrawImage(canvas, CGRectMake(2, 2, 80, 80), image);
    for (size_t y = 0; y < 84; ++y) {
        for (size_t x = 0; x < 84; ++x) {
            const bool inside = x >= 2 && x < 82 && y >= 2 && y < 82;
            ASSERT_EQ(canvas.at(x, y), inside ? (Rgba{10, 200, 90, 255}) : clear) << x << ' ' << y;
        }
    }
    CGImageRelease(image);
}

TEST(Images, AverageWhatTheyShrink) {
    Canvas source(80, 80);
    for (int y = 0; y < 80; ++y) {
        for (int x = y % 2; x < 80; x += 2) {
            source.fillRect(white, CGRectMake(x, y, 1, 1));
        }
    }
    const CGImageRef image = CGBitmapContextCreateImage(source);
    Canvas canvas(10, 10);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 10, 10), image);
    for (size_t i = 1; i < 9; ++i) {
        EXPECT_NEAR(canvas.at(i, i).a, 128, 8);
    }
    CGImageRelease(image);
}

TEST(Images, FillARoundClip) {
    const CGImageRef flag = createFlag(200, 100);
    Canvas canvas(80, 80);
    CGContextAddEllipseInRect(canvas, CGRectMake(0, 0, 80, 80));
    CGContextClip(canvas);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 80, 80), flag);
    EXPECT_EQ(canvas.at(0, 0), clear);
    EXPECT_EQ(canvas.at(40, 0).b, 0);
    EXPECT_GT(canvas.at(40, 0).r, 200);
    EXPECT_NEAR(canvas.area(), 3.14159265 * 1600, 8);
    CGImageRelease(flag);
}

TEST(Images, FollowTheAlpha) {
    const CGImageRef flag = createFlag(4, 4);
    Canvas canvas(8, 4);
    CGContextSetAlpha(canvas, 0.5);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 4, 4), flag);
    EXPECT_EQ(canvas.at(0, 0), (Rgba{128, 0, 0, 128}));
    EXPECT_EQ(canvas.at(4, 0), clear);
    CGImageRelease(flag);
}

TEST(Images, NullDrawsNothing) {
    Canvas canvas(4, 4);
    testing::internal::CaptureStderr();
    CGContextDrawImage(canvas, CGRectMake(0, 0, 4, 4), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(canvas.area(), 0);
    EXPECT_EQ(CGImageGetWidth(nullptr), 0u);
}

TEST(Images, LeaveTheCurrentPathAndColorsUsable) {
    const CGImageRef flag = createFlag(4, 4);
    Canvas canvas(8, 4);
    canvas.fill(green);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 4, 4), flag);
    CGContextFillRect(canvas, CGRectMake(4, 0, 4, 4));
    EXPECT_EQ(canvas.at(4, 0), green);
    CGImageRelease(flag);
}

TEST(Images, CanBeCutOut) {
    const CGImageRef flag = createFlag(10, 10);
    const CGImageRef part = CGImageCreateWithImageInRect(flag, CGRectMake(2, 4.5, 3, 100));
    EXPECT_EQ(CGImageGetWidth(part), 3u);
    EXPECT_EQ(CGImageGetHeight(part), 6u);
    Canvas canvas(3, 6);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 3, 6), part);
    EXPECT_EQ(canvas.at(0, 0), red);
    EXPECT_EQ(canvas.at(0, 1), blue);
    EXPECT_EQ(CGImageCreateWithImageInRect(flag, CGRectMake(20, 0, 5, 5)), nullptr);
    CGImageRelease(part);
    CGImageRelease(flag);
}

TEST(Snapshots, DoNotChangeWithTheirContext) {
    const CGContextRef source = createOwnMemoryContext(4);
    CGContextSetRGBFillColor(source, 1, 0, 0, 1);
    CGContextFillRect(source, CGRectMake(0, 0, 4, 4));
    const CGImageRef first = CGBitmapContextCreateImage(source);
    const CGImageRef same = CGBitmapContextCreateImage(source);
    CGContextSetRGBFillColor(source, 0, 0, 1, 1);
    CGContextFillRect(source, CGRectMake(0, 0, 4, 4));
    const CGImageRef second = CGBitmapContextCreateImage(source);
    CGContextClearRect(source, CGRectMake(0, 0, 4, 4));
    CGContextRelease(source);
    Canvas canvas(12, 4);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 4, 4), first);
    CGContextDrawImage(canvas, CGRectMake(4, 0, 4, 4), second);
    CGContextDrawImage(canvas, CGRectMake(8, 0, 4, 4), same);
    EXPECT_EQ(canvas.at(0, 0), red);
    EXPECT_EQ(canvas.at(4, 0), blue);
    EXPECT_EQ(canvas.at(8, 0), red);
    CGImageRelease(same);
    CGImageRelease(second);
    CGImageRelease(first);
}

TEST(Snapshots, CanBeDrawnIntoTheirOwnContext) {
    const CGContextRef context = createOwnMemoryContext(4);
    CGContextSetRGBFillColor(context, 0, 0, 1, 1);
    CGContextFillRect(context, CGRectMake(0, 0, 2, 4));
    const CGImageRef before = CGBitmapContextCreateImage(context);
    CGContextDrawImage(context, CGRectMake(2, 0, 4, 4), before);
    const uint8_t* bytes = static_cast<uint8_t*>(CGBitmapContextGetData(context));
    for (int x = 0; x < 4; ++x) {
        EXPECT_EQ(bytes[x * 4 + 3], 255) << x;
    }
    CGImageRelease(before);
    CGContextRelease(context);
}

TEST(Snapshots, AreReadWhileTheirContextDrawsOn) {
    const CGContextRef source = createOwnMemoryContext(64);
    CGContextSetRGBFillColor(source, 1, 0, 0, 1);
    CGContextFillRect(source, CGRectMake(0, 0, 64, 64));
    const CGImageRef image = CGBitmapContextCreateImage(source);
    std::atomic<int> wrong = 0;
    std::vector<std::thread> readers;
    for (int i = 0; i < 4; ++i) {
        readers.emplace_back([&] {
            Canvas canvas(64, 64);
            for (int round = 0; round < 50; ++round) {
                CGContextClearRect(canvas, CGRectInfinite);
                CGContextDrawImage(canvas, CGRectMake(0, 0, 64, 64), image);
                wrong += canvas.at(round, round) == red ? 0 : 1;
            }
        });
    }
    for (int round = 0; round < 200; ++round) {
        CGContextSetRGBFillColor(source, 0, 1, 0, 1);
        CGContextFillRect(source, CGRectMake(0, 0, 64, 64));
        CGImageRelease(CGBitmapContextCreateImage(source));
    }
    CGContextRelease(source);
    for (std::thread& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(wrong, 0);
    CGImageRelease(image);
}

TEST(Images, GiveOutTheirBytesAsTheirBitmapInfoSays) {
    Canvas canvas(3, 2);
    canvas.fillRect({255, 128, 0, 255}, CGRectMake(0, 1, 1, 1));  // the upper left pixel
    const CGImageRef image = CGBitmapContextCreateImage(canvas);
    EXPECT_EQ(CGImageGetBitmapInfo(image), kCGBitmapByteOrder32Little | kCGImageAlphaPremultipliedFirst);
    const CGDataProviderRef provider = CGDataProviderRetain(CGImageGetDataProvider(image));
    CGImageRelease(image);  // a provider that is retained outlives its image
    const CFDataRef data = CGDataProviderCopyData(provider);
    CGDataProviderRelease(provider);
    ASSERT_EQ(CFDataGetLength(data), 3 * 4 * 2);
    const UInt8* bytes = CFDataGetBytePtr(data);
    EXPECT_EQ(std::vector<int>(bytes, bytes + 8), (std::vector<int>{0, 128, 255, 255, 0, 0, 0, 0}));
    CFRelease(data);
}

TEST(Images, HaveNoProviderWhenThereIsNoImage) {
    EXPECT_EQ(CGImageGetDataProvider(nullptr), nullptr);
    EXPECT_EQ(CGDataProviderCopyData(nullptr), nil);
    EXPECT_EQ(CGImageGetBitmapInfo(nullptr), 0u);
}

}  // namespace
