// The current drawing context. Every thread has a stack of its own.
#pragma once

#import "simulator/frameworks/uikit/graphics/UIImage.h"

extern "C" {
/// Not opaque, scale 1.
void UIGraphicsBeginImageContext(CGSize size);
/// Pushes a context of `size` points whose y points down. Scale 0 is the main screen's. A size without area (or beyond
/// what can be held) pushes a NULL context, as UIKit does.
void UIGraphicsBeginImageContextWithOptions(CGSize size, BOOL opaque, CGFloat scale);
/// +0; NULL when there is none.
CGContextRef UIGraphicsGetCurrentContext();
/// Autoreleased; nil when the current context was not begun as an image context.
UIImage* UIGraphicsGetImageFromCurrentImageContext();
void UIGraphicsEndImageContext();
/// Retains the context until the matching pop.
void UIGraphicsPushContext(CGContextRef context);
void UIGraphicsPopContext();
void UIRectFill(CGRect rect);
void UIRectClip(CGRect rect);
}
