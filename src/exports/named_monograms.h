// Monogram pictures (40 by 40 points) from whole names. Results are unowned (+0). Any thread.
#pragma once

#include <span>

#include "src/platform/class_builder.h"
#include "src/platform/uikit.h"

namespace ZelkaCBUtils {

// Cached under contact IDs of 1 and above; without an ID drawn by every call.
UIImage getMonogramImageFromName(NSString name, NSInteger contactID);
UIImage getMonogramImageFromName(NSString name);

// Cached under the e-mail address; without one drawn by every call.
UIImage getMonogramImageFromName(NSString name, NSString email);

// The class methods that answer to these functions.
std::span<const MethodRow> namedMonogramMethods();

}  // namespace ZelkaCBUtils
