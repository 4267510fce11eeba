#include "src/changes/settings_changes.h"

#include "src/cache/image_cache.h"
#include "src/util/log.h"
#include "src/util/process.h"

constinit std::atomic<UITableView> membersTableView{UITableView{}};

namespace {

void reloadOnMainThread(UITableView table) { performOnMainThread(table, selector<"reloadData">(), true); }

// Whatever the host's method answers, if anything, is not looked at.
void perform(NSObject receiver, SEL command) {
    send<NSObject, "performSelector:withObject:">(receiver, command, NSObject{});
}

}  // namespace

void zelkaCBSettingsChangedCallBack(CFNotificationCenterRef, void*, CFStringRef name, const void*, CFDictionaryRef) {
    AutoreleasePool pool;
    if (!isServedProcess()) return;
    logInformation(LogSite("void zelkaCBSettingsChangedCallBack(CFNotificationCenterRef, void *, CFStringRef, const "
                           "void *, CFDictionaryRef)",
                           1017),
                   "Got '", bridged(name), "' notification...");
    // In this order: who redraws must find an empty cache and the new settings.
    ZelkaCBUtils::clearImageCache();
    ZLKCBSettings::sharedSettings().loadSettings();
    NSNotificationCenter::shared().post(settingsChangedNotification());
    reloadOnMainThread(membersTableView.load());
}

void favoritesStripSettingsChanged(NSObject controller, SEL, NSObject) {
    perform(controller, selector<"cleanupFavoritesButtons">());
    perform(controller, selector<"resetFavorites">());
}

void callListSettingsChanged(NSObject controller, SEL, NSObject) {
    reloadOnMainThread(send<UITableView, "performSelector:">(controller, selector<"tableView">()));
}
