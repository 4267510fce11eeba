// What is on a phone, in numbers and names.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "simulator/runtime/process/device.h"

namespace tool {

struct Summary {
    std::filesystem::path root;
    phone::Device device;
    // Nothing where the database cannot be read.
    std::optional<long> contacts, pictures, calls, missed, favorites;
    std::string library;  // the installed library's file name; empty: none
    bool running = false;
};

// Throws Problem for a directory that is no phone; a phone whose databases are damaged is summed up without them.
Summary summaryOf(const std::filesystem::path& root);

// The same as JSON; what is not known is null.
nlohmann::ordered_json jsonOf(const Summary& summary);

// "12", or "?" for what is not known.
std::string written(const std::optional<long>& number);

}  // namespace tool
