#pragma once

#include "simulator/frameworks/preferences/preferences.h"

// The Settings app's window, made and shown on first use. +0. Main thread, after the application's launch.
UIWindow* SettingsWindow(void);
// The stack of pages, of which the first lists the entries. +0.
UINavigationController* SettingsPages(void);
// The page shown. +0; nil when it is no list of specifiers.
PSListController* SettingsShownList(void);
