// Colours. Results are unowned (+0); any thread.
#pragma once

#include "src/platform/core_graphics.h"
#include "src/platform/foundation/NSObject.h"

struct UIColor : NSObject {
    // Components from 0 to 1; the system clamps others.
    static UIColor withComponents(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
        return zelka::send<UIColor, "colorWithRed:green:blue:alpha:">(zelka::platformClass<UIColor>(), red, green, blue,
                                                                      alpha);
    }
    static UIColor white() { return zelka::send<UIColor, "whiteColor">(zelka::platformClass<UIColor>()); }
    // Lives as long as the colour.
    CGColorRef cgColor() const { return zelka::send<CGColorRef, "CGColor">(*this); }
};
