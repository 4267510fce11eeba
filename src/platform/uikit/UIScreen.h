// The screen. Sizes are in points unless they say pixels. Any thread.
#pragma once

#include "src/platform/foundation/NSObject.h"

struct UIScreen : NSObject {
    static UIScreen main() { return zelka::send<UIScreen, "mainScreen">(zelka::platformClass<UIScreen>()); }
    CGRect bounds() const { return zelka::send<CGRect, "bounds">(*this); }
    // In pixels.
    CGRect nativeBounds() const { return zelka::send<CGRect, "nativeBounds">(*this); }
    // In pixels a point; native is the panel's own.
    CGFloat nativeScale() const { return zelka::send<CGFloat, "nativeScale">(*this); }
    CGFloat scale() const { return zelka::send<CGFloat, "scale">(*this); }
};
