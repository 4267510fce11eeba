#include "src/bootstrap/registration.h"

#include "src/cache/image_cache.h"
#include "src/cache/queue.h"
#include "src/cache/shared_address_book.h"
#include "src/settings/settings.h"
#include "src/util/device.h"
#include "src/util/device_hardware.h"
#include "src/util/phone_numbers.h"

namespace {

using MethodTable = std::span<const MethodRow> (*)();

// The class methods of ZelkaCBUtils, one table per subsystem.
constexpr MethodTable kUtilityTables[] = {
    &ZelkaCBUtils::deviceMethods,     &ZelkaCBUtils::phoneNumberMethods,       &ZelkaCBUtils::settingsMethods,
    &ZelkaCBUtils::imageCacheMethods, &ZelkaCBUtils::sharedAddressBookMethods, &ZelkaCBUtils::queueMethods,
};

void registerUtilityClass() {
    Class utilities = registerClass("ZelkaCBUtils", {}, {}, {});
    for (MethodTable table : kUtilityTables) addMethods(metaclassOf(utilities), table());
}

}  // namespace

void registerClasses() {
    registerUtilityClass();
    registerSettingsClass();
    registerClass("ZLKCBUIDeviceHardware", {}, ZLKCBUIDeviceHardware::hardwareClassMethods(),
                  ZLKCBUIDeviceHardware::hardwareInstanceMethods());
}
