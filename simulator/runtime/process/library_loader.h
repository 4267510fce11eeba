#pragma once

#include <string>

#include "simulator/runtime/result.h"

namespace phone {

// Loads the library at a path of this machine, in this machine's binary format or the phone's, and runs its
// initialisers.
[[nodiscard]] Status loadLibrary(const std::string& path);

// The address of what a loaded library exports under a C name; nullptr when it was not loaded or has no such export.
void* librarySymbol(const std::string& path, const std::string& name);

// The path of the loaded library, or of the program, that holds an address; empty when none does.
std::string libraryOf(const void* address);

}  // namespace phone
