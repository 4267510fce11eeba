// Where phonesim finds what it installs on a phone and the programs that it starts.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tool {

struct Places {
    std::filesystem::path hosts;           // the folder of the host programs
    std::filesystem::path library;         // the extension library
    std::filesystem::path filter;          // the injector's filter for it
    std::filesystem::path settingsBundle;  // the preference bundle's folder
    std::filesystem::path settingsEntry;   // the folder of its entry in the Settings app
};

// The processors that phones may have: this program's first, then those that script/test-arm builds for.
std::vector<std::string> processors();

// The places for phones of a processor. For this program's own they are beside it, where the build and an installation
// arrange them differently; both may be moved as a whole. For another one, hosts, library and bundle are in the build
// for that processor, beside this program's build. Throws Problem when the library is not there.
Places places(const std::string& processor);

}  // namespace tool
