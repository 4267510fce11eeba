#pragma once

#include "simulator/frameworks/uikit/controller/UIWindow.h"

@interface UIWindow (UIWindowPrivate)

// Lays every window out at the end of the run loop's current turn; counted as pending work until then.
+ (void)_scheduleLayoutPass;
// Windows in the order of their making, and the key one; unowned.
+ (NSArray*)_windows;
+ (UIWindow*)_keyWindow;

@end
