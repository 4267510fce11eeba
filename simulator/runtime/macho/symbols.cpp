#include "simulator/runtime/macho/symbols.h"

#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include <string>

#if defined(__arm__)
#include "simulator/runtime/macho/unwind_arm.h"
#endif

namespace phone::macho {
namespace {

// All symbols are bound when the library is loaded.
[[noreturn]] void bindLater() {
    fprintf(stderr, "a library asked for a symbol to be bound late, but everything was bound when it was loaded\n");
    abort();
}

// The phone's pseudo-handles have other values than this machine's.
void* phoneDlsym(void* handle, const char* name) {
    constexpr intptr_t kPhoneDefault = -2;
    return dlsym(reinterpret_cast<intptr_t>(handle) == kPhoneDefault ? RTLD_DEFAULT : handle, name);
}

// A phone's mutex, as Apple's published <sys/_pthread/_pthread_types.h> lays it out: a mark that says how it was
// initialised, and room for the system. After PTHREAD_MUTEX_INITIALIZER the room is zero, which is this machine's
// initialiser as well.
struct PhoneMutex {
    static constexpr long kInitialized = 0x32AAABA7;
    static constexpr std::size_t kRoom = sizeof(long) == 8 ? 56 : 40;

    long mark;
    pthread_mutex_t mutex;
};
static_assert(sizeof(pthread_mutex_t) <= PhoneMutex::kRoom);

int lockMutex(PhoneMutex* mutex) {
    return mutex->mark == PhoneMutex::kInitialized ? pthread_mutex_lock(&mutex->mutex) : EINVAL;
}

int unlockMutex(PhoneMutex* mutex) {
    return mutex->mark == PhoneMutex::kInitialized ? pthread_mutex_unlock(&mutex->mutex) : EINVAL;
}

#if defined(__aarch64__)
// A phone's arm64 passes variadic arguments on the stack (Apple, "Writing ARM64 code for Apple platforms"), this
// machine's in registers first. An entry of variadic_aarch64.S hands over where they begin.
extern "C" void phoneNSLog();
extern "C" void phoneSnprintf();
#endif

#if defined(__arm__)
extern "C" int phoneSnprintf(char* text, size_t size, const char* format, ...);

// A phone's C library has this one; here it is in each program that needs it.
unsigned remainderOf(unsigned a, unsigned b) { return a % b; }
#endif

struct Name {
    std::string_view name;
    void* address;
};

// Names that this machine's C library has not, or gives to something else, or that take other structures.
void* ownSymbol(std::string_view name) {
    static const Name names[] = {
        {"___stderrp", &stderr},
        {"_bzero", reinterpret_cast<void*>(&bzero)},
        {"_dlsym", reinterpret_cast<void*>(&phoneDlsym)},
#if defined(__aarch64__)
        {"_NSLog", reinterpret_cast<void*>(&phoneNSLog)},
        {"_snprintf", reinterpret_cast<void*>(&phoneSnprintf)},
#endif
#if defined(__arm__)
        {"___umodsi3", reinterpret_cast<void*>(&remainderOf)},
        {"_snprintf", reinterpret_cast<void*>(&phoneSnprintf)},
#endif
        {"_pthread_mutex_lock", reinterpret_cast<void*>(&lockMutex)},
        {"_pthread_mutex_unlock", reinterpret_cast<void*>(&unlockMutex)},
        {"dyld_stub_binder", reinterpret_cast<void*>(&bindLater)},
    };
    for (const Name& known : names) {
        if (known.name == name) return known.address;
    }
    return nullptr;
}

}  // namespace

void* findSymbol(std::string_view name) {
    if (void* own = ownSymbol(name)) return own;
#if defined(__arm__)
    if (void* function = exceptionFunction(name)) return function;
#endif
    if (name.empty() || name[0] != '_') return nullptr;
    return dlsym(RTLD_DEFAULT, std::string(name.substr(1)).c_str());
}

}  // namespace phone::macho
