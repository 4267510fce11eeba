#pragma once

// Darwin notifications between the processes of one phone: a file that every poster appends to and every observing
// process follows. Needs neither Foundation nor a booted process.

#include <filesystem>
#include <string>
#include <string_view>

#include "simulator/runtime/result.h"

namespace phone {

// The file's place in a root.
std::filesystem::path notificationLogPath(const std::filesystem::path& root);

// Posts one notification to the processes of `root`; never waits for any of them to take it. Fails for a name that
// is not one line of text, and when the file cannot be written. Any thread.
[[nodiscard]] Status postNotification(const std::filesystem::path& root, std::string_view name);

}  // namespace phone
