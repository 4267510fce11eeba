// What a change of settings does while the lists are on screen.
#pragma once

#include "src/platform/core_foundation.h"
#include "src/platform/uikit/UITableView.h"

namespace zelka {

// The Contacts list's table view, which is reloaded when settings change: set once, with a reference of its own that is
// never given back. Nil until a Contacts list is shown. Set on the main thread, read on the notify centre's.
extern constinit std::atomic<UITableView> membersTableView;

// What the Darwin notify centre calls for each setting's notification: empties the image cache, loads the
// settings, and has the lists redrawn, waiting for that. Does nothing in a process that is not served. The thread is
// the notify centre's.
void zelkaCBSettingsChangedCallBack(CFNotificationCenterRef center, void* observer, CFStringRef name,
                                    const void* object, CFDictionaryRef userInfo);

// Reloads the table on the main thread and returns when it has; nil does nothing. Any thread.
void reloadOnMainThread(UITableView table);

}  // namespace zelka
