#include "simulator/runtime/macho/sjlj_table.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace phone::macho {
namespace {

constexpr std::uint8_t kLeftOut = 0xff;

// Reads forward through the variable-length numbers of a table that the compiler wrote.
class Reader {
  public:
    explicit Reader(const std::uint8_t* place) : place_(place) {}

    const std::uint8_t* place() const { return place_; }
    std::uint8_t byte() { return *place_++; }

    std::uint32_t uleb() {
        std::uint32_t value = 0;
        for (unsigned shift = 0;; shift += 7) {
            const std::uint8_t next = byte();
            value |= static_cast<std::uint32_t>(next & 0x7f) << shift;
            if ((next & 0x80) == 0) return value;
        }
    }

    std::int32_t sleb() {
        std::uint32_t value = 0;
        for (unsigned shift = 0;; shift += 7) {
            const std::uint8_t next = byte();
            value |= static_cast<std::uint32_t>(next & 0x7f) << shift;
            if ((next & 0x80) != 0) continue;
            if ((next & 0x40) != 0 && shift + 7 < 32) value |= ~std::uint32_t{0} << (shift + 7);
            return static_cast<std::int32_t>(value);
        }
    }

  private:
    const std::uint8_t* place_;
};

struct Heads {
    const std::uint8_t* types = nullptr;  // behind the last one
    const std::uint8_t* calls = nullptr;
    const std::uint8_t* actions = nullptr;
};

Heads headsOf(const std::uint8_t* table) {
    Heads heads;
    Reader reader(table);
    if (reader.byte() != kLeftOut) reader.uleb();
    if (reader.byte() != kLeftOut) {
        const std::uint32_t distance = reader.uleb();
        heads.types = reader.place() + distance;
    }
    reader.byte();
    const std::uint32_t length = reader.uleb();
    heads.calls = reader.place();
    heads.actions = reader.place() + length;
    return heads;
}

// Whether the type of that number stands for every exception.
bool isEveryType(const Heads& heads, std::uint32_t number) {
    std::uint32_t type;
    std::memcpy(&type, heads.types - number * sizeof type, sizeof type);
    return type == 0;
}

}  // namespace

Landing landingOf(const std::uint8_t* table, std::uint32_t call) {
    const Heads heads = headsOf(table);
    Reader calls(heads.calls);
    Landing landing;
    std::uint32_t action = 0;
    for (; call > 0 && calls.place() < heads.actions; --call) {
        landing.pad = calls.uleb();
        action = calls.uleb();
        landing.wanted = call == 1;
    }
    if (!landing.wanted || action == 0) return landing;
    for (const std::uint8_t* place = heads.actions + action - 1;;) {
        Reader reader(place);
        const std::int32_t type = reader.sleb();
        const std::uint8_t* const base = reader.place();
        const std::int32_t next = reader.sleb();
        if (type > 0 && isEveryType(heads, static_cast<std::uint32_t>(type))) {
            landing.catches = true;
            landing.type = static_cast<std::uint32_t>(type);
            return landing;
        }
        if (type != 0) {
            std::fprintf(stderr, "a phone's library looks for exceptions of one type, which cannot be done here\n");
            std::abort();
        }
        if (next == 0) return landing;
        place = base + next;
    }
}

}  // namespace phone::macho
