#include "simulator/runtime/library_loader.h"

#include <dlfcn.h>

#include <fstream>
#include <utility>
#include <vector>

namespace phone {
namespace {

using namespace std::string_view_literals;

std::string loadElf(const std::string& path) {
    // RTLD_LOCAL: two injected libraries on a phone do not see each other's symbols either.
    if (dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr) return "";
    const char* problem = dlerror();
    return problem != nullptr ? problem : "cannot be loaded";
}

std::vector<std::pair<std::string_view, LibraryFormat>>& formats() {
    static std::vector<std::pair<std::string_view, LibraryFormat>> known = {{"\177ELF"sv, loadElf}};
    return known;
}

std::string firstBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(16, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(file.gcount()));
    return bytes;
}

}  // namespace

void addLibraryFormat(std::string_view magic, LibraryFormat load) { formats().emplace_back(magic, load); }

std::string loadLibrary(const std::string& path) {
    const std::string start = firstBytes(path);
    for (const auto& [magic, load] : formats()) {
        if (start.compare(0, magic.size(), magic) == 0) return load(path);
    }
    return "not a library of a known format";
}

}  // namespace phone
