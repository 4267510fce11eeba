#pragma once

#include <string>
#include <string_view>

namespace phone {

// Loads one binary format: takes the library's path, answers an empty string or what is wrong.
using LibraryFormat = std::string (*)(const std::string& path);

// Adds a format, chosen by a file's first bytes. `magic` must live as long as the process. Before the first load.
void addLibraryFormat(std::string_view magic, LibraryFormat load);

// Loads the library at a path of this machine by the format its first bytes name, and runs its initialisers. Answers an
// empty string, or a message telling why it could not be loaded. This machine's own format is known from the start.
std::string loadLibrary(const std::string& path);

}  // namespace phone
