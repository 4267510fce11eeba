// Unwind information, from the phone's compact form to the frames of DWARF that this machine's unwinder reads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simulator/runtime/macho/image.h"

namespace phone::macho {

// Translates the image's compact unwind information to one .eh_frame section, ended by a zero length. The
// image stands at `begin` with its pointers bound, because personality functions are found through them. Empty frames
// with an empty answer: there is nothing to register. Answers what is wrong otherwise. Functions that keep no frame
// pointer are refused unless they have no frame at all.
std::string translateUnwindInfo(const Image& image, const char* begin, std::vector<std::uint8_t>& frames);

}  // namespace phone::macho
