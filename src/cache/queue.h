// The process-wide objects that are made on first use and live as long as the process.
#pragma once

#include "src/platform/class_builder.h"
#include "src/platform/foundation.h"

namespace ZelkaCBUtils {

// The background queue on which list rows fetch their pictures (+0). Any thread.
NSOperationQueue queue();

// An object of the class ZelkaCBUtils, which holds nothing (+0). Any thread.
NSObject ZelkaCBUtilsInstance();

// The class methods that answer to these functions.
std::span<const MethodRow> queueMethods();

}  // namespace ZelkaCBUtils
