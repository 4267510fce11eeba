// Insets and textual forms of rectangles, as UIKit's UIGeometry.h offers them. Lengths are in points.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/geometry.h"

struct UIEdgeInsets {
    CGFloat top, left, bottom, right;
};

extern const UIEdgeInsets UIEdgeInsetsZero;

inline UIEdgeInsets UIEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
    return UIEdgeInsets{top, left, bottom, right};
}

inline BOOL UIEdgeInsetsEqualToEdgeInsets(UIEdgeInsets a, UIEdgeInsets b) {
    return a.top == b.top && a.left == b.left && a.bottom == b.bottom && a.right == b.right;
}

inline CGRect UIEdgeInsetsInsetRect(CGRect rect, UIEdgeInsets insets) {
    return CGRectMake(rect.origin.x + insets.left, rect.origin.y + insets.top,
                      rect.size.width - insets.left - insets.right, rect.size.height - insets.top - insets.bottom);
}

extern "C" {
// "{{x, y}, {width, height}}", autoreleased.
NSString* NSStringFromCGRect(CGRect rect);
// "{width, height}", autoreleased.
NSString* NSStringFromCGSize(CGSize size);
}
