// The device's model.
#pragma once

#include "src/platform/class_builder.h"
#include "src/platform/foundation.h"

namespace ZLKCBUIDeviceHardware {

// The machine identifier, "iPhone7,2" for instance (+0); an empty text when the system does not tell. Any thread.
NSString platform();

// The device's name for the models that the library tells apart, else the machine identifier (+0). Any thread.
NSString platformString();

// The methods of the class ZLKCBUIDeviceHardware, which it and its instances answer alike.
std::span<const MethodRow> hardwareClassMethods();
std::span<const MethodRow> hardwareInstanceMethods();

}  // namespace ZLKCBUIDeviceHardware
