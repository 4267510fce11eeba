// The rows of a phone's compact unwind information, as <mach-o/compact_unwind_encoding.h> lays it out.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "simulator/runtime/macho/bytes.h"

namespace phone::macho {

// One function's row; `end` is the next one's begin. Offsets here count from the image's beginning.
struct UnwindRow {
    std::uint32_t begin, end, encoding;
};

struct UnwindTable {
    std::vector<UnwindRow> functions;                 // in order
    std::map<std::uint32_t, std::uint32_t> landings;  // where the landing pads of a function are described
    std::vector<std::uint32_t> personalities;         // the places of pointers to personality functions
};

// Reads the section __unwind_info. Throws Malformed.
UnwindTable readUnwindTable(Bytes section);

}  // namespace phone::macho
