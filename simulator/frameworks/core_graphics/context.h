// Drawing contexts. A context belongs to one thread at a time; separate contexts may be drawn in at the same time.
//
// A NULL context is reported as CoreGraphics reports it ("<Error>: FUNCTION: invalid context 0x0") and nothing is
// drawn. Coordinates are those of the current transformation: in a bitmap context one unit is a pixel and y points up.
#pragma once

#include "simulator/frameworks/core_graphics/color.h"
#include "simulator/frameworks/core_graphics/image.h"
#include "simulator/frameworks/core_graphics/path.h"

typedef enum CGInterpolationQuality : int32_t {
    kCGInterpolationDefault,
    kCGInterpolationNone,
    kCGInterpolationLow,
    kCGInterpolationHigh,
    kCGInterpolationMedium,
} CGInterpolationQuality;
typedef enum CGBlendMode : int32_t {
    kCGBlendModeNormal = 0,
    kCGBlendModeClear = 16,
    kCGBlendModeCopy = 17
} CGBlendMode;
typedef enum CGPathDrawingMode : int32_t {
    kCGPathFill,
    kCGPathEOFill,
    kCGPathStroke,
    kCGPathFillStroke,
    kCGPathEOFillStroke,
} CGPathDrawingMode;

CG_EXTERN_BEGIN
/// +1. With NULL `data` the context has memory of its own; otherwise it draws into `data`, which must outlive it.
/// Device RGB, 8 bits per component, alpha premultiplied or skipped, first or last. `bytesPerRow` 0 lets the context
/// choose. Anything else logs the parameters as CoreGraphics does and returns NULL.
CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef space, CGBitmapInfo bitmapInfo);
/// +1: a picture of what has been drawn so far; later drawing does not change it. NULL for NULL.
CGImageRef CGBitmapContextCreateImage(CGContextRef context);
/// The pixels in the layout asked for at creation, top row first; valid as long as the context. Bytes written there
/// are seen by later drawing.
void* CGBitmapContextGetData(CGContextRef context);
size_t CGBitmapContextGetWidth(CGContextRef context);
size_t CGBitmapContextGetHeight(CGContextRef context);
size_t CGBitmapContextGetBytesPerRow(CGContextRef context);
CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef context);
CGContextRef CGContextRetain(CGContextRef context);
void CGContextRelease(CGContextRef context);

void CGContextSaveGState(CGContextRef context);
void CGContextRestoreGState(CGContextRef context);
void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy);
void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty);
void CGContextRotateCTM(CGContextRef context, CGFloat angle);
void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform);
CGAffineTransform CGContextGetCTM(CGContextRef context);

void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color);
void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color);
void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha);
/// Multiplies everything drawn from now on; 0 to 1.
void CGContextSetAlpha(CGContextRef context, CGFloat alpha);
void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode);
void CGContextSetLineWidth(CGContextRef context, CGFloat width);
void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality);
void CGContextSetShouldAntialias(CGContextRef context, bool antialias);

// The current path. It is not part of the saved state; filling, stroking and clipping consume it.
void CGContextBeginPath(CGContextRef context);
void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y);
void CGContextAddCurveToPoint(CGContextRef context, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x, CGFloat cp2y, CGFloat x,
                              CGFloat y);
void CGContextClosePath(CGContextRef context);
void CGContextAddRect(CGContextRef context, CGRect rect);
void CGContextAddEllipseInRect(CGContextRef context, CGRect rect);
/// Radians. `clockwise` is as seen where y points up, so it looks reversed in a context whose y points down.
void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise);
/// The arc of `radius` that touches the lines current point - (x1, y1) and (x1, y1) - (x2, y2); a line to (x1, y1)
/// where there is no such arc.
void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius);
void CGContextAddPath(CGContextRef context, CGPathRef path);
bool CGContextIsPathEmpty(CGContextRef context);
CGPoint CGContextGetPathCurrentPoint(CGContextRef context);
void CGContextFillPath(CGContextRef context);
void CGContextEOFillPath(CGContextRef context);
void CGContextStrokePath(CGContextRef context);
void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode);

void CGContextClip(CGContextRef context);
void CGContextEOClip(CGContextRef context);
void CGContextClipToRect(CGContextRef context, CGRect rect);
CGRect CGContextGetClipBoundingBox(CGContextRef context);

void CGContextFillRect(CGContextRef context, CGRect rect);
void CGContextStrokeRect(CGContextRef context, CGRect rect);
void CGContextClearRect(CGContextRef context, CGRect rect);
void CGContextFillEllipseInRect(CGContextRef context, CGRect rect);
/// Fills `rect` with the whole image, its top edge at the rectangle's greatest y. A NULL image draws nothing.
void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image);
/// What is drawn until the matching End is composed on its own first, then drawn once with the alpha of Begin's time.
void CGContextBeginTransparencyLayer(CGContextRef context, const void* auxiliaryInfo);
void CGContextEndTransparencyLayer(CGContextRef context);
CG_EXTERN_END
