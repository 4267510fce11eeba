// Whole files.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"

namespace maker {

// The bytes of a whole file. A pipe may keep the reader waiting and a device may never end: `progress` is called all
// the while.
Result<std::string> readFile(const std::filesystem::path& file, const Progress& progress = {});

}  // namespace maker
