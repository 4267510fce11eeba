#include "simulator/maker/make_root.h"

#include <stdlib.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <system_error>

#include "simulator/maker/backup/backup.h"
#include "simulator/maker/calls/call_file.h"
#include "simulator/maker/calls/call_history.h"
#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/common/property_list_file.h"
#include "simulator/maker/common/read_file.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/contacts/call_records.h"
#include "simulator/maker/contacts/contact_files.h"
#include "simulator/maker/contacts/generated_book.h"
#include "simulator/maker/database/adopt.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/phone_number/phone_number.h"
#include "simulator/runtime/process/device_profiles.h"

namespace maker {
namespace {

namespace fs = std::filesystem;

// Folders above a place, made if they are missing, and removed in the end unless they are kept or are no longer empty.
class FoldersAbove {
  public:
    explicit FoldersAbove(const fs::path& place) {
        std::error_code error;
        fs::path folder = place.parent_path();
        while (folder.has_relative_path() && !fs::exists(fs::symlink_status(folder, error))) {
            made_.push_back(folder);
            folder = folder.parent_path();
        }
        fs::create_directories(place.parent_path(), error);
    }
    FoldersAbove(FoldersAbove&& other) noexcept : made_(std::exchange(other.made_, {})) {}
    FoldersAbove& operator=(FoldersAbove&&) = delete;
    ~FoldersAbove() {
        std::error_code error;
        for (const fs::path& folder : made_) fs::remove(folder, error);
    }

    void keep() { made_.clear(); }

  private:
    std::vector<fs::path> made_;  // the innermost first
};

// A directory beside the root's place, removed in the end unless it was moved there.
class Workshop {
  public:
    static Result<Workshop> beside(const fs::path& root) {
        FoldersAbove folders(root);
        std::string pattern = (root.parent_path() / ("." + root.filename().string() + ".XXXXXX")).string();
        if (!mkdtemp(pattern.data())) {
            return failure(root.parent_path().string() +
                           ": cannot be written: " + std::generic_category().message(errno));
        }
        std::error_code error;
        fs::permissions(pattern, fs::perms(0755), error);
        return Workshop(pattern, std::move(folders));
    }
    Workshop(Workshop&& other) noexcept : folders_(std::move(other.folders_)), path_(std::exchange(other.path_, {})) {}
    Workshop& operator=(Workshop&&) = delete;
    ~Workshop() {
        std::error_code error;
        if (!path_.empty()) fs::remove_all(path_, error);
    }

    const fs::path& path() const { return path_; }

    // Moves the finished root to its place; what stood there is put aside first and comes back if that fails.
    Status moveTo(const fs::path& root) {
        std::error_code error;
        fs::path aside = path_.string() + ".old";
        bool replaces = fs::exists(fs::symlink_status(root, error));
        error.clear();
        if (replaces) fs::rename(root, aside, error);
        if (error) return failure(root.string() + ": cannot be replaced: " + error.message());
        fs::rename(path_, root, error);
        if (error) {
            std::error_code ignored;
            if (replaces) fs::rename(aside, root, ignored);
            return failure(root.string() + ": cannot be made: " + error.message());
        }
        path_.clear();
        folders_.keep();
        fs::remove_all(aside, error);
        return {};
    }

  private:
    Workshop(fs::path path, FoldersAbove folders) : folders_(std::move(folders)), path_(std::move(path)) {}
    FoldersAbove folders_;  // outlives what is in them
    fs::path path_;
};

Status checkOptions(const RootOptions& options) {
    const int sources = !options.contacts.empty() + !options.addressBook.empty() + (options.contactsCount != 0) +
                        !options.backup.empty();
    if (sources > 1)
        return failure("give contacts as files, as a count, as a phone's database or as a backup: only one");
    if (!options.backup.empty() && !options.calls.empty())
        return failure("a backup has calls of its own: give no others");
    if (options.contactsCount < 0) return failure("a number of contacts cannot be negative");
    if (!options.images.empty() && options.addressBook.empty()) {
        return failure("a phone's images belong to its address book: give that, too");
    }
    if (!options.region.empty() && !phone_number::isRegion(options.region)) {
        return failure("\"" + options.region + "\" is no country: give two capital letters, such as US");
    }
    const bool isLanguage = std::all_of(options.language.begin(), options.language.end(),
                                        [](char c) { return c == '-' || std::isalpha(static_cast<unsigned char>(c)); });
    if (!isLanguage) return failure("\"" + options.language + "\" is no language: give one such as de or zh-Hans");
    return {};
}

Status checkPlace(const RootOptions& options, const fs::path& root) {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(root, error))) return {};
    if (isRoot(root)) {
        if (options.force) return {};
        return failure(root.string() + ": is a phone root already; --force replaces it");
    }
    if (fs::is_directory(root, error) && fs::is_empty(root, error)) return {};
    return failure(root.string() + ": exists and is not a phone root; it is left as it is");
}

