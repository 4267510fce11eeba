// The extension as the build that this tool belongs to has it.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/maker/install/install.h"

namespace tool {

// For phones of that processor (places.h). Throws Problem when it is not there.
maker::Extension builtExtension(const std::string& processor);

// The processor that a phone has. Throws Problem.
std::string processorOf(const std::filesystem::path& root);

// Reports on standard error, with the command that renews it, when the library of a phone is older than the built one
// and another. The contents are compared only when its date is older.
void warnOfStaleLibrary(const std::filesystem::path& root);

}  // namespace tool
