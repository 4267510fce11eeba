// What this process offers under the names that a phone's libraries ask for.
#pragma once

#include <string_view>

namespace phone::macho {

// The address of a symbol by its Mach-O name (with the leading underscore), or nullptr when the process has none.
void* findSymbol(std::string_view name);

}  // namespace phone::macho
