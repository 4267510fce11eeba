#include "simulator/runtime/process/library_loader.h"

#include <dlfcn.h>

#include <fstream>
#include <string_view>

#include "simulator/runtime/macho/loader.h"

namespace phone {
namespace {

using namespace std::string_view_literals;

Status loadElf(const std::string& path) {
    // RTLD_LOCAL: two injected libraries on a phone do not see each other's symbols either.
    if (dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr) return {};
    const char* problem = dlerror();
    return failure(problem != nullptr ? problem : "cannot be loaded");
}

void* symbolOfElf(const std::string& path, const std::string& name) {
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
    if (library == nullptr) return nullptr;
    void* symbol = dlsym(library, name.c_str());
    dlclose(library);  // the reference that loading it took stays
    return symbol;
}

// A binary format, recognised by a file's first bytes.
struct Format {
    std::string_view magic;
    Status (*load)(const std::string& path);
    void* (*symbolOf)(const std::string& path, const std::string& name);
};

constexpr Format kFormats[] = {
    {"\177ELF"sv, loadElf, symbolOfElf},
    {"\xcf\xfa\xed\xfe"sv, macho::loadLibrary, macho::symbolOf},
    {"\xca\xfe\xba\xbe"sv, macho::loadLibrary, macho::symbolOf},  // with parts for several processors
};

std::string firstBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(16, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(file.gcount()));
    return bytes;
}

const Format* formatOf(const std::string& path) {
    const std::string start = firstBytes(path);
    for (const Format& format : kFormats) {
        if (start.compare(0, format.magic.size(), format.magic) == 0) return &format;
    }
    return nullptr;
}

}  // namespace

Status loadLibrary(const std::string& path) {
    const Format* format = formatOf(path);
    return format != nullptr ? format->load(path) : failure("not a library of a known format");
}

void* librarySymbol(const std::string& path, const std::string& name) {
    const Format* format = formatOf(path);
    return format != nullptr ? format->symbolOf(path, name) : nullptr;
}

std::string libraryOf(const void* address) {
    for (const macho::LoadedImage& image : macho::loadedImages()) {
        if (address >= image.begin && address < image.begin + image.size) return image.path;
    }
    Dl_info info;
    return dladdr(address, &info) != 0 ? info.dli_fname : "";
}

}  // namespace phone
