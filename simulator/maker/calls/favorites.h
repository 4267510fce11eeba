// The phone's favourites.
#pragma once

#include <filesystem>

#include "simulator/maker/common/result.h"

namespace maker {

// Where the telephone keeps its favourites, inside a root.
std::filesystem::path favoritesPath(const std::filesystem::path& root);

// Makes the twelve contacts that call most often the favourites, the most frequent first: a property list of an array of
// dictionaries with "ABUid" (contact ID) and "Value" (number), as on phones of the period. A call's contact is the one
// that the history of `root` remembers; in a call store, which remembers none, the one whose address it is.
[[nodiscard]] Status writeFavorites(const std::filesystem::path& root);

}  // namespace maker
