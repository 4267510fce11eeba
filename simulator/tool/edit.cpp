#include <filesystem>
#include <memory>

#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/tool/book_change.h"
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

void run(const Edit& edit) {
    requireRoot(edit.root);
    if (edit.photo.empty() && !edit.noPhoto && !edit.first && !edit.last && !edit.remove) {
        throw Problem("nothing to change: give --photo, --no-photo, --first, --last or --delete");
    }
    std::filesystem::path root = std::filesystem::canonical(edit.root);
    const std::string photo = readPicture(edit.photo);
    requireSoundDatabases(root);
    {
        maker::Database book = openBook(root);
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
    postBookChanged(root);
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
