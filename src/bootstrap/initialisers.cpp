// What runs while the library is loaded: two initialisers, in the order of their priorities. They share this file
// because the phone's binary format orders priorities within one translation unit only.
#include <cstdio>

#include "src/bootstrap/hook_table.h"
#include "src/bootstrap/registration.h"
#include "src/changes/address_book_changes.h"
#include "src/changes/settings_changes.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSString.h"
#include "src/settings/setting_rows.h"
#include "src/settings/settings_seed.h"
#include "src/util/process.h"

namespace zelka {
namespace {

// From here on, the lines of the library and of its host in this process are appended to the log file; when that cannot
// be opened, they are lost. Where it lies is kept (docs/compatibility.md).
void redirectLog() { static_cast<void>(std::freopen("/tmp/ZelkaCB.log", "a+", stderr)); }

void observe(const char* name, CFNotificationCallback callback) {
    CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), nullptr, callback,
                                    bridged(NSString::fromUTF8(name)), nullptr, kDeliverImmediately);
}

// In every process: the callbacks themselves do nothing in one that is not served.
void registerObservers() {
    observe(kAddressBookChangedNotification, &addressBookChangedCallBack);
    for (const SettingRow& row : kSettingRows) observe(row.notification, &zelkaCBSettingsChangedCallBack);
}

[[gnu::constructor(101)]] void bootstrap() {
    AutoreleasePool pool;
    registerClasses();
    if (!mainBundleIdentifier()) return;
    if (isServedProcess()) {
        redirectLog();
        seedSettingsFile();
    }
    registerObservers();
}

[[gnu::constructor(102)]] void hookHost() {
    AutoreleasePool pool;
    installHooks();
}

}  // namespace

}  // namespace zelka
