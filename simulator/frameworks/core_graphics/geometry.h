// CoreGraphics' points, sizes, rectangles and transforms, with the layouts and rules that Apple's CGGeometry and
// CGAffineTransform references give. Usable from C++ and Objective-C++. All functions are pure.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#if !defined(CGFLOAT_DEFINED)
using CGFloat = double;  // as Foundation declares it for 64-bit programs
#endif

struct CGPoint {
    CGFloat x;
    CGFloat y;
};
struct CGSize {
    CGFloat width;
    CGFloat height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};
/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
    CGFloat a, b, c, d;
    CGFloat tx, ty;
};

inline constexpr CGPoint CGPointZero{0, 0};
inline constexpr CGSize CGSizeZero{0, 0};
inline constexpr CGRect CGRectZero{{0, 0}, {0, 0}};
/// What an empty intersection is: origin at infinity.
inline constexpr CGRect CGRectNull{{std::numeric_limits<CGFloat>::infinity(), std::numeric_limits<CGFloat>::infinity()},
                                   {0, 0}};
inline constexpr CGRect CGRectInfinite{
    {-std::numeric_limits<CGFloat>::max() / 2, -std::numeric_limits<CGFloat>::max() / 2},
    {std::numeric_limits<CGFloat>::max(), std::numeric_limits<CGFloat>::max()}};
inline constexpr CGAffineTransform CGAffineTransformIdentity{1, 0, 0, 1, 0, 0};

constexpr CGPoint CGPointMake(CGFloat x, CGFloat y) { return {x, y}; }
constexpr CGSize CGSizeMake(CGFloat width, CGFloat height) { return {width, height}; }
constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) { return {{x, y}, {width, height}}; }
constexpr bool CGPointEqualToPoint(CGPoint a, CGPoint b) { return a.x == b.x && a.y == b.y; }
constexpr bool CGSizeEqualToSize(CGSize a, CGSize b) { return a.width == b.width && a.height == b.height; }

constexpr bool CGRectIsNull(CGRect r) { return r.origin.x == CGRectNull.origin.x || r.origin.y == CGRectNull.origin.y; }
constexpr bool CGRectIsInfinite(CGRect r) {
    return r.origin.x == CGRectInfinite.origin.x && r.origin.y == CGRectInfinite.origin.y &&
           r.size.width == CGRectInfinite.size.width && r.size.height == CGRectInfinite.size.height;
}
/// The same rectangle with a width and height that are not negative.
constexpr CGRect CGRectStandardize(CGRect r) {
    if (CGRectIsNull(r)) {
        return CGRectNull;
    }
    if (r.size.width < 0) {
        r.origin.x += r.size.width;
        r.size.width = -r.size.width;
    }
    if (r.size.height < 0) {
        r.origin.y += r.size.height;
        r.size.height = -r.size.height;
    }
    return r;
}
constexpr bool CGRectIsEmpty(CGRect r) { return CGRectIsNull(r) || r.size.width == 0 || r.size.height == 0; }
constexpr CGFloat CGRectGetMinX(CGRect r) { return CGRectStandardize(r).origin.x; }
constexpr CGFloat CGRectGetMinY(CGRect r) { return CGRectStandardize(r).origin.y; }
constexpr CGFloat CGRectGetWidth(CGRect r) { return CGRectStandardize(r).size.width; }
constexpr CGFloat CGRectGetHeight(CGRect r) { return CGRectStandardize(r).size.height; }
constexpr CGFloat CGRectGetMaxX(CGRect r) { return CGRectGetMinX(r) + CGRectGetWidth(r); }
constexpr CGFloat CGRectGetMaxY(CGRect r) { return CGRectGetMinY(r) + CGRectGetHeight(r); }
constexpr CGFloat CGRectGetMidX(CGRect r) { return CGRectGetMinX(r) + CGRectGetWidth(r) / 2; }
constexpr CGFloat CGRectGetMidY(CGRect r) { return CGRectGetMinY(r) + CGRectGetHeight(r) / 2; }
constexpr bool CGRectEqualToRect(CGRect a, CGRect b) {
    a = CGRectStandardize(a);
    b = CGRectStandardize(b);
    return CGPointEqualToPoint(a.origin, b.origin) && CGSizeEqualToSize(a.size, b.size);
}
/// CGRectNull when insetting leaves a negative width or height.
constexpr CGRect CGRectInset(CGRect r, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(r)) {
        return r;
    }
    r = CGRectStandardize(r);
    r = {{r.origin.x + dx, r.origin.y + dy}, {r.size.width - 2 * dx, r.size.height - 2 * dy}};
    return r.size.width < 0 || r.size.height < 0 ? CGRectNull : r;
}
constexpr CGRect CGRectOffset(CGRect r, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(r)) {
        return r;
    }
    r = CGRectStandardize(r);
    return {{r.origin.x + dx, r.origin.y + dy}, r.size};
}
/// The smallest rectangle with whole-number corners that contains the given one.
inline CGRect CGRectIntegral(CGRect r) {
    if (CGRectIsNull(r)) {
        return r;
    }
    const CGFloat x = std::floor(CGRectGetMinX(r)), y = std::floor(CGRectGetMinY(r));
    return {{x, y}, {std::ceil(CGRectGetMaxX(r)) - x, std::ceil(CGRectGetMaxY(r)) - y}};
}
constexpr CGRect CGRectUnion(CGRect a, CGRect b) {
    if (CGRectIsNull(a)) {
        return b;
    }
    if (CGRectIsNull(b)) {
        return a;
    }
    const CGFloat x = std::min(CGRectGetMinX(a), CGRectGetMinX(b)), y = std::min(CGRectGetMinY(a), CGRectGetMinY(b));
    return {{x, y},
            {std::max(CGRectGetMaxX(a), CGRectGetMaxX(b)) - x, std::max(CGRectGetMaxY(a), CGRectGetMaxY(b)) - y}};
}
/// CGRectNull when the rectangles do not meet; rectangles that share only an edge meet in an empty rectangle.
constexpr CGRect CGRectIntersection(CGRect a, CGRect b) {
    if (CGRectIsNull(a) || CGRectIsNull(b)) {
        return CGRectNull;
    }
    const CGFloat x = std::max(CGRectGetMinX(a), CGRectGetMinX(b)), y = std::max(CGRectGetMinY(a), CGRectGetMinY(b));
    const CGFloat right = std::min(CGRectGetMaxX(a), CGRectGetMaxX(b));
    const CGFloat bottom = std::min(CGRectGetMaxY(a), CGRectGetMaxY(b));
    return right < x || bottom < y ? CGRectNull : CGRect{{x, y}, {right - x, bottom - y}};
}
constexpr bool CGRectIntersectsRect(CGRect a, CGRect b) { return !CGRectIsEmpty(CGRectIntersection(a, b)); }
/// The left and top edges belong to the rectangle, the right and bottom edges do not.
constexpr bool CGRectContainsPoint(CGRect r, CGPoint p) {
    return !CGRectIsNull(r) && p.x >= CGRectGetMinX(r) && p.y >= CGRectGetMinY(r) && p.x < CGRectGetMaxX(r) &&
           p.y < CGRectGetMaxY(r);
}
constexpr bool CGRectContainsRect(CGRect outer, CGRect inner) {
    return CGRectIsNull(inner) ||
           (!CGRectIsNull(outer) && CGRectGetMinX(outer) <= CGRectGetMinX(inner) &&
            CGRectGetMinY(outer) <= CGRectGetMinY(inner) && CGRectGetMaxX(outer) >= CGRectGetMaxX(inner) &&
            CGRectGetMaxY(outer) >= CGRectGetMaxY(inner));
}

