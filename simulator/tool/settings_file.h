// The settings file of a phone, as its preference bundle writes it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "simulator/runtime/result.h"

namespace tool {

// Sets one switch in the root's settings file and keeps its other keys; makes the file when there is none. The file is
// replaced as a whole, and programs that do so at the same time take turns. Fails, changing nothing, when the file
// there is not a property list with a dictionary.
[[nodiscard]] phone::Status setSwitch(const std::filesystem::path& root, const std::string& key, bool on);

// Whether a switch is on; nothing when the file does not have it, or there is no file. Fails when the file there is not
// a property list with a dictionary.
phone::Result<std::optional<bool>> readSwitch(const std::filesystem::path& root, const std::string& key);

}  // namespace tool
