#include "tests/package/link_stub.h"

#include <filesystem>

#include "tests/package/command.h"

namespace test {

std::map<std::string, std::set<std::string>> stubSymbols(const std::string& folder, const std::string& target) {
    std::map<std::string, std::set<std::string>> found;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        const std::string text = bytesOf(file.path());
        std::set<std::string>& symbols = found[valueAfter(text, "install-name: ")];
        bool applies = false;
        for (const std::string& line : linesOf(text)) {
            if (line.find("- targets:") != std::string::npos) applies = line.find(target) != std::string::npos;
            const size_t item = line.find("      - ");
            if (applies && item == 0) symbols.insert(line.substr(8));
        }
    }
    return found;
}

}  // namespace test
