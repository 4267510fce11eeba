#include "src/exports/rounded_corner_path.h"

CGMutablePathRef createRoundedCornerPath(CGRect rect, CGFloat radius) {
    CGFloat left = rect.origin.x;
    CGFloat top = rect.origin.y;
    CGFloat right = left + rect.size.width;
    CGFloat bottom = top + rect.size.height;
    CGMutablePathRef path = CGPathCreateMutable();
    CGPathMoveToPoint(path, nullptr, left + radius, top);
    CGPathAddLineToPoint(path, nullptr, right - radius, top);
    CGPathAddQuadCurveToPoint(path, nullptr, right, top, right, top + radius);
    CGPathAddLineToPoint(path, nullptr, right, bottom - radius);
    CGPathAddQuadCurveToPoint(path, nullptr, right, bottom, right - radius, bottom);
    CGPathAddLineToPoint(path, nullptr, left + radius, bottom);
    CGPathAddQuadCurveToPoint(path, nullptr, left, bottom, left, bottom - radius);
    CGPathAddLineToPoint(path, nullptr, left, top + radius);
    CGPathAddQuadCurveToPoint(path, nullptr, left, top, left + radius, top);
    return path;
}
