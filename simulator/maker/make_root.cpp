#include "simulator/maker/make_root.h"

#include <stdlib.h>

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
#include "simulator/maker/install/install.h"
#include "simulator/phone_number/phone_number.h"
#include "simulator/runtime/process/device_profiles.h"

namespace phone {
namespace {

namespace fs = std::filesystem;

// Folders above a place, made if they are missing; gone again unless they are kept or something came to be in them.
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

// A directory beside the root's place that is gone again unless it was moved there.
class Workshop {
  public:
    static Result<Workshop> beside(const fs::path& root) {
        FoldersAbove folders(root);
        std::string pattern = (root.parent_path() / ("." + root.filename().string() + ".XXXXXX")).string();
        if (!mkdtemp(pattern.data())) {
            return Failure{root.parent_path().string() +
                           ": cannot be written: " + std::generic_category().message(errno)};
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
        if (error) return Failure{root.string() + ": cannot be replaced: " + error.message()};
        fs::rename(path_, root, error);
        if (error) {
            std::error_code ignored;
            if (replaces) fs::rename(aside, root, ignored);
            return Failure{root.string() + ": cannot be made: " + error.message()};
        }
        path_.clear();
        folders_.keep();
        fs::remove_all(aside, error);
        return Done{};
    }

  private:
    Workshop(fs::path path, FoldersAbove folders) : folders_(std::move(folders)), path_(std::move(path)) {}
    FoldersAbove folders_;  // outlives what is in them
    fs::path path_;
};

Status checkOptions(const RootOptions& options) {
    int sources = !options.contacts.empty() + !options.addressBook.empty() + (options.contactsCount != 0);
    if (sources > 1) return Failure{"give contacts as a vCard file, as a count or as a phone's database: only one"};
    if (options.contactsCount < 0) return Failure{"a number of contacts cannot be negative"};
    if (!options.images.empty() && options.addressBook.empty()) {
        return Failure{"a phone's images belong to its address book: give that, too"};
    }
    if (!options.region.empty() && !phone_number::isRegion(options.region)) {
        return Failure{"\"" + options.region + "\" is no country: give two capital letters, such as US"};
    }
    return Done{};
}

Status checkPlace(const RootOptions& options, const fs::path& root) {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(root, error))) return Done{};
    if (isRoot(root)) {
        if (options.force) return Done{};
        return Failure{root.string() + ": is a phone root already; --force replaces it"};
    }
    if (fs::is_directory(root, error) && fs::is_empty(root, error)) return Done{};
    return Failure{root.string() + ": exists and is not a phone root; it is left as it is"};
}

Status writeDeviceFile(const RootOptions& options, const fs::path& root) {
    std::optional<Device> device = options.device.empty() ? Device{} : deviceFromProfile(options.device);
    if (!device) {
        std::string known;
        for (const DeviceProfile& profile : deviceProfiles()) known += "\n  " + std::string(profile.id);
        return Failure{"there is no device profile \"" + options.device + "\"; there are:" + known};
    }
    device->rightToLeft = options.rightToLeft;
    if (!options.region.empty()) device->region = options.region;
    std::string problem = writeDevice(root, *device);
    return problem.empty() ? Status(Done{}) : Status(Failure{problem});
}

// One root in the making.
struct Making {
    const RootOptions& options;
    const Progress& progress;
    fs::path root;
    double now;
    RootReport report;

    std::string region() const { return options.region.empty() ? Device{}.region : options.region; }

    Status adopt() {
        const std::pair<const fs::path&, const DatabaseShape&> adopted[] = {
            {options.addressBook, addressBookShape()}, {options.images, imagesShape()}, {options.calls, callsShape()}};
        for (const auto& [file, shape] : adopted) {
            if (file.empty()) continue;
            if (&file == &options.calls && isCallFile(file)) continue;
            Status copied = adoptDatabase(file, shape, root / shape.path, progress);
            if (!copied) return copied;
        }
        return Done{};
    }

