#include "simulator/maker/contacts/address_book_builder.h"

#include <map>
#include <system_error>

#include "simulator/maker/contacts/call_records.h"
#include "simulator/maker/contacts/photo.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/phone_number/phone_number.h"
#include "simulator/runtime/process/device.h"

namespace maker {

struct AddressBookBuilder::Databases {
    Database book, images, calls;
    std::string region;
    std::map<std::string, int> labels;                                // label -> its row
    std::map<std::string, std::pair<int, std::optional<int>>> links;  // linkedAs -> first contact, link's row

    Status begin();
    Status commit();
    Result<int> labelRow(const std::string& label);
    Status addValues(int contact, int property, const std::vector<LabelledValue>& values);
    Status addAddress(int contact, const std::string& city);
    Status addLastFour(int value, const std::string& number);
    Result<int> newLink(int preferred);
    Status joinLink(int contact, int link, bool preferred);
    Status linkByName(int contact, const std::string& linkedAs);
    Status storeThumbnail(int contact, int format, std::optional<std::string_view> bytes);
    Status storeFullSize(int contact, std::string_view bytes, const Photo& photo);
    Status storePhoto(int contact, std::string_view encoded, const Photo& photo);
};

namespace {

Result<Database> openDatabase(const std::filesystem::path& root, const DatabaseShape& shape) {
    std::filesystem::path file = root / shape.path;
    std::error_code error;
    bool exists = std::filesystem::exists(file, error);
    if (!exists) std::filesystem::create_directories(file.parent_path(), error);
    Result<Database> database = Database::open(file, true);
    if (!database || exists) return database;
    // A root in the making is worth nothing until it is complete: no need to wait for the disk.
    const Status made =
        database->execute("PRAGMA synchronous=OFF").and_then([&] { return database->execute(shape.sql); });
    if (!made) return failure(made);
    return database;
}

Status requireRow(const Database& database, int contact) {
    if (database.changes() > 0) return {};
    return failure("there is no contact " + std::to_string(contact));
}

}  // namespace

Status AddressBookBuilder::Databases::begin() {
    for (Database* database : {&book, &images, &calls}) {
        Status begun = database->execute("BEGIN");
        if (!begun) return begun;
    }
    return {};
}

Status AddressBookBuilder::Databases::commit() {
    // Pictures first: who sees a new person, sees its picture.
    for (Database* database : {&images, &book, &calls}) {
        Status committed = database->execute("COMMIT");
        if (!committed) return committed;
    }
    return {};
}

Result<int> AddressBookBuilder::Databases::labelRow(const std::string& label) {
    auto known = labels.find(label);
    if (known != labels.end()) return known->second;
    Status added = book.prepare("INSERT OR IGNORE INTO ABMultiValueLabel (value) VALUES (?)")
                       .bind(1, std::string_view(label))
                       .run();
    if (!added) return failure(added);
    Statement find = book.prepare("SELECT ROWID FROM ABMultiValueLabel WHERE value = ?");
    if (!find.bind(1, std::string_view(label)).step()) return failure("label " + label + " was not stored");
    return labels[label] = find.integer(0);
}

Status AddressBookBuilder::Databases::addLastFour(int value, const std::string& number) {
    std::vector<std::string> digits = phone_number::lastFour(number, region);
    if (digits.empty()) return {};
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
            if (!label) return failure(label);
            insert.bind(4, *label);
        }
        Status added = insert.run();
        if (added && property == kPhoneProperty) added = addLastFour(book.lastRow(), value.value);
        if (!added) return added;
    }
    return {};
}

Status AddressBookBuilder::Databases::addAddress(int contact, const std::string& city) {
    if (city.empty()) return {};
    const Result<int> label = labelRow("_$!<Home>!$_");
    if (!label) return failure(label);
    Status added = book.prepare("INSERT INTO ABMultiValue (record_id, property, identifier, label) VALUES (?, ?, 0, ?)")
                       .bind(1, contact)
                       .bind(2, kAddressProperty)
                       .bind(3, *label)
                       .run();
    if (!added) return added;
    const int value = book.lastRow();
    return book.prepare("INSERT OR IGNORE INTO ABMultiValueEntryKey (value) VALUES ('City')").run().and_then([&] {
        return book
            .prepare(
                "INSERT INTO ABMultiValueEntry (parent_id, key, value) VALUES (?, (SELECT ROWID FROM "
                "ABMultiValueEntryKey WHERE value = 'City'), ?)")
            .bind(1, value)
            .bind(2, std::string_view(city))
            .run();
    });
}

Result<int> AddressBookBuilder::Databases::newLink(int preferred) {
    Status added =
        book.prepare("INSERT INTO ABPersonLink (PreferredImagePersonID, PreferredNamePersonID) VALUES (?1, ?1)")
            .bind(1, preferred)
            .run();
    return added.map([&] { return book.lastRow(); });
}

Status AddressBookBuilder::Databases::joinLink(int contact, int link, bool preferred) {
    Status joined = book.prepare("UPDATE ABPerson SET PersonLink = ?, IsPreferredName = ? WHERE ROWID = ?")
                        .bind(1, link)
                        .bind(2, preferred ? 1 : 0)
                        .bind(3, contact)
                        .run();
    return joined.and_then([&] { return requireRow(book, contact); });
}

