// The settings file as the page reads and writes it, at the place where the library reads it. The preferences service
// has no part in it: what it knows of a file it may write later, over something newer.
#pragma once

#include <array>

#include "src/platform/foundation/NSDictionary.h"
#include "src/settings/setting_rows.h"

namespace zelka {

enum class Written {
    yes,
    unreadable,  // something is there that is no settings file; it was left as it is
    failed       // the file system refuses; what was there is still there
};

// What the file held when it was loaded. Main thread.
class StoredSettings {
  public:
    static StoredSettings load();

    // What the library does: a setting that the file lacks has its standard value, which the next write adds; nothing
    // is switched on by a file that cannot be read.
    bool value(Setting setting) const { return values_[static_cast<std::size_t>(setting)]; }

    // Replaces the file as a whole, with the setting changed and with all keys that the page does not know.
    Written write(Setting setting, bool value);

    // The same with the standard settings. A file that cannot be read is replaced, too, because that is what the user
    // asks for. Never returns `unreadable`.
    Written restoreStandard();

  private:
    Written save() const;

    Owned<NSMutableDictionary> contents_;
    bool isReadable_ = true;
    std::array<bool, kSettingRows.size()> values_{};
};

// The file's path (+0).
NSString settingsFilePath();

}  // namespace zelka