// What the options say of it; `device` is what it is without them.
Status writeDeviceFile(const RootOptions& options, phone::Device device, const fs::path& root) {
    if (!options.device.empty()) {
        const std::optional<phone::Device> profile = phone::deviceFromProfile(options.device);
        if (!profile) {
            std::string known;
            for (const phone::DeviceProfile& each : phone::deviceProfiles()) known += "\n  " + std::string(each.id);
            return failure("there is no device profile \"" + options.device + "\"; there are:" + known);
        }
        const phone::Device before = std::exchange(device, *profile);
        device.region = before.region;
        device.language = before.language;
    }
    device.rightToLeft = options.rightToLeft;
    if (!options.region.empty()) device.region = options.region;
    if (!options.processor.empty()) device.processor = options.processor;
    if (!options.language.empty()) device.language = options.language;
    return phone::writeDevice(root, device);
}

// Whether a database of calls is a store: its tables' names stand in it, or in its log, as they are written.
bool holdsCallStore(const fs::path& file) {
    for (const char* suffix : {"", "-wal"}) {
        const Result<std::string> bytes = readFile(file.string() + suffix);
        if (bytes && bytes->find("ZCALLRECORD") != std::string::npos) return true;
    }
    return false;
}

// One root in the making.
struct Making {
    RootOptions options;
    const Progress& progress;
    fs::path root;
    double now;
    RootReport report;
    phone::Device device;
    // Those of a text file, and of a database that this phone keeps in another shape, are added as calls.
    std::vector<WrittenCall> calls;
    fs::path favorites;  // a property list that is taken over; empty: they are made from the calls

    fs::path workplace() const { return root / "private/var/tmp/backup"; }

    // A backup stands for the options that it gives.
    Status openBackup() {
        if (options.backup.empty()) return {};
        return readBackup(options.backup, workplace(), report.findings).map([&](Backup backup) {
            options.addressBook = std::move(backup.addressBook);
            options.images = options.addressBook.empty() ? fs::path() : std::move(backup.images);
            options.calls = std::move(backup.calls);
            options.noCalls = true;
            favorites = std::move(backup.favorites);
            device = std::move(backup.device);
        });
    }

    Status addFavorites() {
        if (favorites.empty()) return writeFavorites(root);
        const Result<PropertyList> list = readPropertyListFile(favorites);
        if (!list) return failure(list);
        std::error_code error;
        fs::copy_file(favorites, favoritesPath(root), fs::copy_options::overwrite_existing, error);
        if (error) return failure(favorites.string() + ": cannot be copied: " + error.message());
        fs::permissions(favoritesPath(root), fs::perms::owner_write, fs::perm_options::add, error);
        return {};
    }

    Status adopt() {
        const std::pair<const fs::path&, const DatabaseShape&> adopted[] = {{options.addressBook, addressBookShape()},
                                                                            {options.images, imagesShape()}};
        for (const auto& [file, shape] : adopted) {
            if (file.empty()) continue;
            Status copied = adoptDatabase(file, shape, root / shape.path, progress);
            if (!copied) return copied;
        }
        return {};
    }

    // Before anything that takes long: a mistake in a file should show at once.
    Status readCalls() {
        if (options.calls.empty() || !isCallFile(options.calls)) return {};
        return readCallFile(options.calls, {now, options.charset}, report.findings, progress)
            .map([&](std::vector<WrittenCall> written) { calls = std::move(written); });
    }

    Status adoptCalls() {
        if (options.calls.empty() || isCallFile(options.calls)) return {};
        const DatabaseShape& given = holdsCallStore(options.calls) ? callStoreShape() : callHistoryShape();
        const DatabaseShape& kept = callsShape(device);
        const fs::path copy = root / given.path;
        Status copied = adoptDatabase(options.calls, given, copy, progress);
        if (!copied || &given == &kept) return copied;
        return Database::openToRead(copy)
            .and_then([](const Database& database) { return readCallRecords(database); })
            .map([&](std::vector<Call> records) {
                for (Call& call : records) calls.push_back({std::move(call), false});
                std::error_code error;
                fs::remove(copy, error);
            });
    }

