// Reads a Mach-O library's file: its bytes alone, without touching the process.
#pragma once

#include <cstdint>
#include <span>

#include "simulator/runtime/macho/format.h"
#include "simulator/runtime/macho/image.h"
#include "simulator/runtime/result.h"

namespace phone::macho {

// Reads a library for a processor (of format.h, this machine's if none is named), thin or fat. The image refers to the
// bytes. Fails with what is wrong with the file. Every offset, size and count is checked: any bytes may be given.
Result<Image> readImage(std::span<const std::uint8_t> file, std::uint32_t cpu = kCpuHere);

}  // namespace phone::macho
