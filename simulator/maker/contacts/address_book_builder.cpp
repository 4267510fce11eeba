#include "simulator/maker/contacts/address_book_builder.h"

#include <map>
#include <system_error>

#include "simulator/maker/contacts/photo.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/phone_number/phone_number.h"
#include "simulator/runtime/process/device.h"

namespace phone {

struct AddressBookBuilder::Databases {
    Database book, images, calls;
    std::string region;
    std::map<std::string, int> labels;                                // label -> its row
    std::map<std::string, std::pair<int, std::optional<int>>> links;  // linkedAs -> first contact, link's row

    Status begin();
    Status commit();
    Result<int> labelRow(const std::string& label);
    Status addValues(int contact, int property, const std::vector<LabelledValue>& values);
    Status addLastFour(int value, const std::string& number);
    Result<int> newLink(int preferred);
    Status joinLink(int contact, int link, bool preferred);
    Status linkByName(int contact, const std::string& linkedAs);
    Status storeThumbnail(int contact, int format, std::optional<std::string_view> bytes);
    Status storeFullSize(int contact, std::string_view bytes, const Photo& photo);
    Status storePhoto(int contact, std::string_view encoded, const Photo& photo);
};

namespace {

// Runs the statements' results in order: the first failure is the answer.
Status both(const Status& first, const Status& second) { return first ? second : first; }

Result<Database> openDatabase(const std::filesystem::path& root, const DatabaseShape& shape) {
    std::filesystem::path file = root / shape.path;
    std::error_code error;
    bool exists = std::filesystem::exists(file, error);
    if (!exists) std::filesystem::create_directories(file.parent_path(), error);
    Result<Database> database = Database::open(file, true);
    if (!database || exists) return database;
    // A root in the making is worth nothing until it is complete: no need to wait for the disk.
    Status made = both(database->execute("PRAGMA synchronous=OFF"), database->execute(shape.sql));
    if (!made) return made.failure();
    return database;
}

Status requireRow(const Database& database, int contact) {
    if (database.changes() > 0) return Done{};
    return Failure{"there is no contact " + std::to_string(contact)};
}

}  // namespace

Status AddressBookBuilder::Databases::begin() {
    for (Database* database : {&book, &images, &calls}) {
        Status begun = database->execute("BEGIN");
        if (!begun) return begun;
    }
    return Done{};
}

Status AddressBookBuilder::Databases::commit() {
    // Pictures first: who sees a new person, sees its picture.
    for (Database* database : {&images, &book, &calls}) {
        Status committed = database->execute("COMMIT");
        if (!committed) return committed;
    }
    return Done{};
}

Result<int> AddressBookBuilder::Databases::labelRow(const std::string& label) {
    auto known = labels.find(label);
    if (known != labels.end()) return known->second;
    Status added = book.prepare("INSERT OR IGNORE INTO ABMultiValueLabel (value) VALUES (?)")
                       .bind(1, std::string_view(label))
                       .run();
    if (!added) return added.failure();
    Statement find = book.prepare("SELECT ROWID FROM ABMultiValueLabel WHERE value = ?");
    if (!find.bind(1, std::string_view(label)).step()) return Failure{"label " + label + " was not stored"};
    return labels[label] = find.integer(0);
}

Status AddressBookBuilder::Databases::addLastFour(int value, const std::string& number) {
    std::vector<std::string> digits = phone_number::lastFour(number, region);
    if (digits.empty()) return Done{};
    return book.prepare("INSERT INTO ABPhoneLastFour (multivalue_id, value) VALUES (?, ?)")
        .bind(1, value)
        .bind(2, std::string_view(digits.front()))
        .run();
}

Status AddressBookBuilder::Databases::addValues(int contact, int property, const std::vector<LabelledValue>& values) {
    int identifier = 0;
    for (const LabelledValue& value : values) {
        Statement insert = book.prepare(
            "INSERT INTO ABMultiValue (record_id, property, identifier, label, value) VALUES (?, ?, ?, ?, ?)");
        insert.bind(1, contact).bind(2, property).bind(3, identifier++).bind(5, std::string_view(value.value));
        if (!value.label.empty()) {
            Result<int> label = labelRow(value.label);
            if (!label) return label.failure();
            insert.bind(4, *label);
        }
        Status added = insert.run();
        if (added && property == kPhoneProperty) added = addLastFour(book.lastRow(), value.value);
        if (!added) return added;
    }
    return Done{};
}

Result<int> AddressBookBuilder::Databases::newLink(int preferred) {
    Status added =
        book.prepare("INSERT INTO ABPersonLink (PreferredImagePersonID, PreferredNamePersonID) VALUES (?1, ?1)")
            .bind(1, preferred)
            .run();
    if (!added) return added.failure();
    return book.lastRow();
}

Status AddressBookBuilder::Databases::joinLink(int contact, int link, bool preferred) {
    Status joined = book.prepare("UPDATE ABPerson SET PersonLink = ?, IsPreferredName = ? WHERE ROWID = ?")
                        .bind(1, link)
                        .bind(2, preferred ? 1 : 0)
                        .bind(3, contact)
                        .run();
    return joined ? requireRow(book, contact) : joined;
}

Status AddressBookBuilder::Databases::linkByName(int contact, const std::string& linkedAs) {
    if (linkedAs.empty()) return Done{};
    auto [entry, isFirst] = links.try_emplace(linkedAs, contact, std::nullopt);
    if (isFirst) return Done{};
    auto& [first, link] = entry->second;
    if (!link) {
        Result<int> made = newLink(first);
        if (!made) return made.failure();
        link = *made;
        Status joined = joinLink(first, *link, true);
        if (!joined) return joined;
    }
    return joinLink(contact, *link, false);
}

Status AddressBookBuilder::Databases::storeThumbnail(int contact, int format, std::optional<std::string_view> bytes) {
    Statement insert = images.prepare(
        "INSERT OR REPLACE INTO ABThumbnailImage (record_id, format, derived_from_format, data) VALUES (?, ?, 2, ?)");
    insert.bind(1, contact).bind(2, format);
    if (bytes) insert.bindBytes(3, *bytes);
    return insert.run();
}

Status AddressBookBuilder::Databases::storeFullSize(int contact, std::string_view bytes, const Photo& photo) {
    return images
        .prepare(
            "INSERT OR REPLACE INTO ABFullSizeImage (record_id, crop_x, crop_y, crop_width, data) "
            "VALUES (?, ?, ?, ?, ?)")
        .bind(1, contact)
        .bind(2, photo.cropX)
        .bind(3, photo.cropY)
        .bind(4, photo.cropWidth)
        .bindBytes(5, bytes)
        .run();
}

Status AddressBookBuilder::Databases::storePhoto(int contact, std::string_view encoded, const Photo& photo) {
    return both(storeThumbnail(contact, kThumbnailFormat, photo.thumbnail), storeFullSize(contact, encoded, photo));
}

AddressBookBuilder::AddressBookBuilder(std::unique_ptr<Databases> databases) : databases_(std::move(databases)) {}
AddressBookBuilder::AddressBookBuilder(AddressBookBuilder&&) noexcept = default;
AddressBookBuilder& AddressBookBuilder::operator=(AddressBookBuilder&&) noexcept = default;
AddressBookBuilder::~AddressBookBuilder() = default;

Result<AddressBookBuilder> AddressBookBuilder::open(const std::filesystem::path& root) {
    Device device;
    std::string problem = readDevice(root, device);
    if (!problem.empty()) return Failure{problem};
    Result<Database> book = openDatabase(root, addressBookShape());
    if (!book) return book.failure();
    Result<Database> images = openDatabase(root, imagesShape());
    if (!images) return images.failure();
    Result<Database> calls = openDatabase(root, callsShape());
    if (!calls) return calls.failure();
    auto databases = std::unique_ptr<Databases>(
        new Databases{std::move(*book), std::move(*images), std::move(*calls), device.region, {}, {}});
    Status begun = databases->begin();
    if (!begun) return begun.failure();
    return AddressBookBuilder(std::move(databases));
}

Result<int> AddressBookBuilder::addPerson(const Person& person) {
    Photo photo;
    if (!person.photo.empty()) {
        Result<Photo> made = makePhoto(person.photo);
        if (!made) return made.failure();
        photo = std::move(*made);
    }
    Status added = databases_->book
                       .prepare(
                           "INSERT INTO ABPerson (First, Last, Middle, Prefix, Suffix, Nickname, Organization, "
                           "Kind, CreationDate, ModificationDate, StoreID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0)")
                       .bind(1, person.first)
                       .bind(2, person.last)
                       .bind(3, person.middle)
                       .bind(4, person.prefix)
                       .bind(5, person.suffix)
                       .bind(6, person.nickname)
                       .bind(7, person.organization)
                       .bind(8, person.isCompany() ? 1 : 0)
                       .bind(9, person.created)
                       .bind(10, person.modified)
                       .run();
    if (!added) return added.failure();
    int contact = databases_->book.lastRow();
    added = databases_->addValues(contact, kPhoneProperty, person.phones);
    if (added) added = databases_->addValues(contact, kEmailProperty, person.emails);
    if (added) added = databases_->linkByName(contact, person.linkedAs);
    if (added && !person.photo.empty()) added = databases_->storePhoto(contact, person.photo, photo);
    if (!added) return added.failure();
    return contact;
}

Status AddressBookBuilder::setThumbnail(int contact, std::string_view bytes, int format) {
    return databases_->storeThumbnail(contact, format, bytes);
}

Status AddressBookBuilder::setNullThumbnail(int contact, int format) {
    return databases_->storeThumbnail(contact, format, std::nullopt);
}

Status AddressBookBuilder::setFullSizeImage(int contact, std::string_view bytes) {
    return databases_->storeFullSize(contact, bytes, Photo{});
}

Status AddressBookBuilder::setPhoto(int contact, std::string_view encoded) {
    Result<Photo> photo = makePhoto(encoded);
    return photo ? databases_->storePhoto(contact, encoded, *photo) : Status(photo.failure());
}

Status AddressBookBuilder::removePhoto(int contact) {
    const Database& images = databases_->images;
    return both(images.prepare("DELETE FROM ABThumbnailImage WHERE record_id = ?").bind(1, contact).run(),
                images.prepare("DELETE FROM ABFullSizeImage WHERE record_id = ?").bind(1, contact).run());
}

Status AddressBookBuilder::link(const std::vector<int>& contacts) {
    if (contacts.size() < 2) return Failure{"a link needs at least two contacts"};
    Result<int> row = databases_->newLink(contacts.front());
    if (!row) return row.failure();
    for (int contact : contacts) {
        Status joined = databases_->joinLink(contact, *row, contact == contacts.front());
        if (!joined) return joined;
    }
    return Done{};
}

Status AddressBookBuilder::setNames(int contact, const std::optional<std::string>& first,
                                    const std::optional<std::string>& last) {
    Status set = databases_->book.prepare("UPDATE ABPerson SET First = ?, Last = ? WHERE ROWID = ?")
                     .bind(1, first)
                     .bind(2, last)
                     .bind(3, contact)
                     .run();
    return set ? requireRow(databases_->book, contact) : set;
}

Status AddressBookBuilder::setModificationDate(int contact, double seconds) {
    Status set = databases_->book.prepare("UPDATE ABPerson SET ModificationDate = ? WHERE ROWID = ?")
                     .bind(1, seconds)
                     .bind(2, contact)
                     .run();
    return set ? requireRow(databases_->book, contact) : set;
}

Status AddressBookBuilder::removePerson(int contact) {
    constexpr const char* bookStatements[] = {
        "DELETE FROM ABPhoneLastFour WHERE multivalue_id IN (SELECT UID FROM ABMultiValue WHERE record_id = ?)",
        "DELETE FROM ABMultiValue WHERE record_id = ?", "DELETE FROM ABPerson WHERE ROWID = ?"};
    for (const char* sql : bookStatements) {
        Status removed = databases_->book.prepare(sql).bind(1, contact).run();
        if (!removed) return removed;
    }
    Status existed = requireRow(databases_->book, contact);
    if (!existed) return existed;
    return both(removePhoto(contact),
                databases_->calls.prepare("UPDATE call SET id = -1 WHERE id = ?").bind(1, contact).run());
}

Result<int> AddressBookBuilder::addCall(const Call& call) {
    Statement insert = databases_->calls.prepare(
        "INSERT INTO call (address, date, duration, flags, id, name, country_code, read) VALUES (?, ?, ?, ?, ?, ?, ?, "
        "1)");
    insert.bind(1, std::string_view(call.address))
        .bind(2, call.date)
        .bind(3, call.kind == CallKind::missed ? 0 : call.duration)
        .bind(4, call.kind == CallKind::outgoing ? kOutgoingCall : kIncomingCall)
        .bind(5, call.contact);
    if (!call.name.empty()) insert.bind(6, std::string_view(call.name));
    if (!call.countryCode.empty()) insert.bind(7, std::string_view(call.countryCode));
    Status added = insert.run();
    if (!added) return added.failure();
    return databases_->calls.lastRow();
}

Status AddressBookBuilder::finish() { return both(databases_->commit(), databases_->begin()); }

}  // namespace phone
