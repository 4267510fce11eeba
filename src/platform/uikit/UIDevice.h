// The device. Results are unowned (+0); any thread.
#pragma once

#include "src/platform/foundation/NSString.h"

struct UIDevice : NSObject {
    static UIDevice current() { return zelka::send<UIDevice, "currentDevice">(zelka::platformClass<UIDevice>()); }
    NSString systemVersion() const { return zelka::send<NSString, "systemVersion">(*this); }
    // UIUserInterfaceIdiom: 0 is a phone, 1 a tablet.
    NSInteger userInterfaceIdiom() const { return zelka::send<NSInteger, "userInterfaceIdiom">(*this); }
};
