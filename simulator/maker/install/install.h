// What lies on a phone besides its databases.
#pragma once

#include <filesystem>

#include "simulator/maker/make_root.h"
#include "simulator/maker/result.h"

namespace phone {

// Makes the folders and links of an empty phone in an existing directory.
Status makeFolders(const std::filesystem::path& root);

// Puts the library (as a link with the filter's name), its filter and the preference bundle where a phone has them.
Status installExtension(const std::filesystem::path& root, const RootOptions& options);

}  // namespace phone
