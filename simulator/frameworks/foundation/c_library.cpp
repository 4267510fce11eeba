// C functions that a phone's libc has and this machine's lacks, or that take a path.

#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <string.h>

#include "simulator/runtime/device.h"
#include "simulator/runtime/phone_root.h"

extern "C" {

// Ahead of the C library's by definition order: an absolute path is the phone's. A null path changes the stream's mode.
FILE* freopen(const char* path, const char* mode, FILE* stream) {
    static const auto before =
        reinterpret_cast<FILE* (*)(const char*, const char*, FILE*)>(dlsym(RTLD_NEXT, "freopen"));
    if (path == nullptr) return before(path, mode, stream);
    return before(phone::hostPath(path).c_str(), mode, stream);
}

// BSD's: knows "hw.machine", the machine identifier. With a null `value` it answers the length needed in
// `*size`. -1 with errno ENOENT for another name, ENOMEM when the room is too small, EPERM for an attempt to set.
int sysctlbyname(const char* name, void* value, size_t* size, const void* newValue, size_t) {
    if (newValue != nullptr) return errno = EPERM, -1;
    if (strcmp(name, "hw.machine") != 0) return errno = ENOENT, -1;
    const std::string& machine = phone::device().machine;
    const size_t needed = machine.size() + 1;
    if (value != nullptr) {
        if (*size < needed) return errno = ENOMEM, -1;
        memcpy(value, machine.c_str(), needed);
    }
    *size = needed;
    return 0;
}
}
