#import "simulator/frameworks/uikit/graphics/UIBezierPath.h"

#include <algorithm>

#import "simulator/frameworks/uikit/graphics/UIGraphics.h"

@implementation UIBezierPath

+ (UIBezierPath*)bezierPath {
    return [[[self alloc] init] autorelease];
}

+ (UIBezierPath*)bezierPathWithRect:(CGRect)rect {
    UIBezierPath* path = [self bezierPath];
    CGPathAddRect(path->_path, nullptr, rect);
    return path;
}

+ (UIBezierPath*)bezierPathWithOvalInRect:(CGRect)rect {
    UIBezierPath* path = [self bezierPath];
    CGPathAddEllipseInRect(path->_path, nullptr, rect);
    return path;
}

+ (UIBezierPath*)bezierPathWithRoundedRect:(CGRect)rect cornerRadius:(CGFloat)radius {
    rect = CGRectStandardize(rect);
    radius = std::min(radius, std::min(rect.size.width, rect.size.height) / 2);
    if (!(radius > 0)) {
        return [self bezierPathWithRect:rect];
    }
    UIBezierPath* path = [self bezierPath];
    CGPathAddRoundedRect(path->_path, nullptr, rect, radius, radius);
    return path;
}

+ (UIBezierPath*)bezierPathWithCGPath:(CGPathRef)cgPath {
    UIBezierPath* path = [self bezierPath];
    [path setCGPath:cgPath];
    return path;
}

+ (UIBezierPath*)bezierPathWithArcCenter:(CGPoint)center
                                  radius:(CGFloat)radius
                              startAngle:(CGFloat)startAngle
                                endAngle:(CGFloat)endAngle
                               clockwise:(BOOL)clockwise {
    UIBezierPath* path = [self bezierPath];
    // CoreGraphics names the direction as seen with y pointing up.
    CGPathAddArc(path->_path, nullptr, center.x, center.y, radius, startAngle, endAngle, clockwise == NO);
    return path;
}

- (instancetype)init {
    self = [super init];
    if (self != nil) {
        _path = CGPathCreateMutable();
        _lineWidth = 1;
    }
    return self;
}

- (void)dealloc {
    CGPathRelease(_path);
    [super dealloc];
}

- (void)moveToPoint:(CGPoint)point {
    CGPathMoveToPoint(_path, nullptr, point.x, point.y);
}

- (void)addLineToPoint:(CGPoint)point {
    CGPathAddLineToPoint(_path, nullptr, point.x, point.y);
}

- (void)addQuadCurveToPoint:(CGPoint)endPoint controlPoint:(CGPoint)controlPoint {
    CGPathAddQuadCurveToPoint(_path, nullptr, controlPoint.x, controlPoint.y, endPoint.x, endPoint.y);
}

- (void)addCurveToPoint:(CGPoint)endPoint controlPoint1:(CGPoint)controlPoint1 controlPoint2:(CGPoint)controlPoint2 {
    CGPathAddCurveToPoint(_path, nullptr, controlPoint1.x, controlPoint1.y, controlPoint2.x, controlPoint2.y,
                          endPoint.x, endPoint.y);
}

- (void)closePath {
    CGPathCloseSubpath(_path);
}

- (void)appendPath:(UIBezierPath*)path {
    CGPathAddPath(_path, nullptr, [path CGPath]);
}

- (BOOL)isEmpty {
    return CGPathIsEmpty(_path);
}

- (CGRect)bounds {
    return CGPathGetBoundingBox(_path);
}

- (CGPathRef)CGPath {
    return _path;
}

- (void)setCGPath:(CGPathRef)path {
    const CGMutablePathRef copy = path == nullptr ? CGPathCreateMutable() : CGPathCreateMutableCopy(path);
    CGPathRelease(_path);
    _path = copy;
}

- (CGFloat)lineWidth {
    return _lineWidth;
}

- (void)setLineWidth:(CGFloat)width {
    _lineWidth = width;
}

- (BOOL)usesEvenOddFillRule {
    return _usesEvenOddFillRule;
}

- (void)setUsesEvenOddFillRule:(BOOL)evenOdd {
    _usesEvenOddFillRule = evenOdd;
}

// The current context with this path as its current path.
- (CGContextRef)contextWithPath {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextBeginPath(context);
    CGContextAddPath(context, _path);
    return context;
}

- (void)fill {
    CGContextDrawPath([self contextWithPath], _usesEvenOddFillRule ? kCGPathEOFill : kCGPathFill);
}

- (void)stroke {
    const CGContextRef context = [self contextWithPath];
    CGContextSaveGState(context);
    CGContextSetLineWidth(context, _lineWidth);
    CGContextStrokePath(context);
    CGContextRestoreGState(context);
}

- (void)addClip {
    const CGContextRef context = [self contextWithPath];
    _usesEvenOddFillRule ? CGContextEOClip(context) : CGContextClip(context);
}

@end