    Status addImported(AddressBookBuilder& builder) {
        Result<ImportedContacts> imported = importVCards(options.contacts, progress);
        if (!imported) return imported.failure();
        report.warnings = std::move(imported->warnings);
        long done = 0;
        for (Person& person : imported->persons) {
            person.created = person.modified = now - kAddressBookEpoch;
            Result<int> contact = builder.addPerson(person);
            if (!contact && !person.photo.empty()) {
                report.warnings.push_back(options.contacts.string() + ": " + person.displayName() +
                                          " goes without photo: " + contact.text());
                person.photo.clear();
                contact = builder.addPerson(person);
            }
            if (!contact) return contact.failure();
            if (progress) progress("contacts", ++done, static_cast<long>(imported->persons.size()));
        }
        return Done{};
    }

    Status addContacts(AddressBookBuilder& builder) {
        if (!options.contacts.empty()) return addImported(builder);
        if (options.contactsCount == 0) return Done{};
        Result<long> pictures =
            addGeneratedContacts(builder, options.contactsCount, options.seed, now - kAddressBookEpoch, progress);
        return pictures ? Status(Done{}) : Status(pictures.failure());
    }

    Status addCalls(AddressBookBuilder& builder) {
        Result<long> added = 0L;
        if (options.calls.empty()) {
            if (!options.noCalls) added = addGeneratedCalls(builder, root, now, options.seed);
        } else if (isCallFile(options.calls)) {
            Result<std::vector<WrittenCall>> written = readCallFile(options.calls, now, progress);
            if (!written) return written.failure();
            added = addWrittenCalls(builder, root, *written, region(), progress);
        }
        return added ? Status(Done{}) : Status(added.failure());
    }

    Status count() {
        const std::tuple<const DatabaseShape&, const char*, long&> counts[] = {
            {addressBookShape(), "SELECT count(*) FROM ABPerson", report.contacts},
            {imagesShape(), "SELECT count(DISTINCT record_id) FROM ABThumbnailImage WHERE length(data)",
             report.pictures},
            {callsShape(), "SELECT count(*) FROM call", report.calls}};
        for (const auto& [shape, sql, result] : counts) {
            Result<Database> database = Database::openToRead(root / shape.path);
            if (!database) return database.failure();
            Statement statement = database->prepare(sql);
            if (!statement.step()) return statement.status();
            result = statement.integer(0);
        }
        return Done{};
    }

    Status fill() {
        Status status = makeFolders(root);
        if (status) status = writeDeviceFile(options, root);
        if (status) status = installExtension(root, options);
        if (status) status = adopt();
        if (!status) return status;
        tellGoingOn(progress);
        Result<AddressBookBuilder> builder = AddressBookBuilder::open(root);
        if (!builder) return builder.failure();
        status = addContacts(*builder);
        // The calls' callers are looked up in what was written.
        if (status) status = builder->finish();
        tellGoingOn(progress);
        if (status) status = addCalls(*builder);
        if (status) status = builder->finish();
        if (status) status = writeFavorites(root);
        if (status) status = count();
        tellGoingOn(progress);
        return status;
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
    if (options.root.empty() || root == root.root_path()) return Failure{"a phone root needs a directory of its own"};
    Status possible = checkOptions(options);
    if (possible) possible = checkPlace(options, root);
    if (!possible) return possible.failure();
    Result<Workshop> workshop = Workshop::beside(root);
    if (!workshop) return workshop.failure();
    Making making{options, progress, workshop->path(), options.now > 0 ? options.now : present(), {}};
    Status made = making.fill();
    if (made) made = workshop->moveTo(root);
    if (!made) return made.failure();
    return making.report;
}

bool isRoot(const std::filesystem::path& directory) {
    std::error_code error;
    return fs::is_regular_file(directory / "device.plist", error) && fs::is_directory(directory / "private/var", error);
}

}  // namespace phone
