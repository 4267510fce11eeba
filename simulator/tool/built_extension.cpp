#include "simulator/tool/built_extension.h"

#include <cstdio>
#include <system_error>

#include "simulator/maker/common/read_file.h"
#include "simulator/runtime/process/device.h"
#include "simulator/tool/places.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

bool isOlder(const fs::path& file, const fs::path& other) {
    std::error_code error;
    const auto time = fs::last_write_time(file, error);
    if (error) return false;
    const auto otherTime = fs::last_write_time(other, error);
    return !error && time < otherTime;
}

bool areAlike(const fs::path& file, const fs::path& other) {
    std::error_code error;
    if (fs::file_size(file, error) != fs::file_size(other, error) || error) return false;
    const phone::Result<std::string> bytes = maker::readFile(file);
    const phone::Result<std::string> otherBytes = maker::readFile(other);
    return bytes && otherBytes && *bytes == *otherBytes;
}

}  // namespace

std::string processorOf(const fs::path& root) { return phone::readDevice(root).value().processor; }

maker::Extension builtExtension(const std::string& processor) {
    const Places found = places(processor);
    return {found.library, found.filter, found.settingsBundle, found.settingsEntry};
}

void warnOfStaleLibrary(const fs::path& root) {
    const fs::path library = maker::libraryPath(root);
    const fs::path built = builtExtension(processorOf(root)).library;
    if (library.extension() != built.extension()) return;  // somebody's own choice
    if (!isOlder(library, built) || areAlike(library, built)) return;
    std::fprintf(stderr, "phonesim: %s: is older than %s; \"phonesim install %s\" renews it\n", library.c_str(),
                 built.c_str(), root.c_str());
}

}  // namespace tool
