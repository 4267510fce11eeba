// The extension that this tool was built with.
#pragma once

#include <filesystem>

#include "simulator/maker/install/install.h"

namespace tool {

maker::Extension builtExtension();

// Reports on standard error, with the command that renews it, when the library of a phone is older than the built one
// and another. The contents are compared only when its date is older.
void warnOfStaleLibrary(const std::filesystem::path& root);

}  // namespace tool
