#include "simulator/maker/install/install.h"

#include <system_error>

namespace phone {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolders[] = {
    "private/etc",
    "private/var/run",
    "private/var/mobile/Library/AddressBook",
    "private/var/mobile/Library/Preferences",
    "private/var/wireless/Library/CallHistory",
    "private/var/tmp",
    "System/Library/PreferenceBundles",
    "Library/MobileSubstrate/DynamicLibraries",
};

struct Link {
    const char *place, *target;
};
constexpr Link kLinks[] = {
    {"var", "private/var"}, {"etc", "private/etc"}, {"tmp", "private/var/tmp"}, {"User", "var/mobile"}};

constexpr const char* kLibraryFolder = "Library/MobileSubstrate/DynamicLibraries";
constexpr const char* kBundle = "System/Library/PreferenceBundles/ZelkaCBSettings.bundle";

Status check(const std::error_code& error, const fs::path& path) {
    if (!error) return Done{};
    return Failure{path.string() + ": " + error.message()};
}

Status requireBuilt(const fs::path& path) {
    std::error_code error;
    if (fs::exists(path, error)) return Done{};
    return Failure{path.string() + ": is not there; build the project first"};
}

// The injector looks for a library of the filter's name, in the phone's own format or this machine's.
fs::path nameBeside(const fs::path& filter, const fs::path& library) {
    if (filter.empty()) return library.filename();
    return filter.stem().concat(library.extension() == ".dylib" ? ".dylib" : ".so");
}

// A link and no copy: what is built anew is at once on every phone that there is.
Status linkLibrary(const fs::path& root, const fs::path& library, const fs::path& filter) {
    Status built = requireBuilt(library);
    if (!built) return built;
    std::error_code error;
    fs::path target = fs::canonical(library, error);
    fs::path link = root / kLibraryFolder / nameBeside(filter, library);
    if (!error) fs::create_symlink(target, link, error);
    return check(error, link);
}

Status copyFilter(const fs::path& root, const fs::path& filter) {
    Status built = requireBuilt(filter);
    if (!built) return built;
    std::error_code error;
    fs::path copy = root / kLibraryFolder / filter.filename();
    fs::copy_file(filter, copy, error);
    return check(error, copy);
}

Status copyBundle(const fs::path& root, const fs::path& bundle) {
    Status built = requireBuilt(bundle);
    if (!built) return built;
    std::error_code error;
    fs::copy(bundle, root / kBundle, fs::copy_options::recursive, error);
    return check(error, root / kBundle);
}

}  // namespace

Status makeFolders(const fs::path& root) {
    std::error_code error;
    for (const char* folder : kFolders) {
        fs::create_directories(root / folder, error);
        if (error) return check(error, root / folder);
    }
    for (const Link& link : kLinks) {
        fs::create_directory_symlink(link.target, root / link.place, error);
        if (error) return check(error, root / link.place);
    }
    return Done{};
}

Status installExtension(const fs::path& root, const RootOptions& options) {
    if (!options.library.empty()) {
        Status linked = linkLibrary(root, options.library, options.filter);
        if (!linked) return linked;
    }
    if (!options.filter.empty()) {
        Status copied = copyFilter(root, options.filter);
        if (!copied) return copied;
    }
    return options.settingsBundle.empty() ? Status(Done{}) : copyBundle(root, options.settingsBundle);
}

}  // namespace phone