constexpr CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty) {
    return {a, b, c, d, tx, ty};
}
constexpr CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) { return {1, 0, 0, 1, tx, ty}; }
constexpr CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) { return {sx, 0, 0, sy, 0, 0}; }
/// Radians; counter-clockwise where y points up.
inline CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
    return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
}
/// The transform that applies `first`, then `second`.
constexpr CGAffineTransform CGAffineTransformConcat(CGAffineTransform first, CGAffineTransform second) {
    return {first.a * second.a + first.b * second.c,
            first.a * second.b + first.b * second.d,
            first.c * second.a + first.d * second.c,
            first.c * second.b + first.d * second.d,
            first.tx * second.a + first.ty * second.c + second.tx,
            first.tx * second.b + first.ty * second.d + second.ty};
}
constexpr CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty) {
    return CGAffineTransformConcat(CGAffineTransformMakeTranslation(tx, ty), t);
}
constexpr CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy) {
    return CGAffineTransformConcat(CGAffineTransformMakeScale(sx, sy), t);
}
inline CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle) {
    return CGAffineTransformConcat(CGAffineTransformMakeRotation(angle), t);
}
/// The transform itself when it cannot be inverted.
constexpr CGAffineTransform CGAffineTransformInvert(CGAffineTransform t) {
    const CGFloat determinant = t.a * t.d - t.b * t.c;
    if (determinant == 0) {
        return t;
    }
    return {t.d / determinant,
            -t.b / determinant,
            -t.c / determinant,
            t.a / determinant,
            (t.c * t.ty - t.d * t.tx) / determinant,
            (t.b * t.tx - t.a * t.ty) / determinant};
}
constexpr bool CGAffineTransformEqualToTransform(CGAffineTransform s, CGAffineTransform t) {
    return s.a == t.a && s.b == t.b && s.c == t.c && s.d == t.d && s.tx == t.tx && s.ty == t.ty;
}
constexpr bool CGAffineTransformIsIdentity(CGAffineTransform t) {
    return CGAffineTransformEqualToTransform(t, CGAffineTransformIdentity);
}
constexpr CGPoint CGPointApplyAffineTransform(CGPoint p, CGAffineTransform t) {
    return {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty};
}
constexpr CGSize CGSizeApplyAffineTransform(CGSize s, CGAffineTransform t) {
    return {t.a * s.width + t.c * s.height, t.b * s.width + t.d * s.height};
}
/// The smallest rectangle that contains the transformed corners.
constexpr CGRect CGRectApplyAffineTransform(CGRect r, CGAffineTransform t) {
    if (CGRectIsNull(r)) {
        return r;
    }
    const CGFloat x0 = CGRectGetMinX(r), x1 = CGRectGetMaxX(r), y0 = CGRectGetMinY(r), y1 = CGRectGetMaxY(r);
    const CGPoint p[] = {CGPointApplyAffineTransform({x0, y0}, t), CGPointApplyAffineTransform({x1, y0}, t),
                         CGPointApplyAffineTransform({x0, y1}, t), CGPointApplyAffineTransform({x1, y1}, t)};
    CGPoint low = p[0], high = p[0];
    for (const CGPoint& corner : p) {
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    return {low, {high.x - low.x, high.y - low.y}};
}
