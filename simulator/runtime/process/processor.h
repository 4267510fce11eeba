// The processor that this build is for, by the name that device.plist and phonesim have for it.
#pragma once

namespace phone {

#if defined(__x86_64__)
constexpr const char* kProcessor = "x86-64";
#elif defined(__aarch64__)
constexpr const char* kProcessor = "arm64";
#elif defined(__arm__)
constexpr const char* kProcessor = "armv7";
#endif

}  // namespace phone
