// The byte codes that list the places to fix up when an image is loaded, and the tree of its exports: the contents of
// LC_DYLD_INFO, as <mach-o/loader.h> describes them beside dyld_info_command, with the codes that it defines
// (REBASE_OPCODE_*, BIND_OPCODE_*, EXPORT_SYMBOL_FLAGS_*).
#pragma once

#include "simulator/runtime/macho/bytes.h"
#include "simulator/runtime/macho/image.h"

namespace phone::macho {

enum class Binding { eager, lazy, weak };

// Append to the image's lists; its segments must be complete. Throw Malformed, also for a place that is not wholly in a
// writable segment.
void readRebases(Bytes codes, Image& image);
void readBinds(Bytes codes, Binding binding, Image& image);
void readExports(Bytes trie, Image& image);

}  // namespace phone::macho
