// C functions of the system that are not ISO C.
#pragma once

#include <cstddef>

extern "C" {
// Copies the value of that name, at most *size bytes, and stores its length; 0, or -1 with errno. The last two
// arguments would set the value.
int sysctlbyname(const char* name, void* value, std::size_t* size, void* newValue, std::size_t newSize);
}
