// Fonts. Results are unowned (+0); sizes are in points; any thread.
#pragma once

#include "src/platform/foundation/NSObject.h"

struct UIFont : NSObject {
    static UIFont system(CGFloat size) {
        return zelka::send<UIFont, "systemFontOfSize:">(zelka::platformClass<UIFont>(), size);
    }
    CGFloat pointSize() const { return zelka::send<CGFloat, "pointSize">(*this); }
};
