#include "tests/package/command.h"

#include <gtest/gtest.h>
#include <stdio.h>

#include <array>
#include <fstream>
#include <iterator>
#include <sstream>

namespace test {

std::string outputOf(const std::string& command) {
    FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    std::array<char, 4096> part;
    for (size_t got = 0; (got = fread(part.data(), 1, part.size(), pipe)) > 0;) output.append(part.data(), got);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string valueAfter(const std::string& text, const std::string& beginning) {
    for (const std::string& line : linesOf(text)) {
        const size_t start = line.find_first_not_of(" \t");
        if (start != std::string::npos && line.compare(start, beginning.size(), beginning) == 0) {
            return line.substr(start + beginning.size());
        }
    }
    return "";
}

}  // namespace test
