// The settings as flat data: everything that the library knows of each of them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "src/platform/fixed_string.h"

namespace zelka {

// Index into kSettingRows.
enum class Setting : std::size_t {
    enabled,          // the main switch
    roundedPictures,  // pictures are discs instead of squares
    monograms,        // initials are drawn for contacts without a photo
    favorites,        // pictures in the Favorites list
    recents,          // pictures in the Recents list
    contacts,         // pictures in the Contacts list
    count
};

struct SettingRow {
    Setting setting;
    const char* key;           // in the settings file
    const char* notification;  // the Darwin notification that announces a change
    const char* property;      // of the class ZLKCBSettings, which is also the getter's name
    const char* label;         // in the class's description
};

// In the order in which the settings are seeded, loaded, described and observed.
constexpr std::array<SettingRow, static_cast<std::size_t>(Setting::count)> kSettingRows{{
    {Setting::enabled, "ZelkaCBEnabled", "com.norvex.ZelkaCBEnabledNotification", "isZelkaCBEnabled",
     "Zelka For Call Enabled: "},
    {Setting::roundedPictures, "ZelkaCBEnabledRoundedPictures", "com.norvex.ZelkaCBRoundedPicturesEnabledNotification",
     "isRoundedPicsEnabled", "Round Pictures Enabled: "},
    {Setting::monograms, "ZelkaCBEnabledMonogramPictures", "com.norvex.ZelkaCBMonogramPicturesEnabledNotification",
     "isMonogramEnabled", "Monogram Enabled: "},
    {Setting::favorites, "ZelkaCBEnabledFavorites", "com.norvex.ZelkaCBFavoritesEnabledNotification",
     "isShowPicturesOnFavorites", "Zelka on Favorites: "},
    {Setting::recents, "ZelkaCBEnabledRecents", "com.norvex.ZelkaCBRecentsEnabledNotification",
     "isShowPicturesOnRecents", "Zelka on Recents:"},
    {Setting::contacts, "ZelkaCBEnabledContacts", "com.norvex.ZelkaCBContactsEnabledNotification",
     "isShowPicturesOnContacts", "Zelka on Contacts:"},
}};

// Whether each setting has its row, in the enumeration's order.
consteval bool settingRowsAreComplete() {
    std::size_t index = 0;
    for (const SettingRow& row : kSettingRows)
        if (row.setting != static_cast<Setting>(index++) || row.property == nullptr) return false;
    return true;
}
static_assert(settingRowsAreComplete());

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
