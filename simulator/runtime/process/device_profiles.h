#pragma once

// The devices that a new phone root can be: sizes, scales and machine identifiers as Apple's public tables give them.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/runtime/process/device.h"

namespace phone {

struct DeviceProfile {
    std::string_view id;     // "iphone6-8.4"
    std::string_view title;  // "iPhone 6, iOS 8.4"
    std::string_view model, machine, systemVersion;
    double width, height;  // portrait, points
    double scale, nativeScale;
    int idiom;
};

// All profiles, oldest system first. Process lifetime.
const std::vector<DeviceProfile>& deviceProfiles();

// The profile's device with every other value at its default; nothing when no profile has this id.
std::optional<Device> deviceFromProfile(std::string_view id);

}  // namespace phone
