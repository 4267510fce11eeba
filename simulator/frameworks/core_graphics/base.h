// What all of CoreGraphics' headers build on: its references and number types. Usable from C, C++ and both Objectives.
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define CG_EXTERN extern "C"
#define CG_EXTERN_BEGIN extern "C" {
#define CG_EXTERN_END }
#else
#define CG_EXTERN extern
#define CG_EXTERN_BEGIN
#define CG_EXTERN_END
#endif
#define CG_INLINE static inline

#if !defined(CGFLOAT_DEFINED)
// As Foundation declares it: by the width of pointers.
#if UINTPTR_MAX > UINT32_MAX
typedef double CGFloat;
#else
typedef float CGFloat;
#endif
#endif

typedef struct CGColorSpace* CGColorSpaceRef;
typedef struct CGColor* CGColorRef;
typedef struct CGDataProvider* CGDataProviderRef;
typedef struct CGImage* CGImageRef;
typedef const struct CGPath* CGPathRef;
typedef struct CGPath* CGMutablePathRef;
typedef struct CGContext* CGContextRef;

typedef enum CGColorSpaceModel : int32_t {
    kCGColorSpaceModelUnknown = -1,
    kCGColorSpaceModelMonochrome = 0,
    kCGColorSpaceModelRGB = 1,
} CGColorSpaceModel;

typedef enum CGImageAlphaInfo : uint32_t {
    kCGImageAlphaNone,
    kCGImageAlphaPremultipliedLast,
    kCGImageAlphaPremultipliedFirst,
    kCGImageAlphaLast,
    kCGImageAlphaFirst,
    kCGImageAlphaNoneSkipLast,
    kCGImageAlphaNoneSkipFirst,
    kCGImageAlphaOnly,
} CGImageAlphaInfo;

typedef uint32_t CGBitmapInfo;
// Numbers, not an enumeration: they are combined with a CGImageAlphaInfo.
static const CGBitmapInfo kCGBitmapAlphaInfoMask = 0x1F;
static const CGBitmapInfo kCGBitmapFloatComponents = 1 << 8;
static const CGBitmapInfo kCGBitmapByteOrderMask = 0x7000;
static const CGBitmapInfo kCGBitmapByteOrderDefault = 0 << 12;
static const CGBitmapInfo kCGBitmapByteOrder16Little = 1 << 12;
static const CGBitmapInfo kCGBitmapByteOrder32Little = 2 << 12;
static const CGBitmapInfo kCGBitmapByteOrder16Big = 3 << 12;
static const CGBitmapInfo kCGBitmapByteOrder32Big = 4 << 12;

typedef enum CGPathElementType : int32_t {
    kCGPathElementMoveToPoint,
    kCGPathElementAddLineToPoint,
    kCGPathElementAddQuadCurveToPoint,
    kCGPathElementAddCurveToPoint,
    kCGPathElementCloseSubpath,
} CGPathElementType;