    Status addImported(AddressBookBuilder& builder) {
        Result<ImportedContacts> imported =
            importContacts(options.contacts, {options.charset, options.photos}, progress);
        if (!imported) return failure(imported);
        Findings& findings = report.findings;
        findings.insert(findings.end(), imported->findings.begin(), imported->findings.end());
        long done = 0;
        for (ImportedPerson& found : imported->persons) {
            Person& person = found.person;
            person.created = person.modified = std::floor(now - kAddressBookEpoch);
            Result<int> contact = builder.addPerson(person);
            if (!contact && !person.photo.empty()) {
                findings.push_back({FindingKind::photo, found.file, found.line,
                                    person.displayName() + " goes without photo: " + contact.error().message});
                person.photo.clear();
                contact = builder.addPerson(person);
            }
            if (!contact) return failure(contact);
            if (progress) progress("contacts", ++done, static_cast<long>(imported->persons.size()));
        }
        return {};
    }

    Status addContacts(AddressBookBuilder& builder) {
        if (!options.contacts.empty()) return addImported(builder);
        if (options.contactsCount == 0) return {};
        return addGeneratedContacts(builder, options.contactsCount, options.seed, std::floor(now - kAddressBookEpoch),
                                    progress)
            .map([](long /*pictures*/) {});
    }

    Status addCalls(AddressBookBuilder& builder) {
        constexpr auto forgetCount = [](long /*calls*/) {};
        if (options.calls.empty()) {
            if (options.noCalls) return {};
            return addGeneratedCalls(builder, root, now, options.seed).map(forgetCount);
        }
        return addWrittenCalls(builder, root, calls, device.region, progress).map(forgetCount);
    }

    Status count() {
        const std::tuple<const DatabaseShape&, const char*, long&> counts[] = {
            {addressBookShape(), "SELECT count(*) FROM ABPerson", report.contacts},
            {imagesShape(), "SELECT count(DISTINCT record_id) FROM ABThumbnailImage WHERE length(data)",
             report.pictures}};
        for (const auto& [shape, sql, result] : counts) {
            Result<Database> database = Database::openToRead(root / shape.path);
            if (!database) return failure(database);
            Statement statement = database->prepare(sql);
            if (!statement.step()) return statement.status();
            result = statement.integer(0);
        }
        return Database::openToRead(root / callsShape(device).path)
            .and_then([](const Database& database) { return countCallRecords(database); })
            .map([&](long found) { report.calls = found; });
    }

    // The calls' callers are looked up in what was written before them.
    Status addContactsAndCalls() {
        Result<AddressBookBuilder> builder = AddressBookBuilder::open(root);
        if (!builder) return failure(builder);
        return addContacts(*builder)
            .and_then([&] { return builder->finish(); })
            .and_then([&] {
                reportGoingOn(progress);
                return addCalls(*builder);
            })
            .and_then([&] { return builder->finish(); });
    }

    Status fill() {
        return makeFolders(root)
            .and_then([&] { return openBackup(); })
            .and_then([&] { return writeDeviceFile(options, device, root); })
            .and_then([&] { return phone::readDevice(root); })
            .map([&](phone::Device written) { device = std::move(written); })
            .and_then([&] { return installExtension(root, options.extension); })
            .and_then([&] { return readCalls(); })
            .and_then([&] { return adopt(); })
            .and_then([&] { return adoptCalls(); })
            .and_then([&] {
                reportGoingOn(progress);
                return addContactsAndCalls();
            })
            .and_then([&] { return addFavorites(); })
            .and_then([&] { return count(); })
            .map([&] {
                std::error_code error;
                fs::remove_all(workplace(), error);
                reportGoingOn(progress);
            });
    }
};

// Where the root is to be. A link to a root stays: what it leads to is replaced.
fs::path placeOf(const fs::path& root) {
    std::error_code error;
    fs::path place = fs::absolute(root, error).lexically_normal();
    if (!place.has_filename()) place = place.parent_path();
    return isRoot(place) ? fs::canonical(place, error) : place;
}

double present() { return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count(); }

}  // namespace

Result<RootReport> makeRoot(const RootOptions& options, const Progress& progress) {
    const fs::path root = placeOf(options.root);
    if (options.root.empty() || root == root.root_path()) return failure("a phone root needs a directory of its own");
    return checkOptions(options)
        .and_then([&] { return checkPlace(options, root); })
        .and_then([&] { return Workshop::beside(root); })
        .and_then([&](Workshop workshop) {
            Making making{options, progress, workshop.path(), options.now > 0 ? options.now : present(), {}, {},
                          {},      {}};
            return making.fill().and_then([&] { return workshop.moveTo(root); }).map([&] { return making.report; });
        });
}

bool isRoot(const std::filesystem::path& directory) {
    std::error_code error;
    return fs::is_regular_file(directory / "device.plist", error) && fs::is_directory(directory / "private/var", error);
}

}  // namespace maker
