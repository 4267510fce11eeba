#include "tests/package/link_stub.h"

#include <filesystem>

#include "tests/package/command.h"

namespace test {

std::map<std::string, std::set<std::string>> stubSymbols(const std::string& folder, const std::string& target) {
    const std::string processor = target.substr(0, target.find('-'));
    std::map<std::string, std::set<std::string>> found;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        std::set<std::string>* symbols = nullptr;
        // The install name, then the symbols: "/usr/lib/libobjc.A.dylib (for architecture arm64):".
        for (const std::string& line :
             linesOf(outputOf("llvm-nm-19 --arch=" + processor + " '" + file.path().string() + "'"))) {
            if (line.ends_with("):")) symbols = &found[line.substr(0, line.find(" (for architecture"))];
            if (const size_t kind = line.find(" S "); kind != std::string::npos && symbols != nullptr)
                symbols->insert(line.substr(kind + 3));
        }
    }
    return found;
}

}  // namespace test
