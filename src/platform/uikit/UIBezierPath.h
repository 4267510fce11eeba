// Paths in points. Results are unowned (+0); any thread.
#pragma once

#include "src/platform/foundation/NSObject.h"

struct UIBezierPath : NSObject {
    static UIBezierPath roundedRect(CGRect rect, CGFloat radius) {
        return zelka::send<UIBezierPath, "bezierPathWithRoundedRect:cornerRadius:">(
            zelka::platformClass<UIBezierPath>(), rect, radius);
    }
    // Clips the current image context.
    void addClip() const { zelka::send<void, "addClip">(*this); }
};
