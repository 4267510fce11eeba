// Whole files.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/maker/progress.h"
#include "simulator/maker/result.h"

namespace phone {

// The bytes of a whole file. A pipe may keep the reader waiting and a device may never end: `progress` is told all the
// while.
Result<std::string> readFile(const std::filesystem::path& file, const Progress& progress = {});

}  // namespace phone
