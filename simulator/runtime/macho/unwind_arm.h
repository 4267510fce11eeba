// Exceptions in the code of 32-bit phones, which keeps a list of the functions that want to know of them (SjLj), on a
// machine whose unwinder goes from frame to frame by tables. Exists on that processor only.
#pragma once

#include <string_view>

namespace phone::macho {

// The functions with which such code announces itself, by their Mach-O names; nullptr for any other name.
void* exceptionFunction(std::string_view name);

}  // namespace phone::macho
