// The running application. Results are unowned (+0); main thread.
#pragma once

#include "src/platform/foundation/NSObject.h"

struct UIApplication : NSObject {
    // nil in a process that is no application.
    static UIApplication shared() {
        return zelka::send<UIApplication, "sharedApplication">(zelka::platformClass<UIApplication>());
    }
    // UIInterfaceOrientation.
    NSInteger statusBarOrientation() const { return zelka::send<NSInteger, "statusBarOrientation">(*this); }
    // UIUserInterfaceLayoutDirectionRightToLeft is 1.
    bool isRightToLeft() const { return zelka::send<NSInteger, "userInterfaceLayoutDirection">(*this) == 1; }
};
