#include "src/bootstrap/registration.h"

#include "src/exports/categories.h"
#include "src/exports/device_hardware_class.h"
#include "src/exports/settings_class.h"
#include "src/exports/utility_class.h"

namespace zelka {

void registerClasses() {
    registerUtilityClass();
    registerSettingsClass();
    registerDeviceHardwareClass();
    extendPlatformClasses();
}

}  // namespace zelka
