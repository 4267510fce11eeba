#import "simulator/hosts/remote/pixels.h"

#include <algorithm>
#include <cstdio>

#include "simulator/frameworks/uikit/uikit.h"

namespace hosts {
namespace {

Pixels drawn(UIImage* image, size_t width, size_t height) {
    Pixels pixels;
    if (image == nil || width == 0 || height == 0) return pixels;
    pixels.width = width;
    pixels.height = height;
    pixels.rgba.resize(4 * width * height);
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGContextRef context =
        CGBitmapContextCreate(pixels.rgba.data(), width, height, 8, 4 * width, space, kCGImageAlphaPremultipliedLast);
    CGContextDrawImage(context, CGRectMake(0, 0, (CGFloat)width, (CGFloat)height), [image CGImage]);
    // A context may hold drawing back until its bytes are asked for.
    const auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(context));
    pixels.rgba.assign(bytes, bytes + 4 * width * height);
    CGContextRelease(context);
    CGColorSpaceRelease(space);
    return pixels;
}

}  // namespace

Pixels pixelsOf(UIImage* image) {
    return drawn(image, CGImageGetWidth([image CGImage]), CGImageGetHeight([image CGImage]));
}

Pixels pixelsStretched(UIImage* image, size_t side) { return drawn(image, side, side); }

std::string contentHash(const Pixels& pixels) {
    uint64_t hash = 0xcbf29ce484222325;
    const auto add = [&hash](uint8_t byte) { hash = (hash ^ byte) * 0x100000001b3; };
    for (const size_t side : {pixels.width, pixels.height})
        for (int shift = 0; shift < 32; shift += 8) add(static_cast<uint8_t>(side >> shift));
    for (const uint8_t byte : pixels.rgba) add(byte);
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
    return text;
}

std::string coarseLook(const Pixels& pixels) {
    constexpr size_t kSide = 16;
    std::string text;
    for (size_t square = 0; square < kSide * kSide; ++square) {
        const size_t column = square % kSide, row = square / kSide;
        const size_t left = column * pixels.width / kSide, right = (column + 1) * pixels.width / kSide;
        const size_t top = row * pixels.height / kSide, bottom = (row + 1) * pixels.height / kSide;
        unsigned long sums[3] = {};
        for (size_t y = top; y < bottom; ++y)
            for (size_t x = left; x < right; ++x)
                for (size_t c = 0; c < 3; ++c) sums[c] += pixels.at(x, y)[c];
        const size_t count = std::max<size_t>(1, (right - left) * (bottom - top));
        for (const unsigned long sum : sums) {
            char digits[3];
            std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(sum / count) & 255U);
            text += digits;
        }
    }
    return text;
}

}  // namespace hosts
