// The manual page.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tool {

// The page phonesim(1) for man, from what --help is made from.
std::string manual(const CLI::App& app, const std::string& version);

}  // namespace tool
