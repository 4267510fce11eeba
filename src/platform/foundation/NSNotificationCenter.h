// Notifications inside the process. Any thread; observers are called on the thread that posts.
#pragma once

#include "src/platform/foundation/NSString.h"

struct NSNotificationCenter : NSObject {
    static NSNotificationCenter shared() {
        return zelka::send<NSNotificationCenter, "defaultCenter">(zelka::platformClass<NSNotificationCenter>());
    }
    // Returns when every observer has returned.
    void post(NSString name) const { zelka::send<void, "postNotificationName:object:">(*this, name, NSObject{}); }
    // The centre does not retain the observer, which must be removed before it goes.
    void addObserver(NSObject observer, SEL selector, NSString name) const {
        zelka::send<void, "addObserver:selector:name:object:">(*this, observer, selector, name, NSObject{});
    }
    void removeObserver(NSObject observer) const { zelka::send<void, "removeObserver:">(*this, observer); }
};
