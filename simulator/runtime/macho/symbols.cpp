#include "simulator/runtime/macho/symbols.h"

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include <string>

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

struct Name {
    std::string_view name;
    void* address;
};

// Names that this machine's C library has not, or gives to something else.
void* ownSymbol(std::string_view name) {
    static const Name names[] = {
        {"___stderrp", &stderr},
        {"_bzero", reinterpret_cast<void*>(&bzero)},
        {"_dlsym", reinterpret_cast<void*>(&phoneDlsym)},
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
    if (name.empty() || name[0] != '_') return nullptr;
    return dlsym(RTLD_DEFAULT, std::string(name.substr(1)).c_str());
}

}  // namespace phone::macho
