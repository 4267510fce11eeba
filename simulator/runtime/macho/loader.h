// Loads libraries of the phone's own binary format into this process.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/result.h"

namespace phone::macho {

// An image in memory. For a debugger, which does not know of it: the code stands at `begin`, so that a file address
// of the library is begin + that address.
struct LoadedImage {
    std::string path;
    char* begin = nullptr;
    std::size_t size = 0;
};

// The images loaded so far, in order. They stay for the process's life.
const std::vector<LoadedImage>& loadedImages();

// Loads the library at a path of this machine: finds every symbol it asks for in this process, registers its unwind
// information and runs its initialisers on this thread. When it fails, nothing of the library has run and nothing of it
// stays.
[[nodiscard]] Status loadLibrary(const std::string& path);

// The address of what a loaded library exports under the C name; nullptr when it was not loaded or has no such export.
void* symbolOf(const std::string& path, const std::string& name);

}  // namespace phone::macho
