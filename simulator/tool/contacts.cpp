// Contacts and favourites, one at a time.
#include <cstdio>
#include <filesystem>
#include <memory>

#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/database/schema.h"
#include "simulator/tool/book_change.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

struct Addition {
    std::string root, photo;
    std::optional<std::string> first, last, organization;
    std::vector<std::string> numbers, emails;
};

// "mobile:+1 555 0100", with the phone's own word for a label that it knows; a number alone is a mobile one.
maker::LabelledValue labelled(const std::string& text, const std::string& without) {
    constexpr std::pair<const char*, const char*> labels[] = {{"mobile", "_$!<Mobile>!$_"}, {"home", "_$!<Home>!$_"},
                                                              {"work", "_$!<Work>!$_"},     {"main", "_$!<Main>!$_"},
                                                              {"iphone", "iPhone"},         {"other", "_$!<Other>!$_"}};
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) return {text, without};
    const std::string word = text.substr(0, colon);
    for (const auto& [name, label] : labels)
        if (word == name) return {text.substr(colon + 1), label};
    return {text.substr(colon + 1), word};
}

void add(const Addition& addition) {
    requireRoot(addition.root);
    if (!addition.first && !addition.last && !addition.organization && addition.numbers.empty())
        throw Problem("nothing to add: give --first, --last, --organization or --number");
    const std::filesystem::path root = std::filesystem::canonical(addition.root);
    maker::Person person;
    person.first = addition.first;
    person.last = addition.last;
    person.organization = addition.organization;
    for (const std::string& number : addition.numbers) person.phones.push_back(labelled(number, "_$!<Mobile>!$_"));
    for (const std::string& email : addition.emails) person.emails.push_back(labelled(email, ""));
    person.photo = readPicture(addition.photo);
    requireSoundDatabases(root);
    person.created = person.modified = nextModificationDate(openBook(root));
    maker::AddressBookBuilder builder = maker::AddressBookBuilder::open(root).value();
    const int contact = builder.addPerson(person).value();
    phone::require(builder.finish());
    postBookChanged(root);
    std::printf("%s: %s is contact %d\n", addition.root.c_str(), person.displayName().c_str(), contact);
}

struct Favorite {
    std::string root, contact, number;
    bool remove = false;
};

std::string firstAddress(const maker::Database& book, int contact) {
    maker::Statement find = book.prepare(
        "SELECT value FROM ABMultiValue WHERE record_id = ? AND property IN (3, 4) ORDER BY property, identifier LIMIT "
        "1");
    return find.bind(1, contact).step() ? find.text(0) : std::string();
}

void change(const Favorite& favorite) {
    requireRoot(favorite.root);
    const std::filesystem::path root = std::filesystem::canonical(favorite.root);
    requireSoundDatabases(root);
    const maker::Database book = openBook(root);
    const int contact = findContact(book, favorite.contact);
    if (favorite.remove) {
        if (!maker::removeFavorite(root, contact).value())
            throw Problem("\"" + favorite.contact + "\" is no favourite of " + favorite.root);
        return;
    }
    const std::string address = favorite.number.empty() ? firstAddress(book, contact) : favorite.number;
    if (address.empty()) throw Problem("\"" + favorite.contact + "\" has no number: give one by --number");
    phone::require(maker::addFavorite(root, contact, address));
}

}  // namespace

void addAdd(CLI::App& app) {
    auto addition = std::make_shared<Addition>();
    CLI::App* verb = app.add_subcommand("add", "Add a contact, as another program on the phone would");
    verb->add_option("ROOT", addition->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("--first", addition->first, "Its first name");
    verb->add_option("--last", addition->last, "Its last name");
    verb->add_option("--organization", addition->organization, "Its organization");
    verb->add_option("--number", addition->numbers,
                     "A number, with its label before a colon or without (mobile); may be given several times")
        ->allow_extra_args(false);
    verb->add_option("--email", addition->emails, "An e-mail address, likewise")->allow_extra_args(false);
    verb->add_option("--photo", addition->photo, "Its picture")->type_name(kFile);
    verb->footer(
        "Labels: mobile, home, work, main, iphone, other, or any text.\n\n"
        "Examples:\n"
        "  phonesim add phone --first Ann --last Lee --number \"+1 212 555 0142\" --photo face.jpg\n"
        "  phonesim add phone --organization Works --number \"work:611\" --number \"Boat:612\"");
    verb->callback([addition] { add(*addition); });
}

void addFavorite(CLI::App& app) {
    auto favorite = std::make_shared<Favorite>();
    CLI::App* verb = app.add_subcommand("favorite", "Make a contact a favourite, or no longer one");
    verb->add_option("ROOT", favorite->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("CONTACT", favorite->contact, "The contact's ID, or its name: \"First Last\"")->required();
    auto* number = verb->add_option("--number", favorite->number, "The number to call (default: the contact's first)");
    verb->add_flag("--remove", favorite->remove, "Take it out of the favourites")->excludes(number);
    verb->footer(
        "Hosts read the favourites when they show them next.\n\n"
        "Examples:\n"
        "  phonesim favorite phone \"Ann Lee\"\n"
        "  phonesim favorite phone 12 --remove");
    verb->callback([favorite] { change(*favorite); });
}

}  // namespace tool
