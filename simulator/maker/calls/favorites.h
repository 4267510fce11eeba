// The phone's favourites.
#pragma once

#include <filesystem>

#include "simulator/maker/common/result.h"

namespace maker {

// Where the telephone keeps its favourites, inside a root.
std::filesystem::path favoritesPath(const std::filesystem::path& root);

// Makes the twelve contacts that the call history of `root` names most often the favourites, the most frequent first: a
// property list of an array of dictionaries with "ABUid" (contact ID) and "Value" (number), as on phones of the period.
[[nodiscard]] Status writeFavorites(const std::filesystem::path& root);

}  // namespace maker
