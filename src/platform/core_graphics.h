// CoreGraphics, as far as the library draws with it, as the framework's public headers declare it. References from
// Create functions are owned (+1); contexts are used by one thread at a time.
#pragma once

#include <cstddef>

#include "src/platform/abi.h"

using CGContextRef = struct CGContext*;
using CGImageRef = struct CGImage*;
using CGColorRef = struct CGColor*;
using CGColorSpaceRef = struct CGColorSpace*;
using CGPathRef = const struct CGPath*;
using CGMutablePathRef = struct CGPath*;
struct CGAffineTransform;

namespace zelka {

// Alpha comes first in memory and is multiplied into the colours (kCGImageAlphaPremultipliedFirst).
constexpr std::uint32_t kAlphaPremultipliedFirst = 2;

}  // namespace zelka

extern "C" {
CGColorSpaceRef CGColorSpaceCreateDeviceRGB();
CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height, std::size_t bitsPerComponent,
                                   std::size_t bytesPerRow, CGColorSpaceRef space, std::uint32_t bitmapInfo);
CGImageRef CGBitmapContextCreateImage(CGContextRef context);

void CGContextSaveGState(CGContextRef context);
void CGContextRestoreGState(CGContextRef context);
void CGContextTranslateCTM(CGContextRef context, CGFloat x, CGFloat y);
void CGContextScaleCTM(CGContextRef context, CGFloat x, CGFloat y);
void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color);
void CGContextFillRect(CGContextRef context, CGRect rect);
void CGContextFillEllipseInRect(CGContextRef context, CGRect rect);
void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image);

void CGContextBeginPath(CGContextRef context);
void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddRect(CGContextRef context, CGRect rect);
// Angles in radians; clockwise as seen with the origin at the bottom left.
void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise);
void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius);
void CGContextClosePath(CGContextRef context);
void CGContextClip(CGContextRef context);

CGMutablePathRef CGPathCreateMutable();
void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat controlX,
                               CGFloat controlY, CGFloat x, CGFloat y);
}
