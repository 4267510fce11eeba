// What other code in the process asks the class ZelkaCBUtils about the device.
#pragma once

#include <span>

#include "src/platform/class_builder.h"

namespace zelka {

// Class methods of ZelkaCBUtils.
std::span<const MethodRow> deviceMethods();

}  // namespace zelka
