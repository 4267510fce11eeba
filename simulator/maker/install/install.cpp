#include "simulator/maker/install/install.h"

#include <system_error>

namespace maker {
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
    "Library/PreferenceLoader/Preferences",
};

struct Link {
    const char *place, *target;
};
constexpr Link kLinks[] = {
    {"var", "private/var"}, {"etc", "private/etc"}, {"tmp", "private/var/tmp"}, {"User", "var/mobile"}};

constexpr const char* kLibraryFolder = "Library/MobileSubstrate/DynamicLibraries";
constexpr const char* kLibraries[] = {"ZelkaCB.dylib", "ZelkaCB.so"};  // the first that is there counts
constexpr const char* kEntries = "Library/PreferenceLoader/Preferences";
constexpr const char* kBundle = "System/Library/PreferenceBundles/ZelkaCBSettings.bundle";

Status check(const std::error_code& error, const fs::path& path) {
    if (error) return failure(path.string() + ": " + error.message());
    return {};
}

Status requireBuilt(const fs::path& path) {
    std::error_code error;
    if (fs::exists(path, error)) return {};
    return failure(path.string() + ": is not there; build the project first");
}

// Beside its place first: a library that processes have loaded must not change under them.
Status copyFile(const fs::path& from, const fs::path& place) {
    return requireBuilt(from).and_then([&] {
        std::error_code error;
        const fs::path part = place.string() + ".part";
        fs::copy_file(from, part, fs::copy_options::overwrite_existing, error);
        if (!error) fs::rename(part, place, error);
        return check(error, place);
    });
}

// The injector looks for a library of the filter's name, in the phone's own format or this machine's, and takes the
// first when there are two.
Status copyLibrary(const fs::path& root, const Extension& extension) {
    const bool isPhones = extension.library.extension() == ".dylib";
    const fs::path& name = extension.filter.empty() ? extension.library : extension.filter;
    const fs::path place = root / kLibraryFolder / name.stem();
    return copyFile(extension.library, place.string() + (isPhones ? ".dylib" : ".so")).and_then([&] {
        std::error_code error;
        const fs::path other = place.string() + (isPhones ? ".so" : ".dylib");
        fs::remove(other, error);
        return check(error, other);
    });
}

Status copyBundle(const fs::path& root, const fs::path& bundle) {
    return requireBuilt(bundle).and_then([&] {
        std::error_code error;
        fs::remove_all(root / kBundle, error);
        if (!error) fs::copy(bundle, root / kBundle, fs::copy_options::recursive, error);
        return check(error, root / kBundle);
    });
}

// Beside other tweaks' entries.
Status copyEntry(const fs::path& root, const fs::path& entry) {
    return requireBuilt(entry).and_then([&] {
        std::error_code error;
        fs::create_directories(root / kEntries, error);
        if (!error)
            fs::copy(entry, root / kEntries, fs::copy_options::recursive | fs::copy_options::overwrite_existing, error);
        return check(error, root / kEntries);
    });
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
    return {};
}

Status installExtension(const fs::path& root, const Extension& extension) {
    Status installed;
    if (!extension.library.empty()) installed = copyLibrary(root, extension);
    if (installed && !extension.filter.empty()) {
        installed = copyFile(extension.filter, root / kLibraryFolder / extension.filter.filename());
    }
    if (installed && !extension.settingsBundle.empty()) installed = copyBundle(root, extension.settingsBundle);
    if (installed && !extension.settingsEntry.empty()) installed = copyEntry(root, extension.settingsEntry);
    return installed;
}

fs::path libraryPath(const fs::path& root) {
    std::error_code error;
    const fs::path folder = root / kLibraryFolder;
    return folder / kLibraries[fs::exists(folder / kLibraries[0], error) ? 0 : 1];
}

}  // namespace maker
