// The phone's favourites.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/maker/common/result.h"

namespace maker {

// Where the telephone keeps its favourites, inside a root.
std::filesystem::path favoritesPath(const std::filesystem::path& root);

// Makes the twelve contacts that call most often the favourites, the most frequent first: a property list of an array
// of dictionaries with "ABUid" (contact ID) and "Value" (number), as on phones of the period. A call's contact is the
// one that the history of `root` remembers; in a call store, which remembers none, the one whose address it is.
[[nodiscard]] Status writeFavorites(const std::filesystem::path& root);

// Adds a contact behind the others, with the number or address that its button dials; one that is there already gets
// that number. Fails, changing nothing, when what is there is no list of favourites.
[[nodiscard]] Status addFavorite(const std::filesystem::path& root, int contact, const std::string& address);
// Takes a contact out; false when it is no favourite.
Result<bool> removeFavorite(const std::filesystem::path& root, int contact);
// How many there are; 0 for a phone without such a list.
Result<long> countFavorites(const std::filesystem::path& root);

}  // namespace maker
