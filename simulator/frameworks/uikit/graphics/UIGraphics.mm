#import "simulator/frameworks/uikit/graphics/UIGraphics.h"

#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIImage.h"
#include "simulator/frameworks/uikit/graphics/context_stack.h"
#include "simulator/runtime/process/device.h"

namespace {

CGContextRef createImageContext(CGSize size, bool opaque, CGFloat scale) {
    const CGFloat width = std::ceil(size.width * scale), height = std::ceil(size.height * scale);
    constexpr CGFloat beyondReason = 1e9;
    if (!(width > 0 && height > 0 && width < beyondReason && height < beyondReason)) {
        return nullptr;
    }
    const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    const CGContextRef context = CGBitmapContextCreate(
        nullptr, size_t(width), size_t(height), 8, 0, space,
        (opaque ? kCGImageAlphaNoneSkipFirst : kCGImageAlphaPremultipliedFirst) | kCGBitmapByteOrder32Little);
    CGColorSpaceRelease(space);
    if (context != nullptr) {
        CGContextConcatCTM(context, {scale, 0, 0, -scale, 0, height});
    }
    return context;
}

}  // namespace

void UIGraphicsBeginImageContext(CGSize size) { UIGraphicsBeginImageContextWithOptions(size, NO, 1); }

void UIGraphicsBeginImageContextWithOptions(CGSize size, BOOL opaque, CGFloat scale) {
    scale = scale > 0 ? scale : phone::device().scale;
    uikit::pushContext({createImageContext(size, opaque != NO, scale), true, scale});
}

CGContextRef UIGraphicsGetCurrentContext() { return uikit::currentContext(); }

UIImage* UIGraphicsGetImageFromCurrentImageContext() {
    const uikit::StackedContext* top = uikit::topContext();
    if (top == nullptr || !top->isImageContext || top->context == nullptr) {
        return nil;
    }
    const CGImageRef pixels = CGBitmapContextCreateImage(top->context);
    UIImage* image = [UIImage imageWithCGImage:pixels scale:top->scale orientation:UIImageOrientationUp];
    CGImageRelease(pixels);
    return image;
}

void UIGraphicsEndImageContext() { uikit::popContext(true); }

void UIGraphicsPushContext(CGContextRef context) { uikit::pushContext({CGContextRetain(context), false, 1}); }

void UIGraphicsPopContext() { uikit::popContext(false); }

void UIRectFill(CGRect rect) { CGContextFillRect(uikit::currentContext(), rect); }

void UIRectClip(CGRect rect) { CGContextClipToRect(uikit::currentContext(), rect); }
