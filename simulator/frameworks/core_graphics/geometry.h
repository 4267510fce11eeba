// CoreGraphics' points, sizes, rectangles and transforms, with the layouts and rules that Apple's CGGeometry and
// CGAffineTransform references give. Usable from C, C++ and both Objectives. All functions are pure.
#pragma once

#include <math.h>
#include <stdbool.h>

#include "simulator/frameworks/core_graphics/base.h"

typedef struct CGPoint {
    CGFloat x;
    CGFloat y;
} CGPoint;
typedef struct CGSize {
    CGFloat width;
    CGFloat height;
} CGSize;
typedef struct CGRect {
    CGPoint origin;
    CGSize size;
} CGRect;
/// x' = a x + c y + tx, y' = b x + d y + ty.
typedef struct CGAffineTransform {
    CGFloat a, b, c, d;
    CGFloat tx, ty;
} CGAffineTransform;

CG_EXTERN const CGPoint CGPointZero;
CG_EXTERN const CGSize CGSizeZero;
CG_EXTERN const CGRect CGRectZero;
/// What an empty intersection is: origin at infinity.
CG_EXTERN const CGRect CGRectNull;
CG_EXTERN const CGRect CGRectInfinite;
CG_EXTERN const CGAffineTransform CGAffineTransformIdentity;

CG_INLINE CGPoint CGPointMake(CGFloat x, CGFloat y) {
    const CGPoint point = {x, y};
    return point;
}
CG_INLINE CGSize CGSizeMake(CGFloat width, CGFloat height) {
    const CGSize size = {width, height};
    return size;
}
CG_INLINE CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    const CGRect rect = {{x, y}, {width, height}};
    return rect;
}
CG_INLINE bool CGPointEqualToPoint(CGPoint a, CGPoint b) { return a.x == b.x && a.y == b.y; }
CG_INLINE bool CGSizeEqualToSize(CGSize a, CGSize b) { return a.width == b.width && a.height == b.height; }

CG_INLINE bool CGRectIsNull(CGRect r) { return r.origin.x == CGRectNull.origin.x || r.origin.y == CGRectNull.origin.y; }
CG_INLINE bool CGRectIsInfinite(CGRect r) {
    return r.origin.x == CGRectInfinite.origin.x && r.origin.y == CGRectInfinite.origin.y &&
           r.size.width == CGRectInfinite.size.width && r.size.height == CGRectInfinite.size.height;
}
/// The same rectangle with a width and height that are not negative.
CG_INLINE CGRect CGRectStandardize(CGRect r) {
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
CG_INLINE bool CGRectIsEmpty(CGRect r) { return CGRectIsNull(r) || r.size.width == 0 || r.size.height == 0; }
CG_INLINE CGFloat CGRectGetMinX(CGRect r) { return CGRectStandardize(r).origin.x; }
CG_INLINE CGFloat CGRectGetMinY(CGRect r) { return CGRectStandardize(r).origin.y; }
CG_INLINE CGFloat CGRectGetWidth(CGRect r) { return CGRectStandardize(r).size.width; }
CG_INLINE CGFloat CGRectGetHeight(CGRect r) { return CGRectStandardize(r).size.height; }
CG_INLINE CGFloat CGRectGetMaxX(CGRect r) { return CGRectGetMinX(r) + CGRectGetWidth(r); }
CG_INLINE CGFloat CGRectGetMaxY(CGRect r) { return CGRectGetMinY(r) + CGRectGetHeight(r); }
CG_INLINE CGFloat CGRectGetMidX(CGRect r) { return CGRectGetMinX(r) + CGRectGetWidth(r) / 2; }
CG_INLINE CGFloat CGRectGetMidY(CGRect r) { return CGRectGetMinY(r) + CGRectGetHeight(r) / 2; }
CG_INLINE bool CGRectEqualToRect(CGRect a, CGRect b) {
    a = CGRectStandardize(a);
    b = CGRectStandardize(b);
    return CGPointEqualToPoint(a.origin, b.origin) && CGSizeEqualToSize(a.size, b.size);
}
/// CGRectNull when insetting leaves a negative width or height.
CG_INLINE CGRect CGRectInset(CGRect r, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(r)) {
        return r;
    }
    r = CGRectStandardize(r);
    r = CGRectMake(r.origin.x + dx, r.origin.y + dy, r.size.width - 2 * dx, r.size.height - 2 * dy);
    return r.size.width < 0 || r.size.height < 0 ? CGRectNull : r;
}
CG_INLINE CGRect CGRectOffset(CGRect r, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(r)) {
        return r;
    }
    r = CGRectStandardize(r);
    return CGRectMake(r.origin.x + dx, r.origin.y + dy, r.size.width, r.size.height);
}
/// The smallest rectangle with whole-number corners that contains the given one.
CG_INLINE CGRect CGRectIntegral(CGRect r) {
    if (CGRectIsNull(r)) {
        return r;
    }
    const CGFloat x = floor(CGRectGetMinX(r)), y = floor(CGRectGetMinY(r));
    return CGRectMake(x, y, ceil(CGRectGetMaxX(r)) - x, ceil(CGRectGetMaxY(r)) - y);
}
CG_INLINE CGRect CGRectUnion(CGRect a, CGRect b) {
    if (CGRectIsNull(a)) {
        return b;
    }
    if (CGRectIsNull(b)) {
        return a;
    }
    const CGFloat x = fmin(CGRectGetMinX(a), CGRectGetMinX(b)), y = fmin(CGRectGetMinY(a), CGRectGetMinY(b));
    return CGRectMake(x, y, fmax(CGRectGetMaxX(a), CGRectGetMaxX(b)) - x, fmax(CGRectGetMaxY(a), CGRectGetMaxY(b)) - y);
}
/// CGRectNull when the rectangles do not meet; rectangles that share only an edge meet in an empty rectangle.
CG_INLINE CGRect CGRectIntersection(CGRect a, CGRect b) {
    if (CGRectIsNull(a) || CGRectIsNull(b)) {
        return CGRectNull;
    }
    const CGFloat x = fmax(CGRectGetMinX(a), CGRectGetMinX(b)), y = fmax(CGRectGetMinY(a), CGRectGetMinY(b));
    const CGFloat right = fmin(CGRectGetMaxX(a), CGRectGetMaxX(b));
    const CGFloat bottom = fmin(CGRectGetMaxY(a), CGRectGetMaxY(b));
    return right < x || bottom < y ? CGRectNull : CGRectMake(x, y, right - x, bottom - y);
}
CG_INLINE bool CGRectIntersectsRect(CGRect a, CGRect b) { return !CGRectIsEmpty(CGRectIntersection(a, b)); }
/// The left and top edges belong to the rectangle, the right and bottom edges do not.
CG_INLINE bool CGRectContainsPoint(CGRect r, CGPoint p) {
    return !CGRectIsNull(r) && p.x >= CGRectGetMinX(r) && p.y >= CGRectGetMinY(r) && p.x < CGRectGetMaxX(r) &&
           p.y < CGRectGetMaxY(r);
}
CG_INLINE bool CGRectContainsRect(CGRect outer, CGRect inner) {
    return CGRectIsNull(inner) ||
           (!CGRectIsNull(outer) && CGRectGetMinX(outer) <= CGRectGetMinX(inner) &&
            CGRectGetMinY(outer) <= CGRectGetMinY(inner) && CGRectGetMaxX(outer) >= CGRectGetMaxX(inner) &&
            CGRectGetMaxY(outer) >= CGRectGetMaxY(inner));
}

