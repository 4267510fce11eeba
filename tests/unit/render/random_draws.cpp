#include "tests/unit/render/random_draws.h"

#include <dlfcn.h>

#include <deque>

namespace {

std::deque<uint32_t>& script() {
    static std::deque<uint32_t> draws;
    return draws;
}

}  // namespace

void test::scriptRandomDraws(std::initializer_list<uint32_t> draws) { script() = draws; }
int test::scriptedDrawsLeft() { return static_cast<int>(script().size()); }

// Ahead of the C library's own by definition order.
extern "C" __attribute__((visibility("default"))) uint32_t arc4random() {
    static const auto before = reinterpret_cast<uint32_t (*)()>(dlsym(RTLD_NEXT, "arc4random"));
    if (script().empty()) return before();
    const uint32_t draw = script().front();
    script().pop_front();
    return draw;
}
