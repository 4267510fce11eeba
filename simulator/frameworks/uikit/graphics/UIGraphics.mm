#import "simulator/frameworks/uikit/graphics/UIGraphics.h"

#include <cmath>
#include <vector>

#include "simulator/runtime/process/device.h"

namespace {

struct StackEntry {
    CGContextRef context;
    bool isImageContext;
    CGFloat scale;  // pixels a point, of an image context
};

struct ContextStack {
    std::vector<StackEntry> entries;
    ~ContextStack() {
        while (!entries.empty()) {
            pop();
        }
    }
    void pop() {
        CGContextRelease(entries.back().context);
        entries.pop_back();
    }
};

thread_local ContextStack stack;

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
    stack.entries.push_back({createImageContext(size, opaque != NO, scale), true, scale});
}

CGContextRef UIGraphicsGetCurrentContext() { return stack.entries.empty() ? nullptr : stack.entries.back().context; }

UIImage* UIGraphicsGetImageFromCurrentImageContext() {
    if (stack.entries.empty() || !stack.entries.back().isImageContext || stack.entries.back().context == nullptr) {
        return nil;
    }
    const CGImageRef pixels = CGBitmapContextCreateImage(stack.entries.back().context);
    UIImage* image = [UIImage imageWithCGImage:pixels
                                         scale:stack.entries.back().scale
                                   orientation:UIImageOrientationUp];
    CGImageRelease(pixels);
    return image;
}

void UIGraphicsEndImageContext() {
    if (!stack.entries.empty() && stack.entries.back().isImageContext) {
        stack.pop();
    }
}

void UIGraphicsPushContext(CGContextRef context) { stack.entries.push_back({CGContextRetain(context), false, 1}); }

void UIGraphicsPopContext() {
    if (!stack.entries.empty() && !stack.entries.back().isImageContext) {
        stack.pop();
    }
}

void UIRectFill(CGRect rect) { CGContextFillRect(UIGraphicsGetCurrentContext(), rect); }

void UIRectClip(CGRect rect) { CGContextClipToRect(UIGraphicsGetCurrentContext(), rect); }
