// What the hooks ask about the system and the screen. Every query asks the platform again, so that a turned or changed
// screen shows at once; none keeps state. Any thread, but for the screen's width and height.
#pragma once

#include "src/platform/class_builder.h"
#include "src/platform/foundation.h"

namespace ZelkaCBUtils {

// Whether the system's version text is that one, letter case aside.
bool isMatchingIOSFound(NSString version);
// Whether the system's version is at least 7.0, or 8.0.
bool isIOS_7();
bool isIOS_8();
// Whether the main screen has exactly two pixels a point; a 3x screen is not meant.
bool isRetinaDisplay();
// The same answer as isRetinaDisplay: every 2x screen counts.
bool isIPhone4();
// Whether this is a phone whose screen is exactly 667, or 736, points high.
bool isIPhone6();
bool isIPhone6Plus();
bool isIPhone6OR6Plus();
// The main screen's size in points as the interface stands: before version 8 the system tells it upright always. Main
// thread, which the status bar's orientation belongs to.
CGFloat screenWidth();
CGFloat screenHeight();

// The class methods that answer to these functions.
std::span<const MethodRow> deviceMethods();

}  // namespace ZelkaCBUtils
