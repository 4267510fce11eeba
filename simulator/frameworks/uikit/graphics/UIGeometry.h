// Insets and textual forms of rectangles, as UIKit's UIGeometry.h offers them. Lengths are in points.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/geometry.h"

typedef struct UIEdgeInsets {
    CGFloat top, left, bottom, right;
} UIEdgeInsets;

CG_EXTERN const UIEdgeInsets UIEdgeInsetsZero;

CG_INLINE UIEdgeInsets UIEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
    const UIEdgeInsets insets = {top, left, bottom, right};
    return insets;
}

CG_INLINE BOOL UIEdgeInsetsEqualToEdgeInsets(UIEdgeInsets a, UIEdgeInsets b) {
    return a.top == b.top && a.left == b.left && a.bottom == b.bottom && a.right == b.right;
}

CG_INLINE CGRect UIEdgeInsetsInsetRect(CGRect rect, UIEdgeInsets insets) {
    return CGRectMake(rect.origin.x + insets.left, rect.origin.y + insets.top,
                      rect.size.width - insets.left - insets.right, rect.size.height - insets.top - insets.bottom);
}

CG_EXTERN_BEGIN
// "{{x, y}, {width, height}}", autoreleased.
NSString* NSStringFromCGRect(CGRect rect);
// "{width, height}", autoreleased.
NSString* NSStringFromCGSize(CGSize size);
CG_EXTERN_END
