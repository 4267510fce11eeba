// The user's settings.
#pragma once

#include "src/platform/class_builder.h"
#include "src/platform/foundation.h"

// The in-process notification, posted without an object, that makes the visible lists fetch their pictures again (+0).
inline NSString settingsChangedNotification() { return literal<"com.norvex.ZelkaSettingsChangedNotification">(); }

// The process-wide settings object. The values are read and written without a lock: during a reload, other threads may
// see some old and some new ones.
struct ZLKCBSettings : NSObject {
    // The one instance (+0), made and loaded by the first call. Any thread.
    static ZLKCBSettings sharedSettings();
    // The dictionary in the file as an immutable copy (+1); nothing when none can be read.
    static Owned<NSDictionary> settingsDictionary(NSString path);

    // Reads the file again and overwrites all six values; what is missing or unreadable reads as false.
    void loadSettings() const;

    bool isZelkaCBEnabled() const { return value(0); }
    bool isRoundedPicsEnabled() const { return value(1); }
    bool isMonogramEnabled() const { return value(2); }
    bool isShowPicturesOnFavorites() const { return value(3); }
    bool isShowPicturesOnRecents() const { return value(4); }
    bool isShowPicturesOnContacts() const { return value(5); }

    // The value at that place in the order of the settings' rows.
    bool value(std::size_t index) const;
    void setValue(std::size_t index, bool value) const;
};

// Registers the class ZLKCBSettings with the runtime.
void registerSettingsClass();

namespace ZelkaCBUtils {

bool isZelkaCBOnlyOn();
bool isRoundedPicsEnabled();
// Whether monogram pictures are wanted; never on a system before version 7, which has none of its own.
bool isMonogramEnabled();

// The class methods that answer to these functions.
std::span<const MethodRow> settingsMethods();

}  // namespace ZelkaCBUtils