CG_INLINE CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty) {
    const CGAffineTransform transform = {a, b, c, d, tx, ty};
    return transform;
}
CG_INLINE CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) {
    return CGAffineTransformMake(1, 0, 0, 1, tx, ty);
}
CG_INLINE CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) {
    return CGAffineTransformMake(sx, 0, 0, sy, 0, 0);
}
/// Radians; counter-clockwise where y points up.
CG_INLINE CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
    return CGAffineTransformMake(cos(angle), sin(angle), -sin(angle), cos(angle), 0, 0);
}
/// The transform that applies `first`, then `second`.
CG_INLINE CGAffineTransform CGAffineTransformConcat(CGAffineTransform first, CGAffineTransform second) {
    return CGAffineTransformMake(first.a * second.a + first.b * second.c, first.a * second.b + first.b * second.d,
                                 first.c * second.a + first.d * second.c, first.c * second.b + first.d * second.d,
                                 first.tx * second.a + first.ty * second.c + second.tx,
                                 first.tx * second.b + first.ty * second.d + second.ty);
}
CG_INLINE CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty) {
    return CGAffineTransformConcat(CGAffineTransformMakeTranslation(tx, ty), t);
}
CG_INLINE CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy) {
    return CGAffineTransformConcat(CGAffineTransformMakeScale(sx, sy), t);
}
CG_INLINE CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle) {
    return CGAffineTransformConcat(CGAffineTransformMakeRotation(angle), t);
}
/// The transform itself when it cannot be inverted.
CG_INLINE CGAffineTransform CGAffineTransformInvert(CGAffineTransform t) {
    const CGFloat determinant = t.a * t.d - t.b * t.c;
    if (determinant == 0) {
        return t;
    }
    return CGAffineTransformMake(t.d / determinant, -t.b / determinant, -t.c / determinant, t.a / determinant,
                                 (t.c * t.ty - t.d * t.tx) / determinant, (t.b * t.tx - t.a * t.ty) / determinant);
}
CG_INLINE bool CGAffineTransformEqualToTransform(CGAffineTransform s, CGAffineTransform t) {
    return s.a == t.a && s.b == t.b && s.c == t.c && s.d == t.d && s.tx == t.tx && s.ty == t.ty;
}
CG_INLINE bool CGAffineTransformIsIdentity(CGAffineTransform t) {
    return CGAffineTransformEqualToTransform(t, CGAffineTransformIdentity);
}
CG_INLINE CGPoint CGPointApplyAffineTransform(CGPoint p, CGAffineTransform t) {
    return CGPointMake(t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty);
}
CG_INLINE CGSize CGSizeApplyAffineTransform(CGSize s, CGAffineTransform t) {
    return CGSizeMake(t.a * s.width + t.c * s.height, t.b * s.width + t.d * s.height);
}
/// The smallest rectangle that contains the transformed corners.
CG_INLINE CGRect CGRectApplyAffineTransform(CGRect r, CGAffineTransform t) {
    if (CGRectIsNull(r)) {
        return r;
    }
    const CGFloat x0 = CGRectGetMinX(r), x1 = CGRectGetMaxX(r), y0 = CGRectGetMinY(r), y1 = CGRectGetMaxY(r);
    const CGPoint p[] = {
        CGPointApplyAffineTransform(CGPointMake(x0, y0), t), CGPointApplyAffineTransform(CGPointMake(x1, y0), t),
        CGPointApplyAffineTransform(CGPointMake(x0, y1), t), CGPointApplyAffineTransform(CGPointMake(x1, y1), t)};
    CGPoint low = p[0], high = p[0];
    for (int i = 1; i < 4; ++i) {
        low = CGPointMake(fmin(low.x, p[i].x), fmin(low.y, p[i].y));
        high = CGPointMake(fmax(high.x, p[i].x), fmax(high.y, p[i].y));
    }
    return CGRectMake(low.x, low.y, high.x - low.x, high.y - low.y);
}
