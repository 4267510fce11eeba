#pragma once

#include "simulator/hosts/callbar/CallBarControllerModern.h"

// CallBar's window in this process, made and shown on first use. +0. Main thread, after the application's launch.
UIWindow* CallBarWindow(void);
// Its root view controller. +0.
CallBarControllerModern* CallBarController(void);
