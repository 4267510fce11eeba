// What lies on a phone besides its databases.
#pragma once

#include <filesystem>

#include "simulator/maker/common/result.h"

namespace maker {

// The extension's files on this machine; an empty path is left out.
struct Extension {
    std::filesystem::path library;         // in this machine's binary format or the phone's
    std::filesystem::path filter;          // which processes load the library
    std::filesystem::path settingsBundle;  // the preference bundle's folder
    std::filesystem::path settingsEntry;   // the folder with its entry in the Settings app, and the entry's pictures
};

// Makes the folders and links of an empty phone in an existing directory.
[[nodiscard]] Status makeFolders(const std::filesystem::path& root);

// Copies the library (under the filter's name), its filter, the preference bundle and its entry to where a phone has
// them, in place of earlier ones. A process of the phone that has loaded an earlier library keeps it.
[[nodiscard]] Status installExtension(const std::filesystem::path& root, const Extension& extension);

// Where a phone has the library: in the phone's own binary format if it is there, else in this machine's.
std::filesystem::path libraryPath(const std::filesystem::path& root);

}  // namespace maker
