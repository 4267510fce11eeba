#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/core_graphics.h"

@interface UIBezierPath : NSObject {
    CGMutablePathRef _path;
    CGFloat _lineWidth;
    BOOL _usesEvenOddFillRule;
}
+ (UIBezierPath*)bezierPath;
+ (UIBezierPath*)bezierPathWithRect:(CGRect)rect;
+ (UIBezierPath*)bezierPathWithOvalInRect:(CGRect)rect;
/// A radius above half of the shorter side counts as that half.
+ (UIBezierPath*)bezierPathWithRoundedRect:(CGRect)rect cornerRadius:(CGFloat)radius;
+ (UIBezierPath*)bezierPathWithCGPath:(CGPathRef)path;
/// `clockwise` as seen with y pointing down.
+ (UIBezierPath*)bezierPathWithArcCenter:(CGPoint)center
                                  radius:(CGFloat)radius
                              startAngle:(CGFloat)startAngle
                                endAngle:(CGFloat)endAngle
                               clockwise:(BOOL)clockwise;
- (void)moveToPoint:(CGPoint)point;
- (void)addLineToPoint:(CGPoint)point;
- (void)addQuadCurveToPoint:(CGPoint)endPoint controlPoint:(CGPoint)controlPoint;
- (void)addCurveToPoint:(CGPoint)endPoint controlPoint1:(CGPoint)controlPoint1 controlPoint2:(CGPoint)controlPoint2;
- (void)closePath;
- (void)appendPath:(UIBezierPath*)path;
- (BOOL)isEmpty;
- (CGRect)bounds;
/// +0.
- (CGPathRef)CGPath;
- (void)setCGPath:(CGPathRef)path;
- (CGFloat)lineWidth;
- (void)setLineWidth:(CGFloat)width;
- (BOOL)usesEvenOddFillRule;
- (void)setUsesEvenOddFillRule:(BOOL)evenOdd;
// In the current context; its current path is lost.
- (void)fill;
- (void)stroke;
- (void)addClip;
@end
