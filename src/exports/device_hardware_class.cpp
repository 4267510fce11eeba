#include "src/exports/device_hardware_class.h"

#include "src/platform/class_builder.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSString.h"
#include "src/util/device_hardware.h"

namespace zelka {
namespace {

// The receiver is the class or an instance, which hold nothing.
NSString platformOf(NSObject) { return ZLKCBUIDeviceHardware::platform(); }
NSString platformStringOf(NSObject) { return ZLKCBUIDeviceHardware::platformString(); }

constexpr MethodRow kMethods[] = {
    receiverMethod<"platform", &platformOf>(),
    receiverMethod<"platformString", &platformStringOf>(),
};

}  // namespace

void registerDeviceHardwareClass() {
    registerClass("ZLKCBUIDeviceHardware", platformClass<NSObject>(), {}, kMethods, kMethods);
}

}  // namespace zelka
