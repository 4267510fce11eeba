// The application on disk. Results are unowned (+0); any thread.
#pragma once

#include "src/platform/foundation/NSString.h"

struct NSBundle : NSObject {
    static NSBundle main() { return zelka::send<NSBundle, "mainBundle">(zelka::platformClass<NSBundle>()); }
    // nil when the bundle names none.
    NSString identifier() const { return zelka::send<NSString, "bundleIdentifier">(*this); }
};
