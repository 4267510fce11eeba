// The current drawing context. Every thread has a stack of its own.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/core_graphics.h"

@class UIImage;

CG_EXTERN_BEGIN
/// Not opaque, scale 1.
void UIGraphicsBeginImageContext(CGSize size);
/// Pushes a context of `size` points whose y points down. Scale 0 is the main screen's. A size without area (or beyond
/// what can be held) pushes a NULL context, as UIKit does.
void UIGraphicsBeginImageContextWithOptions(CGSize size, BOOL opaque, CGFloat scale);
/// +0; NULL when there is none.
CGContextRef UIGraphicsGetCurrentContext(void);
/// Autoreleased; nil when the current context was not begun as an image context.
UIImage* UIGraphicsGetImageFromCurrentImageContext(void);
void UIGraphicsEndImageContext(void);
/// Retains the context until the matching pop.
void UIGraphicsPushContext(CGContextRef context);
void UIGraphicsPopContext(void);
void UIRectFill(CGRect rect);
void UIRectClip(CGRect rect);
CG_EXTERN_END
