// Sizes of files as texts. Any thread.
#pragma once

#include "src/platform/foundation/NSString.h"

struct NSByteCountFormatter : NSObject {
    // "12 KB" for 12,345 bytes, in the user's language (+0).
    static NSString text(long long bytes) {
        constexpr NSInteger kCountStyleFile = 0;
        return zelka::send<NSString, "stringFromByteCount:countStyle:">(zelka::platformClass<NSByteCountFormatter>(),
                                                                        bytes, kCountStyleFile);
    }
};
