// Property lists of a backup, XML or binary, by libplist.
#pragma once

#include <plist/plist.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "simulator/maker/common/result.h"

namespace maker {

struct FreePropertyList {
    void operator()(void* node) const { plist_free(node); }
};
using PropertyList = std::unique_ptr<void, FreePropertyList>;

// Fails, naming the file, when it cannot be read or is no property list.
Result<PropertyList> readPropertyListFile(const std::filesystem::path& file);

// The value of a key, of a dictionary within another if several are given; null when it is not there. It belongs to the
// list.
plist_t valueAt(plist_t list, std::initializer_list<const char*> keys);

// The text of such a value, and whether it is there and true.
std::optional<std::string> textAt(plist_t list, std::initializer_list<const char*> keys);
bool isTrueAt(plist_t list, std::initializer_list<const char*> keys);

}  // namespace maker
