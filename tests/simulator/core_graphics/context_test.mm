#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "tests/simulator/core_graphics/canvas.h"
#include "tests/support/parameter_name.h"

using testing::HasSubstr;

namespace {

CGContextRef makeContext(void* data, size_t width, size_t height, size_t bits, size_t bytesPerRow, bool gray,
                         CGBitmapInfo info) {
    const CGColorSpaceRef space = gray ? CGColorSpaceCreateDeviceGray() : CGColorSpaceCreateDeviceRGB();
    const CGContextRef context = CGBitmapContextCreate(data, width, height, bits, bytesPerRow, space, info);
    CGColorSpaceRelease(space);
    return context;
}

std::string messageOf(const std::function<void()>& action) {
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

TEST(BitmapContext, RefusesWhatItCannotHoldAndSaysSo) {
    const auto refused = [](size_t width, size_t height, size_t bits, size_t row, bool gray, CGBitmapInfo info) {
        return messageOf([=] { EXPECT_EQ(makeContext(nullptr, width, height, bits, row, gray, info), nullptr); });
    };
    EXPECT_EQ(refused(80, 80, 8, 320, false, kCGImageAlphaLast),
              "<Error>: CGBitmapContextCreate: unsupported parameter combination: 8 integer bits/component; 32 "
              "bits/pixel; 3-component color space; kCGImageAlphaLast; 320 bytes/row.\n");
    EXPECT_THAT(refused(80, 80, 16, 640, false, kCGImageAlphaPremultipliedLast), HasSubstr("unsupported"));
    EXPECT_THAT(refused(80, 80, 8, 80, true, kCGImageAlphaNone), HasSubstr("1-component color space"));
    EXPECT_THAT(refused(80, 80, 8, 316, false, kCGImageAlphaPremultipliedFirst),
                HasSubstr("invalid data bytes/row: should be at least 320"));
    EXPECT_THAT(refused(0, 80, 8, 0, false, kCGImageAlphaPremultipliedFirst), HasSubstr("failed to create delegate"));
    EXPECT_THAT(refused(80, 1u << 20, 8, 0, false, kCGImageAlphaPremultipliedFirst),
                HasSubstr("failed to create delegate"));
    EXPECT_THAT(messageOf([] {
                    EXPECT_EQ(CGBitmapContextCreate(nullptr, 8, 8, 8, 32, nullptr, kCGImageAlphaPremultipliedFirst),
                              nullptr);
                }),
                HasSubstr("0-component color space"));
}

struct Layout {
    const char* name;
    CGBitmapInfo info;
    std::array<uint8_t, 4> halfOrange;  // premultiplied (128, 64, 0) with alpha 128
};

void PrintTo(const Layout& layout, std::ostream* out) { *out << layout.name; }

class Layouts : public testing::TestWithParam<Layout> {};

INSTANTIATE_TEST_SUITE_P(
    All, Layouts,
    testing::Values(
        Layout{"AlphaLast", kCGImageAlphaPremultipliedLast, {128, 64, 0, 128}},
        Layout{"AlphaFirst", kCGImageAlphaPremultipliedFirst, {128, 128, 64, 0}},
        Layout{"AlphaLastBig", kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big, {128, 64, 0, 128}},
        Layout{"AlphaFirstBig", kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Big, {128, 128, 64, 0}},
        Layout{"AlphaLastLittle", kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Little, {128, 0, 64, 128}},
        Layout{"AlphaFirstLittle", kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little, {0, 64, 128, 128}}),
    test::ParameterName());

TEST_P(Layouts, StorePremultipliedBytesInTheirOrder) {
    constexpr size_t row = 3 * 4 + 8;
    std::vector<uint8_t> bytes(row * 2, 7);
    for (size_t y = 0; y < 2; ++y) {
        std::fill_n(bytes.begin() + y * row, 12, 0);
    }
    for (void* data : {static_cast<void*>(bytes.data()), static_cast<void*>(nullptr)}) {
        const CGContextRef context = makeContext(data, 3, 2, 8, row, false, GetParam().info);
        ASSERT_NE(context, nullptr);
        CGContextSetRGBFillColor(context, 1, 0.5, 0, 128 / 255.0);
        CGContextFillRect(context, CGRectMake(1, 0, 1, 1));
        const uint8_t* seen = static_cast<uint8_t*>(CGBitmapContextGetData(context));
        EXPECT_EQ(CGBitmapContextGetBytesPerRow(context), row);
        EXPECT_TRUE(std::equal(GetParam().halfOrange.begin(), GetParam().halfOrange.end(), seen + row + 4));
        EXPECT_EQ(std::count(seen, seen + 12, 0), 12);  // the upper row
        CGContextRelease(context);
    }
    EXPECT_EQ(std::count(bytes.begin() + 12, bytes.begin() + row, 7), 8);  // the padding is nobody's
}

TEST_P(Layouts, DrawOverWhatTheCallerWrote) {
    const CGContextRef context = makeContext(nullptr, 2, 2, 8, 8, false, GetParam().info);
    uint8_t* bytes = static_cast<uint8_t*>(CGBitmapContextGetData(context));
    std::fill_n(bytes, 16, 255);
    const CGImageRef before = CGBitmapContextCreateImage(context);
    std::fill_n(bytes, 16, 0);
    CGContextDrawImage(context, CGRectMake(0, 0, 1, 1), before);
    EXPECT_EQ(std::count(bytes, bytes + 16, 255), 4);
    EXPECT_EQ(std::count(bytes + 8, bytes + 12, 255), 4);  // bottom left
    CGImageRelease(before);
    CGContextRelease(context);
}

TEST(BitmapContext, SkippedAlphaIsOpaque) {
    const CGContextRef context = makeContext(nullptr, 1, 1, 8, 0, false, kCGImageAlphaNoneSkipLast);
    CGContextSetRGBFillColor(context, 1, 1, 1, 128 / 255.0);
    CGContextFillRect(context, CGRectMake(0, 0, 1, 1));
    const uint8_t* bytes = static_cast<uint8_t*>(CGBitmapContextGetData(context));
    EXPECT_EQ(bytes[0], 128);
    CGContextRelease(context);
}

TEST(BitmapContext, HasItsOriginAtTheBottomLeft) {
    Canvas canvas(4, 4);
    canvas.fillRect(red, CGRectMake(0, 0, 1, 1));
    canvas.fillRect(blue, CGRectMake(3, 3, 1, 1));
    EXPECT_EQ(canvas.at(0, 3), red);
    EXPECT_EQ(canvas.at(3, 0), blue);
    EXPECT_DOUBLE_EQ(canvas.area(), 2);
}

TEST(BitmapContext, StoresEveryByteExactly) {
    Canvas canvas(256, 1);
    for (int i = 0; i < 256; ++i) {
        canvas.fillRect({i, 255 - i, i, 255}, CGRectMake(i, 0, 1, 1));
    }
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(canvas.at(i, 0), (Rgba{i, 255 - i, i, 255}));
    }
}

TEST(BitmapContext, BlendsPremultiplied) {
    Canvas canvas(2, 1);
    canvas.fillRect(white, CGRectMake(1, 0, 1, 1));
    canvas.fillRect({255, 0, 0, 128}, CGRectMake(0, 0, 2, 1));
    EXPECT_EQ(canvas.at(0, 0), (Rgba{128, 0, 0, 128}));
    EXPECT_EQ(canvas.at(1, 0), (Rgba{255, 127, 127, 255}));
    CGContextSetAlpha(canvas, 0.5);
    canvas.fillRect(blue, CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(canvas.at(0, 0), (Rgba{64, 0, 128, 192}));
}

TEST(BitmapContext, ClearsAndCopies) {
    Canvas canvas(2, 1);
    canvas.fillRect(white, CGRectMake(0, 0, 2, 1));
    CGContextClearRect(canvas, CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(canvas.at(0, 0), clear);
    CGContextSetBlendMode(canvas, kCGBlendModeCopy);
    canvas.fillRect({255, 255, 255, 128}, CGRectMake(1, 0, 1, 1));
    EXPECT_EQ(canvas.at(1, 0), (Rgba{128, 128, 128, 128}));
}

TEST(State, SavesTransformationColorAlphaAndClip) {
    Canvas canvas(4, 1);
    canvas.fill(red);
    CGContextSaveGState(canvas);
    CGContextTranslateCTM(canvas, 1, 0);
    CGContextClipToRect(canvas, CGRectMake(0, 0, 1, 1));
    CGContextSetAlpha(canvas, 0);
    canvas.fill(blue);
    EXPECT_EQ(CGContextGetCTM(canvas).tx, 1);
    CGContextRestoreGState(canvas);
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGContextGetCTM(canvas)));
    CGContextFillRect(canvas, CGRectMake(0, 0, 4, 1));
    EXPECT_EQ(canvas.at(0, 0), red);
    EXPECT_EQ(canvas.at(3, 0), red);
}

TEST(State, ComplainsOfARestoreTooMany) {
    Canvas canvas(1, 1);
    EXPECT_EQ(messageOf([&] { CGContextRestoreGState(canvas); }), "<Error>: CGGStackRestore: gstack underflow.\n");
    canvas.fillRect(red, CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(canvas.at(0, 0), red);
}

TEST(State, FlattenedTransformationDrawsNothingUntilRestored) {
    Canvas canvas(2, 2);
    CGContextSaveGState(canvas);
    CGContextScaleCTM(canvas, 0, 1);
    canvas.fillRect(red, CGRectMake(0, 0, 2, 2));
    CGContextMoveToPoint(canvas, 0, 0);
    CGContextFillEllipseInRect(canvas, CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(canvas.area(), 0);
    CGContextRestoreGState(canvas);
    canvas.fillRect(red, CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(canvas.area(), 4);
}

TEST(State, IgnoresNumbersThatAreNone) {
    Canvas canvas(2, 2);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::string message = messageOf([&] {
        CGContextScaleCTM(canvas, nan, 1);
        CGContextFillRect(canvas, CGRectMake(nan, 0, 1, 1));
        CGContextMoveToPoint(canvas, 0, nan);
    });
    EXPECT_THAT(message, HasSubstr("has passed an invalid numeric value"));
    EXPECT_EQ(canvas.area(), 0);
    canvas.fillRect(red, CGRectInfinite);
    EXPECT_EQ(canvas.area(), 4);
    canvas.fillRect(blue, CGRectMake(-1e9, -1e9, 2e9, 1e9 + 1));
    EXPECT_EQ(canvas.at(0, 0), red);
    EXPECT_EQ(canvas.at(0, 1), blue);
}

TEST(State, ComposesALayerOnItsOwn) {
    Canvas canvas(3, 1);
    CGContextSetAlpha(canvas, 0.5);
    CGContextBeginTransparencyLayer(canvas, nullptr);
    canvas.fillRect(red, CGRectMake(0, 0, 2, 1));
    canvas.fillRect(blue, CGRectMake(1, 0, 2, 1));
    EXPECT_EQ(canvas.area(), 0);
    CGContextEndTransparencyLayer(canvas);
    EXPECT_EQ(canvas.at(0, 0), (Rgba{128, 0, 0, 128}));
    EXPECT_EQ(canvas.at(1, 0), (Rgba{0, 0, 128, 128}));
}

TEST(NullContext, IsReportedByNameAndNothingElseHappens) {
    EXPECT_EQ(messageOf([] { CGContextSaveGState(nullptr); }), "<Error>: CGContextSaveGState: invalid context 0x0\n");
    EXPECT_EQ(messageOf([] { CGContextFillRect(nullptr, CGRectMake(0, 0, 1, 1)); }),
              "<Error>: CGContextFillRect: invalid context 0x0\n");
    EXPECT_EQ(messageOf([] { CGContextFillEllipseInRect(nullptr, CGRectMake(0, 0, 1, 1)); }),
              "<Error>: CGContextFillEllipseInRect: invalid context 0x0\n");
    EXPECT_EQ(messageOf([] { CGContextClip(nullptr); }), "<Error>: CGContextClip: invalid context 0x0\n");
    EXPECT_EQ(messageOf([] { CGContextAddArcToPoint(nullptr, 0, 0, 1, 1, 1); }),
              "<Error>: CGContextAddArcToPoint: invalid context 0x0\n");
    EXPECT_EQ(messageOf([] { CGContextDrawImage(nullptr, CGRectMake(0, 0, 1, 1), nullptr); }),
              "<Error>: CGContextDrawImage: invalid context 0x0\n");
    EXPECT_EQ(messageOf([] { EXPECT_EQ(CGBitmapContextCreateImage(nullptr), nullptr); }),
              "<Error>: CGBitmapContextCreateImage: invalid context 0x0\n");
    EXPECT_EQ(messageOf([] { CGContextRelease(nullptr); }), "");
}

TEST(Colors, KeepTheirComponents) {
    const CGFloat components[] = {0.25, 0.5, 0.75, 1};
    const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    const CGColorRef color = CGColorCreate(space, components);
    const CGColorRef half = CGColorCreateCopyWithAlpha(color, 0.5);
    EXPECT_EQ(CGColorGetNumberOfComponents(color), 4u);
    EXPECT_EQ(CGColorGetComponents(color)[2], 0.75);
    EXPECT_EQ(CGColorGetAlpha(half), 0.5);
    EXPECT_FALSE(CGColorEqualToColor(color, half));
    EXPECT_EQ(CGColorGetColorSpace(color), space);
    EXPECT_EQ(CGColorCreate(nullptr, components), nullptr);
    CGColorRelease(half);
    CGColorRelease(color);
    CGColorSpaceRelease(space);
}

}  // namespace
