// The settings as flat data: what the library knows of each of them
// (resources/settings.def).
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "src/platform/fixed_string.h"

namespace zelka {

// Index into kSettingRows.
enum class Setting : std::size_t {
#define SETTING(name, ...) name,
#include "resources/settings.def"
#undef SETTING
    count
};

struct SettingRow {
    Setting setting;
    const char* key;           // in the settings file
    const char* notification;  // the Darwin notification that announces a change
    bool standard;             // the value of a setting that nobody has changed
    const char* property;      // of the class ZLKCBSettings, which is also the getter's name
    const char* label;         // in the class's description
};

// In the order in which the settings are seeded, loaded, described and observed.
constexpr std::array<SettingRow, static_cast<std::size_t>(Setting::count)> kSettingRows{{
#define SETTING(name, stem, standard, group, property, label) \
    {Setting::name, "ZelkaCBEnabled" stem, "com.norvex.ZelkaCB" stem "EnabledNotification", standard, #property, label},
#include "resources/settings.def"
#undef SETTING
}};

// The name of the setting's property.
template <Setting setting>
inline constexpr auto kPropertyName = [] {
    constexpr std::string_view name = kSettingRows[static_cast<std::size_t>(setting)].property;
    FixedString<name.size()> text;
    name.copy(text.text, name.size());
    return text;
}();

// The name of the instance variable that holds it.
template <Setting setting>
inline constexpr auto kVariableName = FixedString("_") + kPropertyName<setting>;

// The settings file and the folder that holds it in a home directory.
constexpr const char* kPreferencesFolder = "Library/Preferences";
constexpr const char* kSettingsFile = "com.norvex.ZelkaCB.plist";

}  // namespace zelka
