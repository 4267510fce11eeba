// What may come next on the command line, for the shells that complete words; the scripts in completions/ ask for it.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tool {

// Type names of options whose value the shell completes itself. --help shows them.
inline constexpr const char* kFile = "FILE";
inline constexpr const char* kDirectory = "DIRECTORY";

// For Option::check: values that are offered to complete a word. Others are not refused, and --help does not list them.
CLI::Validator offered(const std::vector<std::string>& values);

// One line for each candidate for the last of the words, which may be empty: the word, and after a tab its description
// where it has one. The words before it are those after the program's name. ":files" and ":directories" stand for the
// paths that the shell finds.
std::string completions(CLI::App& app, const std::vector<std::string>& words);

}  // namespace tool
