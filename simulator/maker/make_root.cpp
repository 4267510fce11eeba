#include "simulator/maker/make_root.h"

#include <stdlib.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <system_error>

#include "simulator/maker/calls/call_file.h"
#include "simulator/maker/calls/call_history.h"
#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/contacts/generated_book.h"
#include "simulator/maker/contacts/vcard_import.h"
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
    int sources = !options.contacts.empty() + !options.addressBook.empty() + (options.contactsCount != 0);
    if (sources > 1) return failure("give contacts as a vCard file, as a count or as a phone's database: only one");
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

Status writeDeviceFile(const RootOptions& options, const fs::path& root) {
    std::optional<phone::Device> device =
        options.device.empty() ? phone::Device{} : phone::deviceFromProfile(options.device);
    if (!device) {
        std::string known;
        for (const phone::DeviceProfile& profile : phone::deviceProfiles()) known += "\n  " + std::string(profile.id);
        return failure("there is no device profile \"" + options.device + "\"; there are:" + known);
    }
    device->rightToLeft = options.rightToLeft;
    if (!options.region.empty()) device->region = options.region;
    if (!options.processor.empty()) device->processor = options.processor;
    if (!options.language.empty()) device->language = options.language;
    return phone::writeDevice(root, *device);
}

// One root in the making.
struct Making {
    const RootOptions& options;
    const Progress& progress;
    fs::path root;
    double now;
    RootReport report;

    std::string region() const { return options.region.empty() ? phone::Device{}.region : options.region; }

    Status adopt() {
        const std::pair<const fs::path&, const DatabaseShape&> adopted[] = {
            {options.addressBook, addressBookShape()}, {options.images, imagesShape()}, {options.calls, callsShape()}};
        for (const auto& [file, shape] : adopted) {
            if (file.empty()) continue;
            if (&file == &options.calls && isCallFile(file)) continue;
            Status copied = adoptDatabase(file, shape, root / shape.path, progress);
            if (!copied) return copied;
        }
        return {};
    }

    Status addImported(AddressBookBuilder& builder) {
        Result<ImportedContacts> imported = importVCards(options.contacts, progress);
        if (!imported) return failure(imported);
        report.warnings = std::move(imported->warnings);
        long done = 0;
        for (Person& person : imported->persons) {
            person.created = person.modified = now - kAddressBookEpoch;
            Result<int> contact = builder.addPerson(person);
            if (!contact && !person.photo.empty()) {
                report.warnings.push_back(options.contacts.string() + ": " + person.displayName() +
                                          " goes without photo: " + contact.error().message);
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
        return addGeneratedContacts(builder, options.contactsCount, options.seed, now - kAddressBookEpoch, progress)
            .map([](long /*pictures*/) {});
    }

    Status addCalls(AddressBookBuilder& builder) {
        constexpr auto forgetCount = [](long /*calls*/) {};
        if (options.calls.empty()) {
            if (options.noCalls) return {};
            return addGeneratedCalls(builder, root, now, options.seed).map(forgetCount);
        }
        if (!isCallFile(options.calls)) return {};
        return readCallFile(options.calls, now, progress)
            .and_then([&](const std::vector<WrittenCall>& written) {
                return addWrittenCalls(builder, root, written, region(), progress);
            })
            .map(forgetCount);
    }

    Status count() {
        const std::tuple<const DatabaseShape&, const char*, long&> counts[] = {
            {addressBookShape(), "SELECT count(*) FROM ABPerson", report.contacts},
            {imagesShape(), "SELECT count(DISTINCT record_id) FROM ABThumbnailImage WHERE length(data)",
             report.pictures},
            {callsShape(), "SELECT count(*) FROM call", report.calls}};
        for (const auto& [shape, sql, result] : counts) {
            Result<Database> database = Database::openToRead(root / shape.path);
            if (!database) return failure(database);
            Statement statement = database->prepare(sql);
            if (!statement.step()) return statement.status();
            result = statement.integer(0);
        }
        return {};
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
            .and_then([&] { return writeDeviceFile(options, root); })
            .and_then([&] { return installExtension(root, options.extension); })
            .and_then([&] { return adopt(); })
            .and_then([&] {
                reportGoingOn(progress);
                return addContactsAndCalls();
            })
            .and_then([&] { return writeFavorites(root); })
            .and_then([&] { return count(); })
            .map([&] { reportGoingOn(progress); });
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
            Making making{options, progress, workshop.path(), options.now > 0 ? options.now : present(), {}};
            return making.fill().and_then([&] { return workshop.moveTo(root); }).map([&] { return making.report; });
        });
}

bool isRoot(const std::filesystem::path& directory) {
    std::error_code error;
    return fs::is_regular_file(directory / "device.plist", error) && fs::is_directory(directory / "private/var", error);
}

}  // namespace maker
