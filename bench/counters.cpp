#include "bench/counters.h"

#include <cairo.h>
#include <dlfcn.h>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <sqlite3.h>

#include <cstdint>
#include <cstring>

struct objc_object;
struct objc_selector;

extern "C" {
extern const char objc_msgSend[];
extern const char objc_msgSend_stret[];
}

namespace bench {

constinit Counters counters;

namespace {

using Lookup = void (*)(void);

// Longer than either entry point of the message sender.
constexpr std::uintptr_t kLongest = 0x100;

bool isWithin(const void* address, const char* function) {
    return reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(function) < kLongest;
}

bool comesFromSqlite(const void* caller) {
    Dl_info where;
    return dladdr(caller, &where) != 0 && std::strstr(where.dli_fname, "libsqlite3") != nullptr;
}

template <class Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void count(std::atomic<long>& counter) {
    if (counters.isOn.load(std::memory_order_relaxed)) counter.fetch_add(1, std::memory_order_relaxed);
}

}  // namespace
}  // namespace bench

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED bench::Lookup objc_msg_lookup(objc_object* receiver, const objc_selector* selector) {
    static const auto before = bench::next<bench::Lookup (*)(objc_object*, const objc_selector*)>("objc_msg_lookup");
    if (bench::counters.isOn.load(std::memory_order_relaxed)) {
        bench::count(bench::counters.allMessages);
        const void* caller = __builtin_return_address(0);
        if (bench::isWithin(caller, objc_msgSend) || bench::isWithin(caller, objc_msgSend_stret))
            bench::count(bench::counters.libraryMessages);
    }
    return before(receiver, selector);
}

EXPORTED int sqlite3_open(const char* name, sqlite3** database) {
    static const auto before = bench::next<decltype(&sqlite3_open)>("sqlite3_open");
    bench::count(bench::counters.opened);
    return before(name, database);
}

EXPORTED int sqlite3_step(sqlite3_stmt* statement) {
    static const auto before = bench::next<decltype(&sqlite3_step)>("sqlite3_step");
    if (!bench::comesFromSqlite(__builtin_return_address(0))) bench::count(bench::counters.stepped);
    return before(statement);
}

EXPORTED gboolean gdk_pixbuf_loader_close(GdkPixbufLoader* loader, GError** error) {
    static const auto before = bench::next<decltype(&gdk_pixbuf_loader_close)>("gdk_pixbuf_loader_close");
    bench::count(bench::counters.decoded);
    return before(loader, error);
}

EXPORTED cairo_t* cairo_create(cairo_surface_t* target) {
    static const auto before = bench::next<decltype(&cairo_create)>("cairo_create");
    bench::count(bench::counters.drawn);
    return before(target);
}
