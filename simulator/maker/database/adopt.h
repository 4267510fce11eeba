// Taking over databases of a real phone.
#pragma once

#include <filesystem>

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/database/schema.h"

namespace maker {

// Checks that `file` is a sound database of that shape and copies it to `copy`, with what its write-ahead log holds.
// The original is only read, and no file appears beside it.
[[nodiscard]] Status adoptDatabase(const std::filesystem::path& file, const DatabaseShape& shape,
                                   const std::filesystem::path& copy, const Progress& progress = {});

}  // namespace maker
