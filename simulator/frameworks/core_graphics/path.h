// Paths. A mutable path belongs to one thread at a time; an unchanging one may be read from several.
#pragma once

#include <stdbool.h>

#include "simulator/frameworks/core_graphics/geometry.h"

/// `points` holds 1, 1, 2, 3 or 0 points by type: control points first, the end point last.
typedef struct CGPathElement {
    CGPathElementType type;
    CGPoint* points;
} CGPathElement;
typedef void (*CGPathApplierFunction)(void* info, const CGPathElement* element);

CG_EXTERN_BEGIN
/// +1, empty.
CGMutablePathRef CGPathCreateMutable(void);
/// +1; NULL for NULL.
CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path);
CGPathRef CGPathCreateCopy(CGPathRef path);
/// +1.
CGPathRef CGPathCreateWithRect(CGRect rect, const CGAffineTransform* m);
CGPathRef CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* m);
/// A rectangle whose corners are quarters of an ellipse, as CGPathAddRoundedRect adds it.
CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                      const CGAffineTransform* m);
CGPathRef CGPathRetain(CGPathRef path);
void CGPathRelease(CGPathRef path);
bool CGPathEqualToPath(CGPathRef a, CGPathRef b);
bool CGPathIsEmpty(CGPathRef path);

// Additions. `m`, when not NULL, is applied to the points first. Lines and curves need a current point: without one
// they log as CoreGraphics does and add nothing.
void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y);
void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y);
void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cpx, CGFloat cpy, CGFloat x,
                               CGFloat y);
void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x,
                           CGFloat cp2y, CGFloat x, CGFloat y);
void CGPathCloseSubpath(CGMutablePathRef path);
void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect);
void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect);
/// From the left end of the edge at the least y, in the direction of growing angles. A corner must not be wider or
/// higher than half of the rectangle: as CoreGraphics does, it ends the process with a message otherwise.
void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight);
/// Radians. `clockwise` as seen where y points up; a whole turn or more draws one whole circle.
void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise);
/// The arc of `radius` that touches the lines current point - (x1, y1) and (x1, y1) - (x2, y2).
void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x1, CGFloat y1, CGFloat x2,
                         CGFloat y2, CGFloat radius);
void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* m, CGPathRef other);

/// CGPointZero for an empty path.
CGPoint CGPathGetCurrentPoint(CGPathRef path);
/// Encloses all points, control points included; CGRectNull for an empty path.
CGRect CGPathGetBoundingBox(CGPathRef path);
/// Calls `function` for every element in order; an element and its points live for the call only.
void CGPathApply(CGPathRef path, void* info, CGPathApplierFunction function);
CG_EXTERN_END
