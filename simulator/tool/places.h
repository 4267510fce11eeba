// Where phonesim finds what it installs on a phone and the programs that it starts.
#pragma once

#include <filesystem>

namespace tool {

struct Places {
    std::filesystem::path hosts;           // the folder of the host programs
    std::filesystem::path library;         // the extension library
    std::filesystem::path filter;          // the injector's filter for it
    std::filesystem::path settingsBundle;  // the preference bundle's folder
    std::filesystem::path settingsEntry;   // the folder of its entry in the Settings app
};

// The places beside this program, which the build and an installation arrange differently; both may be moved as a
// whole. Throws Problem when the library is in neither place.
Places places();

}  // namespace tool
