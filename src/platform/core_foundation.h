// CoreFoundation: the Darwin notify centre.
#pragma once

#include "src/platform/foundation/NSString.h"

using CFNotificationCenterRef = struct __CFNotificationCenter*;
using CFStringRef = const struct __CFString*;
using CFDictionaryRef = const struct __CFDictionary*;
using CFNotificationCallback = void (*)(CFNotificationCenterRef center, void* observer, CFStringRef name,
                                        const void* object, CFDictionaryRef userInfo);

namespace zelka {

// CFNotificationSuspensionBehaviorDeliverImmediately
constexpr NSInteger kDeliverImmediately = 4;

}  // namespace zelka

extern "C" {
CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter();
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name, const void* object,
                                     NSInteger suspensionBehavior);
void CFNotificationCenterPostNotification(CFNotificationCenterRef center, CFStringRef name, const void* object,
                                          CFDictionaryRef userInfo, unsigned char deliverImmediately);
}

namespace zelka {

// A CoreFoundation string is the Foundation string of the same address, and the other way round (toll-free bridging).
// Both return the argument's reference under its other type, +0.
inline NSString bridged(CFStringRef text) {
    return NSString{{reinterpret_cast<id>(const_cast<struct __CFString*>(text))}};
}
inline CFStringRef bridged(NSString text) { return reinterpret_cast<CFStringRef>(text.object); }

// Posts a Darwin notification to all processes and returns at once. Any thread.
inline void postDarwinNotification(NSString name) {
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), bridged(name), nullptr, nullptr,
                                         true);
}

}  // namespace zelka
