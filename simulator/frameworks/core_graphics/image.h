// Bitmap images. An image is immutable and may be drawn on several threads at once.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simulator/frameworks/core_graphics/color.h"

using CGImageRef = struct CGImage*;

enum CGImageAlphaInfo : uint32_t {
    kCGImageAlphaNone,
    kCGImageAlphaPremultipliedLast,
    kCGImageAlphaPremultipliedFirst,
    kCGImageAlphaLast,
    kCGImageAlphaFirst,
    kCGImageAlphaNoneSkipLast,
    kCGImageAlphaNoneSkipFirst,
    kCGImageAlphaOnly,
};
using CGBitmapInfo = uint32_t;
// Numbers, not an enumeration: they are combined with a CGImageAlphaInfo.
inline constexpr CGBitmapInfo kCGBitmapAlphaInfoMask = 0x1F;
inline constexpr CGBitmapInfo kCGBitmapFloatComponents = 1 << 8;
inline constexpr CGBitmapInfo kCGBitmapByteOrderMask = 0x7000;
inline constexpr CGBitmapInfo kCGBitmapByteOrderDefault = 0 << 12;
inline constexpr CGBitmapInfo kCGBitmapByteOrder16Little = 1 << 12;
inline constexpr CGBitmapInfo kCGBitmapByteOrder32Little = 2 << 12;
inline constexpr CGBitmapInfo kCGBitmapByteOrder16Big = 3 << 12;
inline constexpr CGBitmapInfo kCGBitmapByteOrder32Big = 4 << 12;

extern "C" {
/// +1: the part of the image inside `rect` (pixels from the top-left corner, made integral); NULL when they do not
/// meet.
CGImageRef CGImageCreateWithImageInRect(CGImageRef image, CGRect rect);
CGImageRef CGImageRetain(CGImageRef image);
void CGImageRelease(CGImageRef image);
/// Pixels; 0 for NULL.
size_t CGImageGetWidth(CGImageRef image);
size_t CGImageGetHeight(CGImageRef image);
size_t CGImageGetBitsPerComponent(CGImageRef image);
size_t CGImageGetBitsPerPixel(CGImageRef image);
size_t CGImageGetBytesPerRow(CGImageRef image);
CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef image);
}
