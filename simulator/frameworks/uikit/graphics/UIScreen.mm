#include "simulator/frameworks/uikit/graphics/UIScreen.h"

#import <objc/runtime.h>

#include <cmath>
#include <utility>

#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/runtime/process/device.h"

using uikit::systemMajorVersion;

namespace {

bool isLandscape() { return phone::device().orientation >= 3; }

constexpr CGFloat kStatusBarHeight = 20;

}  // namespace

// Holds the methods that the screen has from system 8 on only.
@interface UIScreenSince8 : NSObject
@end

@implementation UIScreenSince8

- (CGRect)nativeBounds {
    const phone::Device& device = phone::device();
    return CGRectMake(0, 0, std::round(device.width * device.nativeScale),
                      std::round(device.height * device.nativeScale));
}

- (CGFloat)nativeScale {
    return phone::device().nativeScale;
}

@end

@implementation UIScreen

+ (void)initialize {
    if (self != [UIScreen class] || systemMajorVersion() < 8) return;
    for (NSString* name in @[ @"nativeBounds", @"nativeScale" ]) {
        const SEL selector = NSSelectorFromString(name);
        Method method = class_getInstanceMethod([UIScreenSince8 class], selector);
        class_addMethod(self, selector, method_getImplementation(method), method_getTypeEncoding(method));
    }
}

+ (UIScreen*)mainScreen {
    static UIScreen* screen = [[UIScreen alloc] init];
    return screen;
}

+ (NSArray*)screens {
    return @[ [self mainScreen] ];
}

- (CGRect)bounds {
    CGFloat width = phone::device().width;
    CGFloat height = phone::device().height;
    if (systemMajorVersion() >= 8 && isLandscape()) std::swap(width, height);
    return CGRectMake(0, 0, width, height);
}

- (CGRect)applicationFrame {
    CGRect frame = [self bounds];
    if (systemMajorVersion() >= 7) return frame;
    // Before 7 the screen's bounds stay upright, so in landscape the bar lies along one of their long sides.
    switch (phone::device().orientation) {
        case 3:
            frame.size.width -= kStatusBarHeight;
            break;
        case 4:
            frame.origin.x += kStatusBarHeight;
            frame.size.width -= kStatusBarHeight;
            break;
        case 2:
            frame.size.height -= kStatusBarHeight;
            break;
        default:
            frame.origin.y += kStatusBarHeight;
            frame.size.height -= kStatusBarHeight;
    }
    return frame;
}

- (CGFloat)scale {
    return phone::device().scale;
}

- (CADisplayLink*)displayLinkWithTarget:(id)target selector:(SEL)selector {
    [NSException raise:NSInternalInconsistencyException
                format:@"-[UIScreen displayLinkWithTarget:selector:]: the stand-in phone has no display to follow"];
    return nil;
}

@end
