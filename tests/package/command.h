// Output of tools that read binaries and packages.
#pragma once

#include <string>
#include <vector>

namespace test {

// What a shell command writes to its standard output. A failing command fails the test.
std::string outputOf(const std::string& command);

// The lines of a text, without their ends.
std::vector<std::string> linesOf(const std::string& text);

// A file's bytes; a file that cannot be read fails the test.
std::string bytesOf(const std::string& path);

// The rest of the first line that begins with the text after any blanks; empty when none does.
std::string valueAfter(const std::string& text, const std::string& beginning);

}  // namespace test
