#include "simulator/maker/backup/backup.h"

#include <glib.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "simulator/maker/common/property_list_file.h"
#include "simulator/phone_number/phone_number.h"
#include "simulator/runtime/glib_pointers.h"
#include "simulator/runtime/process/device_profiles.h"

namespace maker {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDescription = "Info.plist";

bool isBackup(const fs::path& folder) {
    std::error_code error;
    return fs::is_regular_file(folder / kDescription, error) && fs::is_regular_file(folder / "Manifest.plist", error);
}

Status requireBackup(const fs::path& folder) {
    std::error_code error;
    if (!fs::exists(folder, error)) return failure(folder.string() + ": there is no such folder");
    if (!fs::is_directory(folder, error)) return failure(folder.string() + ": is not a folder, so not a backup");
    if (isBackup(folder)) return {};
    std::string backups;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
        if (isBackup(entry.path())) backups += "\n  " + entry.path().string();
    if (!backups.empty()) return failure(folder.string() + ": holds backups; give one of them:" + backups);
    return failure(folder.string() + ": is not the backup of a phone: it has no Info.plist and Manifest.plist");
}

Status requireReadable(const fs::path& folder, plist_t manifest) {
    if (!isTrueAt(manifest, {"IsEncrypted"})) return {};
    return failure(folder.string() +
                   ": is an encrypted backup, which cannot be read; on the computer, switch the encryption of local "
                   "backups off, back the phone up once more, and give that backup");
}

struct Origin {
    const char *domain, *path;
};
constexpr Origin kAddressBook = {"HomeDomain", "Library/AddressBook/AddressBook.sqlitedb"};
constexpr Origin kImages = {"HomeDomain", "Library/AddressBook/AddressBookImages.sqlitedb"};
constexpr Origin kCallHistory = {"WirelessDomain", "Library/CallHistory/call_history.db"};
constexpr Origin kCallStore = {"HomeDomain", "Library/CallHistoryDB/CallHistory.storedata"};
constexpr Origin kFavorites = {"HomeDomain", "Library/Preferences/com.apple.mobilephone.speeddial.plist"};
constexpr Origin kPreferences = {"HomeDomain", "Library/Preferences/.GlobalPreferences.plist"};

// Where the backup keeps a file; empty when it does not.
fs::path placeOf(const fs::path& folder, const Origin& origin, const char* suffix = "") {
    const std::string whole = std::string(origin.domain) + "-" + origin.path + suffix;
    const phone::GText hash(
        g_compute_checksum_for_string(G_CHECKSUM_SHA1, whole.c_str(), static_cast<gssize>(whole.size())));
    const std::string name = hash.get();
    std::error_code error;
    for (const fs::path& place : {folder / name, folder / name.substr(0, 2) / name})
        if (fs::is_regular_file(place, error)) return place;
    return {};
}

// A database, which SQLite expects to have its log beside it, under its own name.
Result<fs::path> database(const fs::path& folder, const Origin& origin, const fs::path& workplace) {
    const fs::path place = placeOf(folder, origin);
    const fs::path log = placeOf(folder, origin, "-wal");
    if (place.empty() || log.empty()) return place;
    const fs::path copy = workplace / fs::path(origin.path).filename();
    std::error_code error;
    fs::create_directories(workplace, error);
    for (const auto& [from, to] : {std::pair(place, copy), std::pair(log, fs::path(copy.string() + "-wal"))}) {
        fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
        if (error) return failure(from.string() + ": cannot be copied: " + error.message());
    }
    return copy;
}

// The model's screen; of one that is not known, that of its kind.
phone::Device deviceOf(const std::string& machine, const std::string& folder, Findings& findings) {
    const auto& profiles = phone::deviceProfiles();
    const auto known = std::find_if(profiles.rbegin(), profiles.rend(),
                                    [&](const phone::DeviceProfile& profile) { return profile.machine == machine; });
    if (known != profiles.rend()) return *phone::deviceFromProfile(known->id);
    const char* const substitute = machine.rfind("iPad", 0) == 0 ? "ipadair2-8.4" : "iphone6-8.4";
    phone::Device device = *phone::deviceFromProfile(substitute);
    findings.push_back({FindingKind::mended, folder, 0,
                        "the screen of the model " + machine + " is not known; it gets that of " + device.machine});
    device.machine = machine;
    return device;
}

// The first language, and the country behind the locale's underscore: "de_CH" or "zh-Hans_CN@calendar=gregorian".
void readPreferences(const fs::path& file, phone::Device& device) {
    if (file.empty()) return;
    const Result<PropertyList> list = readPropertyListFile(file);
    if (!list) return;
    plist_t languages = valueAt(list->get(), {"AppleLanguages"});
    if (languages != nullptr && plist_get_node_type(languages) == PLIST_ARRAY && plist_array_get_size(languages) > 0) {
        const PropertyList first(plist_new_dict());
        plist_dict_set_item(first.get(), "language", plist_copy(plist_array_get_item(languages, 0)));
        device.language = textAt(first.get(), {"language"}).value_or(device.language);
    }
    std::string locale = textAt(list->get(), {"AppleLocale"}).value_or("");
    locale.resize(std::min(locale.find('@'), locale.size()));
    const std::size_t underscore = locale.rfind('_');
    const std::string region = underscore == std::string::npos ? "" : locale.substr(underscore + 1);
    if (phone_number::isRegion(region)) device.region = region;
}

}  // namespace

Result<Backup> readBackup(const fs::path& folder, const fs::path& workplace, Findings& findings) {
    if (Status is = requireBackup(folder); !is) return failure(is);
    const Result<PropertyList> manifest = readPropertyListFile(folder / "Manifest.plist");
    if (!manifest) return failure(manifest);
    if (Status readable = requireReadable(folder, manifest->get()); !readable) return failure(readable);
    const Result<PropertyList> info = readPropertyListFile(folder / kDescription);
    if (!info) return failure(info);
    const std::optional<std::string> machine = textAt(info->get(), {"Product Type"});
    const std::optional<std::string> version = textAt(info->get(), {"Product Version"});
    if (!machine || !version)
        return failure((folder / kDescription).string() + ": names no \"Product Type\" and \"Product Version\"");
    Backup backup;
    backup.device = deviceOf(*machine, folder.string(), findings);
    backup.device.systemVersion = *version;
    backup.device.preferencesService = phone::hasPreferencesService(*version);
    backup.device.name = textAt(info->get(), {"Device Name"}).value_or(backup.device.name);
    readPreferences(placeOf(folder, kPreferences), backup.device);
    const Origin& calls = phone::keepsCallStore(backup.device) ? kCallStore : kCallHistory;
    for (const auto& [origin, place] : {std::pair(&kAddressBook, &backup.addressBook),
                                        std::pair(&kImages, &backup.images), std::pair(&calls, &backup.calls)}) {
        Result<fs::path> found = database(folder, *origin, workplace);
        if (!found) return failure(found);
        *place = std::move(*found);
        if (place->empty()) {
            findings.push_back(
                {FindingKind::skipped, folder.string(), 0,
                 std::string("there is no ") + fs::path(origin->path).filename().string() + " in this backup"});
        }
    }
    backup.favorites = placeOf(folder, kFavorites);
    return backup;
}

}  // namespace maker
