// Immutable; safe on any thread.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/core_graphics.h"

@interface UIColor : NSObject <NSCopying> {
    CGColorRef _color;
}
/// Components below 0 count as 0, above 1 as 1.
+ (UIColor*)colorWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
+ (UIColor*)colorWithWhite:(CGFloat)white alpha:(CGFloat)alpha;
+ (UIColor*)colorWithCGColor:(CGColorRef)color;
- (instancetype)initWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
- (instancetype)initWithWhite:(CGFloat)white alpha:(CGFloat)alpha;
- (instancetype)initWithCGColor:(CGColorRef)color;
+ (UIColor*)blackColor;
+ (UIColor*)darkGrayColor;
+ (UIColor*)lightGrayColor;
+ (UIColor*)whiteColor;
+ (UIColor*)grayColor;
+ (UIColor*)redColor;
+ (UIColor*)greenColor;
+ (UIColor*)blueColor;
+ (UIColor*)cyanColor;
+ (UIColor*)yellowColor;
+ (UIColor*)magentaColor;
+ (UIColor*)orangeColor;
+ (UIColor*)purpleColor;
+ (UIColor*)brownColor;
+ (UIColor*)clearColor;
- (UIColor*)colorWithAlphaComponent:(CGFloat)alpha;
/// NULL pointers are skipped.
- (BOOL)getRed:(CGFloat*)red green:(CGFloat*)green blue:(CGFloat*)blue alpha:(CGFloat*)alpha;
/// NO, and nothing stored, for a colour that is not gray.
- (BOOL)getWhite:(CGFloat*)white alpha:(CGFloat*)alpha;
/// +0, lives as long as the colour.
- (CGColorRef)CGColor;
// Make it the current context's fill colour, stroke colour, or both.
- (void)set;
- (void)setFill;
- (void)setStroke;
@end
