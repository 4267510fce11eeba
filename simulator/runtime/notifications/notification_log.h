#pragma once

// Darwin notifications between the processes of one phone: a file that every poster appends to and every observing
// process follows. Needs neither Foundation nor a booted process.

#include <filesystem>
#include <string>
#include <string_view>

namespace phone {

// The file's place in a root.
std::filesystem::path notificationLogPath(const std::filesystem::path& root);

// Posts one notification to the processes of `root`; never waits for any of them to take it. Answers an empty string,
// or a message telling why it could not be posted. Any thread.
std::string postNotification(const std::filesystem::path& root, std::string_view name);

}  // namespace phone
