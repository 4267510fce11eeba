// The one C function that the library exports.
#pragma once

#include "src/platform/core_graphics.h"

// A rounded rectangle of straight lines and quadratic curves, for other code in the process; lengths are in the unit of
// the rectangle. The caller owns the path (+1). Any thread.
extern "C" __attribute__((visibility("default"))) CGMutablePathRef createRoundedCornerPath(CGRect rect, CGFloat radius);
