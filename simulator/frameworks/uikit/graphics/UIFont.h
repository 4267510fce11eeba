// Immutable; safe on any thread. The stand-in's system typeface is Inter.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/geometry.h"

@interface UIFont : NSObject <NSCopying> {
    CGFloat _pointSize;
    BOOL _bold;
    CGFloat _ascender, _descender;
}
/// Points; a size that is not above 0 gives the size 12 that UIKit falls back to.
+ (UIFont*)systemFontOfSize:(CGFloat)size;
+ (UIFont*)boldSystemFontOfSize:(CGFloat)size;
+ (CGFloat)systemFontSize;
+ (CGFloat)labelFontSize;
- (UIFont*)fontWithSize:(CGFloat)size;
- (CGFloat)pointSize;
- (NSString*)fontName;
- (NSString*)familyName;
/// Points above the baseline.
- (CGFloat)ascender;
/// Points, negative: below the baseline.
- (CGFloat)descender;
/// Points: ascender - descender.
- (CGFloat)lineHeight;
@end
