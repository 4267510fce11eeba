#pragma once

// What boot() settles once for the process; the runtime's own files read it.

#include <filesystem>
#include <string>

#include "simulator/runtime/process/device.h"

namespace phone {

struct Process {
    std::filesystem::path root;
    std::string bundleIdentifier;
    Device device;
};

// Written by boot() alone, before other threads exist.
Process& process();

}  // namespace phone
