#pragma once

// One process of the phone: who it is, and waiting for it to come to rest.

#include <filesystem>
#include <string>

namespace phone {

// Makes this process one of the phone in `root`: working directory, home, device, file access by phone paths through
// Foundation and SQLite, and the main bundle's identifier (an empty one: a process without an identifier). Call it
// once, on the main thread, before other threads exist; it ends the process with a message when the root is none.
void boot(const std::filesystem::path& root, std::string bundleIdentifier);

// The identifier given to boot(). Any thread.
const std::string& bundleIdentifier();

// Runs the main run loop until no block operation and no main-queue task is pending, at most `seconds`. Returns whether
// the process came to rest. Main thread.
bool settle(double seconds);

}  // namespace phone
