// Taking over databases of a real phone.
#pragma once

#include <filesystem>

#include "simulator/maker/database/schema.h"
#include "simulator/maker/progress.h"
#include "simulator/maker/result.h"

namespace phone {

// Checks that `file` is a sound database of that shape and copies it to `copy`, with what its write-ahead log holds.
// The original is only read, and no file appears beside it.
Status adoptDatabase(const std::filesystem::path& file, const DatabaseShape& shape, const std::filesystem::path& copy,
                     const Progress& progress = {});

}  // namespace phone