Status AddressBookBuilder::Databases::linkByName(int contact, const std::string& linkedAs) {
    if (linkedAs.empty()) return {};
    auto [entry, isFirst] = links.try_emplace(linkedAs, contact, std::nullopt);
    if (isFirst) return {};
    auto& [first, link] = entry->second;
    if (!link) {
        Result<int> made = newLink(first);
        if (!made) return failure(made);
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
    return storeThumbnail(contact, kThumbnailFormat, photo.thumbnail).and_then([&] {
        return storeFullSize(contact, encoded, photo);
    });
}

AddressBookBuilder::AddressBookBuilder(std::unique_ptr<Databases> databases) : databases_(std::move(databases)) {}
AddressBookBuilder::AddressBookBuilder(AddressBookBuilder&&) noexcept = default;
AddressBookBuilder& AddressBookBuilder::operator=(AddressBookBuilder&&) noexcept = default;
AddressBookBuilder::~AddressBookBuilder() = default;

Result<AddressBookBuilder> AddressBookBuilder::open(const std::filesystem::path& root) {
    const Result<phone::Device> device = phone::readDevice(root);
    if (!device) return failure(device);
    Result<Database> book = openDatabase(root, addressBookShape());
    if (!book) return failure(book);
    Result<Database> images = openDatabase(root, imagesShape());
    if (!images) return failure(images);
    Result<Database> calls = openDatabase(root, callsShape(*device));
    if (!calls) return failure(calls);
    auto databases = std::unique_ptr<Databases>(
        new Databases{std::move(*book), std::move(*images), std::move(*calls), device->region, {}, {}});
    Status begun = databases->begin();
    if (!begun) return failure(begun);
    return AddressBookBuilder(std::move(databases));
}

Result<int> AddressBookBuilder::addPerson(const Person& person) {
    Photo photo;
    if (!person.photo.empty()) {
        Result<Photo> made = makePhoto(person.photo);
        if (!made) return failure(made);
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
    if (!added) return failure(added);
    int contact = databases_->book.lastRow();
    return databases_->addValues(contact, kPhoneProperty, person.phones)
        .and_then([&] { return databases_->addValues(contact, kEmailProperty, person.emails); })
        .and_then([&] { return databases_->addAddress(contact, person.city); })
        .and_then([&] { return databases_->linkByName(contact, person.linkedAs); })
        .and_then(
            [&] { return person.photo.empty() ? Status() : databases_->storePhoto(contact, person.photo, photo); })
        .map([&] { return contact; });
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
    return makePhoto(encoded).and_then(
        [&](const Photo& photo) { return databases_->storePhoto(contact, encoded, photo); });
}

Status AddressBookBuilder::removePhoto(int contact) {
    const Database& images = databases_->images;
    return images.prepare("DELETE FROM ABThumbnailImage WHERE record_id = ?").bind(1, contact).run().and_then([&] {
        return images.prepare("DELETE FROM ABFullSizeImage WHERE record_id = ?").bind(1, contact).run();
    });
}

Status AddressBookBuilder::link(const std::vector<int>& contacts) {
    if (contacts.size() < 2) return failure("a link needs at least two contacts");
    Result<int> row = databases_->newLink(contacts.front());
    if (!row) return failure(row);
    for (int contact : contacts) {
        Status joined = databases_->joinLink(contact, *row, contact == contacts.front());
        if (!joined) return joined;
    }
    return {};
}

Status AddressBookBuilder::setNames(int contact, const std::optional<std::string>& first,
                                    const std::optional<std::string>& last) {
    Status set = databases_->book.prepare("UPDATE ABPerson SET First = ?, Last = ? WHERE ROWID = ?")
                     .bind(1, first)
                     .bind(2, last)
                     .bind(3, contact)
                     .run();
    return set.and_then([&] { return requireRow(databases_->book, contact); });
}

Status AddressBookBuilder::setModificationDate(int contact, double seconds) {
    Status set = databases_->book.prepare("UPDATE ABPerson SET ModificationDate = ? WHERE ROWID = ?")
                     .bind(1, seconds)
                     .bind(2, contact)
                     .run();
    return set.and_then([&] { return requireRow(databases_->book, contact); });
}

Status AddressBookBuilder::removePerson(int contact) {
    const bool hasEntries =
        databases_->book.prepare("SELECT 1 FROM sqlite_master WHERE name = 'ABMultiValueEntry'").step();
    if (hasEntries) {
        Status removed = databases_->book
                             .prepare(
                                 "DELETE FROM ABMultiValueEntry WHERE parent_id IN "
                                 "(SELECT UID FROM ABMultiValue WHERE record_id = ?)")
                             .bind(1, contact)
                             .run();
        if (!removed) return removed;
    }
    constexpr const char* bookStatements[] = {
        "DELETE FROM ABPhoneLastFour WHERE multivalue_id IN (SELECT UID FROM ABMultiValue WHERE record_id = ?)",
        "DELETE FROM ABMultiValue WHERE record_id = ?", "DELETE FROM ABPerson WHERE ROWID = ?"};
    for (const char* sql : bookStatements) {
        Status removed = databases_->book.prepare(sql).bind(1, contact).run();
        if (!removed) return removed;
    }
    if (Status existed = requireRow(databases_->book, contact); !existed) return existed;
    return removePhoto(contact).and_then([&] { return forgetCaller(databases_->calls, contact); });
}

Result<int> AddressBookBuilder::addCall(const Call& call) {
    return addCallRecord(databases_->calls, call, databases_->region);
}

Status AddressBookBuilder::finish() {
    return databases_->commit().and_then([this] { return databases_->begin(); });
}

}  // namespace maker
