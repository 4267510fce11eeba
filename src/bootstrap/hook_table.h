// What the library replaces in and adds to the host's classes.
#pragma once

#include <span>

#include "src/platform/hook.h"

namespace zelka {

// The rows in the order of their installation; rows of one class stand together.
std::span<const HookRow> hookTable();

// Installs the rows on the classes that this process has. Once, on the loading thread.
void installHooks();

}  // namespace zelka
