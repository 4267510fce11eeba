#include "src/changes/settings_changes.h"

#include "src/cache/image_cache.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSNotificationCenter.h"
#include "src/settings/settings.h"
#include "src/util/log.h"
#include "src/util/process.h"

namespace zelka {

constinit std::atomic<UITableView> membersTableView{UITableView{}};

void reloadOnMainThread(UITableView table) { table.performOnMainThread(selector<"reloadData">(), true); }

void zelkaCBSettingsChangedCallBack(CFNotificationCenterRef, void*, CFStringRef name, const void*, CFDictionaryRef) {
    AutoreleasePool pool;
    if (!isServedProcess()) return;
    logInformation(LogSite("void zelkaCBSettingsChangedCallBack(CFNotificationCenterRef, void *, CFStringRef, const "
                           "void *, CFDictionaryRef)",
                           1017),
                   "Got '", bridged(name), "' notification...");
    // In this order: who redraws must find an empty cache and the new settings.
    clearImageCache();
    ZLKCBSettings::sharedSettings().loadSettings();
    NSNotificationCenter::shared().post(settingsChangedNotification());
    reloadOnMainThread(membersTableView.load());
}

}  // namespace zelka
