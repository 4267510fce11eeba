// The device's model.
#pragma once

#include "src/platform/foundation/NSString.h"

// A namespace of its own, after the class that offers these functions: `platform` is the library's lowest room, too.
namespace zelka::ZLKCBUIDeviceHardware {

// The machine identifier, "iPhone7,2" for instance (+0); an empty text when the system reports none. Any thread.
NSString platform();

// The device's name for the models that the library tells apart, else the machine identifier (+0). Any thread.
NSString platformString();

}  // namespace zelka::ZLKCBUIDeviceHardware
