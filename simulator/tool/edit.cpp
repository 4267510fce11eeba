#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <memory>

#include "simulator/maker/common/read_file.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/contacts/photo.h"
#include "simulator/maker/database/check_database.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/runtime/notifications/notification_log.h"
#include "simulator/runtime/process/device.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

struct Edit {
    std::string root, contact, photo;
    std::optional<std::string> first, last;
    bool noPhoto = false;
    bool remove = false;
};

int findContact(const maker::Database& book, const std::string& wanted) {
    maker::Statement find = book.prepare(
        "SELECT ROWID FROM ABPerson WHERE CAST(ROWID AS TEXT) = ?1 OR "
        "trim(coalesce(First, '') || ' ' || coalesce(Last, '')) = ?1 OR Organization = ?1 ORDER BY ROWID");
    find.bind(1, std::string_view(wanted));
    std::vector<int> found;
    while (find.step()) found.push_back(find.integer(0));
    phone::require(find.status());
    if (found.size() == 1) return found.front();
    if (found.empty()) throw Problem("there is no contact \"" + wanted + "\"");
    std::string identifiers;
    for (int identifier : found) identifiers += " " + std::to_string(identifier);
    throw Problem("several contacts are \"" + wanted + "\": give one of the IDs" + identifiers);
}

// Later than every other contact's: the latest date is how other processes find out who changed.
double nextModificationDate(const maker::Database& book) {
    maker::Statement latest = book.prepare("SELECT coalesce(max(ModificationDate), 0) FROM ABPerson");
    double after = latest.step() ? latest.integer(0) + 1 : 0;
    phone::require(latest.status());
    std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
    return std::max(after, std::floor(now.count() - maker::kAddressBookEpoch));
}

// Names that are not given stay as they are.
void rename(maker::AddressBookBuilder& builder, const maker::Database& book, int contact, const Edit& edit) {
    maker::Statement names =
        book.prepare("SELECT First, First IS NULL, Last, Last IS NULL FROM ABPerson WHERE ROWID = ?");
    if (!names.bind(1, contact).step()) phone::require(names.status());
    auto old = [&names](int column) {
        return names.integer(column + 1) ? std::nullopt : std::optional<std::string>(names.text(column));
    };
    phone::require(builder.setNames(contact, edit.first ? edit.first : old(0), edit.last ? edit.last : old(2)));
}

// Before anything is written: a change that fails half-way would leave the three out of step, and a database that is
// missing would be made anew, empty, without anybody noticing what was lost.
void requireSoundDatabases(const std::filesystem::path& root) {
    const phone::Device device = phone::readDevice(root).value();
    for (const maker::DatabaseShape* shape : maker::databaseShapes(device)) {
        phone::require(maker::checkDatabase(root / shape->path, *shape));
    }
}

// The bytes of a file that holds a picture; nothing without a file's name.
std::string readPicture(const std::string& file) {
    if (file.empty()) return {};
    std::string bytes = maker::readFile(file).value();
    phone::Result<maker::Photo> photo = maker::makePhoto(bytes);
    if (!photo) throw Problem(file + ": " + photo.error().message);
    return bytes;
}

void run(const Edit& edit) {
    requireRoot(edit.root);
    if (edit.photo.empty() && !edit.noPhoto && !edit.first && !edit.last && !edit.remove) {
        throw Problem("nothing to change: give --photo, --no-photo, --first, --last or --delete");
    }
    std::filesystem::path root = std::filesystem::canonical(edit.root);
    const std::string photo = readPicture(edit.photo);
    requireSoundDatabases(root);
    {
        maker::Database book = maker::Database::openToRead(root / maker::addressBookShape().path).value();
        int contact = findContact(book, edit.contact);
        double modified = nextModificationDate(book);
        maker::AddressBookBuilder builder = maker::AddressBookBuilder::open(root).value();
        if (edit.remove) phone::require(builder.removePerson(contact));
        if (edit.noPhoto) phone::require(builder.removePhoto(contact));
        if (!edit.photo.empty()) phone::require(builder.setPhoto(contact, photo));
        if (edit.first || edit.last) rename(builder, book, contact, edit);
        if (!edit.remove) phone::require(builder.setModificationDate(contact, modified));
        phone::require(builder.finish());
    }
    phone::require(phone::postNotification(root, "__ABDataBaseChangedByOtherProcessNotification"));
}

}  // namespace

void addEdit(CLI::App& app) {
    auto edit = std::make_shared<Edit>();
    CLI::App* verb = app.add_subcommand("edit", "Change a contact, as another program on the phone would");
    verb->add_option("ROOT", edit->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("CONTACT", edit->contact, "The contact's ID, or its name: \"First Last\"")->required();
    auto* photo = verb->add_option("--photo", edit->photo, "Give it this picture")->type_name(kFile);
    auto* noPhoto = verb->add_flag("--no-photo", edit->noPhoto, "Take its picture away");
    auto* first = verb->add_option("--first", edit->first, "Its new first name");
    auto* last = verb->add_option("--last", edit->last, "Its new last name");
    auto* remove = verb->add_flag("--delete", edit->remove, "Remove it from the address book");
    photo->excludes(noPhoto);
    remove->excludes(photo)->excludes(noPhoto)->excludes(first)->excludes(last);
    verb->footer(
        "Examples:\n"
        "  phonesim edit phone 12 --photo face.jpg\n"
        "  phonesim edit phone \"Ann Lee\" --first Anne\n"
        "  phonesim edit phone 12 --delete");
    verb->callback([edit] { run(*edit); });
}

}  // namespace tool
