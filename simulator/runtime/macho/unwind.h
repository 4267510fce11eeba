// Unwind information, from the phone's compact form to the frames of DWARF that this machine's unwinder reads. The
// compact form is that of <mach-o/compact_unwind_encoding.h>; the frames are those of DWARF 4, chapter 6.4, as the
// Linux Standard Base has them in .eh_frame.
//
// 32-bit phones have no such information: there, functions that want to know of exceptions announce themselves (SjLj,
// unwind_arm.cpp).
#pragma once

#include <cstdint>
#include <vector>

#include "simulator/runtime/macho/image.h"
#include "simulator/runtime/result.h"

namespace phone::macho {

// What the unwinder has to know of an image.
struct UnwindFrames {
    // One .eh_frame section, ended by a zero length; empty when there is nothing to register.
    std::vector<std::uint8_t> translated;
    // Whether functions defer to the image's own __eh_frame section, which then is whole and ends as the unwinder wants
    // it. It is read where it stands: what it holds counts from its own place.
    bool needsOwn = false;
};

// Translates the image's compact unwind information. The image stands at `begin` with its pointers bound, because
// personality functions are found through them. Functions whose compact form keeps no frame pointer are refused unless
// they have no frame at all.
Result<UnwindFrames> translateUnwindInfo(const Image& image, const char* begin);

// Has exceptions pass through the image's functions. Frames and image stay for the process's life.
void registerFrames(UnwindFrames& frames, const Image& image, char* begin);

}  // namespace phone::macho
