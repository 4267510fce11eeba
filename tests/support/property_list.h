#pragma once

// The settings file as the preference bundle writes it.

#include <string>
#include <utility>

namespace test {

constexpr const char* kSettingsPath = "/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist";

constexpr const char* kSettingsKeys[] = {
#define SETTING(name, stem, ...) "ZelkaCBEnabled" stem,
#include "resources/settings.def"
#undef SETTING
};

// A property list that is one dictionary of booleans.
inline std::string propertyList(std::initializer_list<std::pair<const char*, bool>> values) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>";
    for (const auto& [key, value] : values) {
        text += std::string("<key>") + key + "</key>" + (value ? "<true/>" : "<false/>");
    }
    return text + "</dict></plist>\n";
}

}  // namespace test
