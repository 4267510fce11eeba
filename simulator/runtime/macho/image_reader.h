// Reads a Mach-O library's file: its bytes alone, without touching the process.
#pragma once

#include <cstdint>
#include <span>

#include "simulator/runtime/macho/image.h"
#include "simulator/runtime/result.h"

namespace phone::macho {

// Reads a library for this machine's processor, thin or fat. The image refers to the bytes. Fails with what is wrong
// with the file. Every offset, size and count is checked: any bytes may be given.
Result<Image> readImage(std::span<const std::uint8_t> file);

}  // namespace phone::macho
