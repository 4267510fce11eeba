#include "src/settings/settings_seed.h"

#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSFileManager.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/owned.h"
#include "src/settings/setting_rows.h"
#include "src/util/log.h"

namespace zelka {
namespace {

NSString seedPath() {
    return homeDirectory()
        .appendingPathComponent(NSString::fromUTF8(kPreferencesFolder))
        .appendingPathComponent(NSString::fromUTF8(kSettingsFile));
}

// What the file holds; nothing when it is no dictionary.
Owned<NSMutableDictionary> existingSettings(NSString path) {
    logInfoPlain("Settings file exists, checking version..");
    Owned<NSMutableDictionary> settings = NSMutableDictionary::fromFile(path);
    logInfoPlain("Old settings file found, updating it with latest one. [settings count] => ",
                 static_cast<int>(settings->count()));
    return settings;
}

}  // namespace

void seedSettingsFile() {
    NSString path = seedPath();
    AutoreleasePool pool;
    Owned<NSMutableDictionary> settings;
    if (NSFileManager::shared().existsOfAnyKind(path)) settings = existingSettings(path);
    if (!settings) settings = NSMutableDictionary::create();
    for (const SettingRow& row : kSettingRows) {
        NSString key = NSString::fromUTF8(row.key);
        if (!settings->objectFor(key)) settings->setObject(NSNumber::of(row.standard), key);
    }
    settings->writeToFile(path, true);
    settings->removeAllObjects();  // docs/compatibility.md
}

}  // namespace zelka
