// Unwind information, from the phone's compact form to the frames of DWARF that this machine's unwinder reads. The
// compact form is that of <mach-o/compact_unwind_encoding.h>; the frames are those of DWARF 4, chapter 6.4, as the
// Linux Standard Base has them in .eh_frame.
#pragma once

#include <cstdint>
#include <vector>

#include "simulator/runtime/macho/image.h"
#include "simulator/runtime/result.h"

namespace phone::macho {

// Translates the image's compact unwind information to one .eh_frame section, ended by a zero length. The
// image stands at `begin` with its pointers bound, because personality functions are found through them. Returns an
// empty list when there is nothing to register. Functions that keep no frame pointer are refused unless they have no
// frame at all.
Result<std::vector<std::uint8_t>> translateUnwindInfo(const Image& image, const char* begin);

}  // namespace phone::macho
