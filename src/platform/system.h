// C functions of the system that are not ISO C.
#pragma once

#include <dlfcn.h>

#include <cstddef>

extern "C" {
// Copies the value of that name, at most *size bytes, and stores its length; 0, or -1 with errno. The last two
// arguments would set the value.
int sysctlbyname(const char* name, void* value, std::size_t* size, void* newValue, std::size_t newSize);
}

namespace zelka {

// The system's C function of that name and type, or nullptr on a system that has none: the way to call what not every
// phone offers, because a library that is linked to a missing function is not loaded at all. Any thread.
template <class Function>
Function* systemFunction(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace zelka
