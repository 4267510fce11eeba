#include "simulator/runtime/process/device_profiles.h"

#include <algorithm>

namespace phone {

const std::vector<DeviceProfile>& deviceProfiles() {
    static const std::vector<DeviceProfile> profiles = {
        {"ipad2-6.1", "iPad 2, iOS 6.1.3", "iPad", "iPad2,1", "6.1.3", 768, 1024, 1, 1, 1},
        {"iphone4s-6.1", "iPhone 4S, iOS 6.1.3", "iPhone", "iPhone4,1", "6.1.3", 320, 480, 2, 2, 0},
        {"iphone4-7.1", "iPhone 4, iOS 7.1.2", "iPhone", "iPhone3,1", "7.1.2", 320, 480, 2, 2, 0},
        {"iphone5s-7.1", "iPhone 5s, iOS 7.1.2", "iPhone", "iPhone6,1", "7.1.2", 320, 568, 2, 2, 0},
        {"ipadair2-8.4", "iPad Air 2, iOS 8.4", "iPad", "iPad5,3", "8.4", 768, 1024, 2, 2, 1},
        {"iphone6-8.4", "iPhone 6, iOS 8.4", "iPhone", "iPhone7,2", "8.4", 375, 667, 2, 2, 0},
        {"iphone6plus-8.4", "iPhone 6 Plus, iOS 8.4", "iPhone", "iPhone7,1", "8.4", 414, 736, 3, 2.608695652173913, 0},
        {"iphone6-9.3", "iPhone 6, iOS 9.3.3", "iPhone", "iPhone7,2", "9.3.3", 375, 667, 2, 2, 0},
        {"iphone6plus-9.3", "iPhone 6 Plus, iOS 9.3.3", "iPhone", "iPhone7,1", "9.3.3", 414, 736, 3, 2.608695652173913,
         0},
    };
    return profiles;
}

std::optional<Device> deviceFromProfile(std::string_view id) {
    const auto& profiles = deviceProfiles();
    const auto found = std::find_if(profiles.begin(), profiles.end(), [&](const auto& p) { return p.id == id; });
    if (found == profiles.end()) return std::nullopt;
    Device device;
    device.model = found->model;
    device.name = found->model;
    device.machine = found->machine;
    device.systemVersion = found->systemVersion;
    device.width = found->width;
    device.height = found->height;
    device.scale = found->scale;
    device.nativeScale = found->nativeScale;
    device.idiom = found->idiom;
    device.preferencesService = hasPreferencesService(device.systemVersion);
    return device;
}

}  // namespace phone
