// The six settings as flat data.
#pragma once

#include <array>

// A setting's key in the settings file and the Darwin notification that announces a change of it.
struct SettingRow {
    const char* key;
    const char* notification;
};

// In the order in which the settings are seeded, loaded, described and observed.
constexpr std::array<SettingRow, 6> kSettingRows{{
    {"ZelkaCBEnabled", "com.norvex.ZelkaCBEnabledNotification"},
    {"ZelkaCBEnabledRoundedPictures", "com.norvex.ZelkaCBRoundedPicturesEnabledNotification"},
    {"ZelkaCBEnabledMonogramPictures", "com.norvex.ZelkaCBMonogramPicturesEnabledNotification"},
    {"ZelkaCBEnabledFavorites", "com.norvex.ZelkaCBFavoritesEnabledNotification"},
    {"ZelkaCBEnabledRecents", "com.norvex.ZelkaCBRecentsEnabledNotification"},
    {"ZelkaCBEnabledContacts", "com.norvex.ZelkaCBContactsEnabledNotification"},
}};

// The settings file and the folder that holds it in a home directory.
constexpr const char* kPreferencesFolder = "Library/Preferences";
constexpr const char* kSettingsFile = "com.norvex.ZelkaCB.plist";
