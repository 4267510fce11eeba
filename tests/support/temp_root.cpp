#include "tests/support/temp_root.h"

#include <stdio.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>

#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/process/device_profiles.h"

namespace test {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& message) {
    fprintf(stderr, "TempRoot: %s\n", message.c_str());
    abort();
}

constexpr const char* directories[] = {
    "private/etc",
    "private/var/mobile/Library/AddressBook",
    "private/var/mobile/Library/Preferences",
    "private/var/run",
    "private/var/tmp",
    "private/var/wireless/Library/CallHistory",
    "Library/MobileSubstrate/DynamicLibraries",
    "System/Library/PreferenceBundles/ZelkaCBSettings.bundle",
};

struct Link {
    const char* name;
    const char* target;
};
constexpr Link links[] = {
    {"var", "private/var"}, {"etc", "private/etc"}, {"tmp", "private/var/tmp"}, {"User", "var/mobile"}};

}  // namespace

TempRoot::TempRoot(std::string_view profile) {
    std::string name = (fs::temp_directory_path() / "phone-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) fail("no temporary directory");
    path_ = fs::canonical(name);
    for (const char* directory : directories) fs::create_directories(path_ / directory);
    for (const Link& link : links) fs::create_symlink(link.target, path_ / link.name);
    setDevice(profile);
}

TempRoot::~TempRoot() {
    std::error_code error;
    fs::remove_all(path_, error);
}

std::string TempRoot::host(std::string_view phonePath) const { return phone::hostPath(phonePath, path_); }

void TempRoot::write(std::string_view phonePath, std::string_view contents) const {
    const fs::path path = host(phonePath);
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << contents;
    file.close();
    if (!file) fail("cannot write " + path.string());
}

std::string TempRoot::read(std::string_view phonePath) const {
    std::ifstream file(host(phonePath), std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

bool TempRoot::exists(std::string_view phonePath) const { return fs::exists(host(phonePath)); }

void TempRoot::setDevice(std::string_view profile, bool rightToLeft) const {
    std::optional<phone::Device> device = phone::deviceFromProfile(profile);
    if (!device) fail("no device profile " + std::string(profile));
    device->rightToLeft = rightToLeft;
    const phone::Status written = phone::writeDevice(path_, *device);
    if (!written) fail(written.error().message);
}

}  // namespace test
