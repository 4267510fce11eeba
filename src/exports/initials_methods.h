// Initials of names and of contacts, for other code in the process.
#pragma once

#include <span>

#include "src/platform/class_builder.h"

namespace zelka {

// Class methods of ZelkaCBUtils.
std::span<const MethodRow> initialsMethods();

}  // namespace zelka
