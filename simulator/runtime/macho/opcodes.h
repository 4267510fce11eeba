// The byte codes that list the places to fix up when an image is loaded.
#pragma once

#include "simulator/runtime/macho/bytes.h"
#include "simulator/runtime/macho/image.h"

namespace phone::macho {

enum class BindKind { eager, lazy, weak };

// Append to the image's lists; its segments must be complete. Throw Malformed, also for a place that is not wholly in a
// writable segment.
void readRebases(Bytes codes, Image& image);
void readBinds(Bytes codes, BindKind kind, Image& image);
void readExports(Bytes trie, Image& image);

}  // namespace phone::macho
