#include "settings_page/stored_settings.h"

#include "src/platform/foundation/NSFileManager.h"
#include "src/platform/foundation/NSValue.h"

namespace zelka {
namespace {

bool storedValue(NSDictionary contents, const SettingRow& row) {
    auto value = contents.objectFor(NSString::fromUTF8(row.key));
    return value ? truthOf(value) : row.standard;
}

}  // namespace

// The library's path, "User/Library/Preferences/...", starts at its processes' working directory, which is the root.
NSString settingsFilePath() {
    return literal<"/User">()
        .appendingPathComponent(NSString::fromUTF8(kPreferencesFolder))
        .appendingPathComponent(NSString::fromUTF8(kSettingsFile));
}

StoredSettings StoredSettings::load() {
    StoredSettings settings;
    settings.contents_ = NSMutableDictionary::fromFile(settingsFilePath());
    settings.isReadable_ = settings.contents_ || !NSFileManager::shared().attributes(settingsFilePath());
    if (!settings.contents_) settings.contents_ = NSMutableDictionary::create();
    if (!settings.isReadable_) return settings;
    for (const SettingRow& row : kSettingRows)
        settings.values_[static_cast<std::size_t>(row.setting)] = storedValue(settings.contents_.get(), row);
    return settings;
}

Written StoredSettings::write(Setting setting, bool value) {
    if (!isReadable_) return Written::unreadable;
    values_[static_cast<std::size_t>(setting)] = value;
    return save();
}

Written StoredSettings::restoreStandard() {
    for (const SettingRow& row : kSettingRows) values_[static_cast<std::size_t>(row.setting)] = row.standard;
    return save();
}

Written StoredSettings::save() const {
    for (const SettingRow& row : kSettingRows)
        contents_->setObject(NSNumber::of(value(row.setting)), NSString::fromUTF8(row.key));
    // Atomically: a reader finds the old file or the new one.
    return contents_->writeToFile(settingsFilePath(), true) ? Written::yes : Written::failed;
}

}  // namespace zelka
