// C functions that a phone's libc has and this machine's lacks, or that take a path.

#include <dlfcn.h>
#include <errno.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/process/device.h"

extern "C" {

// Ahead of the C library's by definition order: an absolute path is the phone's. A null path changes the stream's mode.
FILE* freopen(const char* path, const char* mode, FILE* stream) {
    static const auto before =
        reinterpret_cast<FILE* (*)(const char*, const char*, FILE*)>(dlsym(RTLD_NEXT, "freopen"));
    if (path == nullptr) return before(path, mode, stream);
    return before(phone::hostPath(path).c_str(), mode, stream);
}

// Ahead of the C library's, unless the program brings its own. The environment variable PHONESIM_RANDOM holds a number
// that it always returns, so that what is drawn by lot is the same every time, however the work interleaves.
__attribute__((weak)) uint32_t arc4random() {
    static const char* const fixed = getenv("PHONESIM_RANDOM");
    static const auto number = static_cast<uint32_t>(fixed != nullptr ? strtoul(fixed, nullptr, 10) : 0);
    static const auto before = reinterpret_cast<uint32_t (*)()>(dlsym(RTLD_NEXT, "arc4random"));
    return fixed != nullptr ? number : before();
}

// Ahead of the C library's, unless the program brings its own. The environment variable PHONESIM_SECOND holds how many
// seconds a second takes.
__attribute__((weak)) unsigned sleep(unsigned seconds) {
    static const char* const length = getenv("PHONESIM_SECOND");
    static const double second = length != nullptr ? strtod(length, nullptr) : 1;
    usleep(static_cast<useconds_t>(seconds * second * 1e6));
    return 0;
}

// BSD's: knows "hw.machine", the machine identifier. With a null `value` it stores the length needed in
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
