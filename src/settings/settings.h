// The user's settings, as the settings file had them when it was last loaded.
#pragma once

#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/owned.h"
#include "src/settings/setting_rows.h"

namespace zelka {

// The in-process notification, posted without an object, that makes the visible lists fetch their pictures again (+0).
inline NSString settingsChangedNotification() { return literal<"com.norvex.ZelkaSettingsChangedNotification">(); }

// The process-wide settings object, an instance of the class ZLKCBSettings. The values are read and written one by one
// without a lock: during a reload, other threads may see some old and some new ones. Its instance variables hold the
// settings in the order of their rows, one byte after the other. Any thread.
struct ZLKCBSettings : NSObject {
    // The one instance (+0), made and loaded by the first call, of whichever class that one names.
    static ZLKCBSettings sharedSettings(Class cls = platformClass<ZLKCBSettings>());
    // The dictionary in the file as an immutable copy (+1); nothing when none can be read.
    static Owned<NSDictionary> settingsDictionary(NSString path);

    // Reads the file again and overwrites all values; what is missing or unreadable reads as false.
    void loadSettings() const;
    // The same as a message, for which other code may have put its own method.
    void sendLoadSettings() const { send<void, "loadSettings">(*this); }

    bool value(Setting setting) const;
    void setValue(Setting setting, bool value) const;
};

// Whether the user wants the library to work at all.
bool isZelkaCBOnlyOn();
bool isRoundedPicsEnabled();
// Whether monograms can be drawn: the setting, on a system of version 7 or later.
bool isMonogramEnabled();

// Whether the library and the setting are both switched on, whatever the system's version.
bool isWanted(Setting setting);

// Whether the user wants monograms, by the settings alone: without the system-version test that drawing them makes.
inline bool monogramsWanted() { return isWanted(Setting::monograms); }

// The lists that pictures are added to, each with the setting that switches it.
enum class List : std::size_t {
    favorites = static_cast<std::size_t>(Setting::favorites),
    recents = static_cast<std::size_t>(Setting::recents),
    contacts = static_cast<std::size_t>(Setting::contacts),
};

// Whether the user wants pictures on that list.
inline bool picturesWantedOn(List list) { return isWanted(static_cast<Setting>(list)); }

}  // namespace zelka
