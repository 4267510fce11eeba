// What the library asks about the system and the screen. Every query asks the platform again, so that a turned or
// changed screen counts at once; none keeps state. Any thread, but for the screen's size.
#pragma once

#include "src/platform/core_graphics.h"

namespace zelka {

// Whether the system's version is at least 7.0, or 8.0.
bool isIOS_7();
bool isIOS_8();

// The main screen's size in points as the interface stands: before version 8 the system reports it upright always. Main
// thread, which the status bar's orientation belongs to.
CGSize screenSize();

}  // namespace zelka
