#pragma once

// One process of the phone: who it is, what is loaded into it, and waiting for it to come to rest.

#include <filesystem>
#include <string>
#include <vector>

namespace phone {

// Makes this process one of the phone in `root`: working directory, home, device, file access by phone paths through
// Foundation and SQLite, and the main bundle's identifier (an empty one: a process without an identifier). Call it
// once, on the main thread, before other threads exist; it ends the process with a message when the root is none.
void boot(const std::filesystem::path& root, std::string bundleIdentifier);

// The identifier given to boot(). Any thread.
const std::string& bundleIdentifier();

// What the phone's injector does in a starting process: loads every library of
// ROOT/Library/MobileSubstrate/DynamicLibraries whose filter names this process's bundle identifier, in the order of
// their names. Answers the paths loaded. A filter or library that cannot be used is told on standard error and passed
// over, as on a phone. Main thread.
std::vector<std::string> injectLibraries();

// Runs the main run loop until no block operation and no main-queue task is pending, at most `seconds`. Answers whether
// the process came to rest. Main thread.
bool settle(double seconds);

}  // namespace phone
