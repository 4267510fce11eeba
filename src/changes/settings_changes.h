// Changes of settings while the lists are on screen.
#pragma once

#include "src/platform/core_foundation.h"
#include "src/platform/uikit.h"
#include "src/settings/settings.h"

// The Contacts list's table view, which is reloaded when settings change: set once, with a reference of its own that is
// never given back. Nil until a Contacts list is shown. Set on the main thread, read on the notify centre's.
extern constinit std::atomic<UITableView> membersTableView;

// What the Darwin notify centre calls for each of the six settings' notifications: empties the image cache, loads the
// settings, and has the lists redrawn, waiting for that. Does nothing in a process that is not served. The thread is
// the notify centre's.
void zelkaCBSettingsChangedCallBack(CFNotificationCenterRef center, void* observer, CFStringRef name,
                                    const void* object, CFDictionaryRef userInfo);

// The methods zelkaCBSettingsChanged: that the library adds to two of the host's classes: the first has the favourites
// strip built anew, the second the list reloaded.
void favoritesStripSettingsChanged(NSObject controller, SEL command, NSObject notification);
void callListSettingsChanged(NSObject controller, SEL command, NSObject notification);
