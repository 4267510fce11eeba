// Any bytes in the place of one of the two databases, the other one being sound. The first byte says which.

#include <sqlite3.h>

#include <system_error>

#include "fuzz/phone/target.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/support/darwin.h"
#include "tests/support/zelkacb.h"

namespace {

constexpr const char* kAddressBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kImages = "/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";

struct SoundDatabases {
    std::string addressBook, images;
};

const SoundDatabases& soundDatabases() {
    static const SoundDatabases sound = [] {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(fuzz::root().path()).value();
        maker::Person person;
        person.first = "Ann";
        person.emails = {{"ann@example.com", ""}};
        (void)book.addPerson(person).value();
        if (!book.finish()) fuzz::fail("no address book");
        return SoundDatabases{fuzz::root().read(kAddressBook), fuzz::root().read(kImages)};
    }();
    return sound;
}

void replace(const char* database, const std::string& bytes) {
    std::error_code error;
    for (const char* companion : {"-journal", "-wal", "-shm"})
        std::filesystem::remove(fuzz::root().host(database) + companion, error);
    fuzz::root().write(database, bytes);
}

// Reads of one contact wait until the database can be read: only then they may be asked for.
bool isReadable(const char* path, const char* query) {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    const bool readable = sqlite3_open(path, &database) == SQLITE_OK &&
                          sqlite3_prepare_v2(database, query, -1, &statement, nullptr) == SQLITE_OK;
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return readable;
}

void readImages() {
    [Utils prepareImageCache];
    if (!isReadable(kImages, "SELECT data FROM ABThumbnailImage WHERE RECORD_ID=? AND FORMAT=0 AND DATA IS NOT NULL"))
        return;
    for (ABRecordID contact : {0, 1, 2, -1}) {
        UIImage* picture = [Utils getContactImageOnly:contact monogramText:@"A" newImage:YES];
        if (picture == nil) fuzz::fail("no picture of contact " + std::to_string(contact));
    }
}

void readAddressBook() {
    test::deliver("__ABDataBaseChangedByOtherProcessNotification");
    [Utils getContactID:@"ann@example.com"];
    [Utils removeContactIDFromCache:1];
    [Utils getContactImageDataFromAB:1];
    for (ABRecordID contact : {0, 1, 2, -1}) {
        [Utils monogramTextFromContactID:contact];
        if (!isReadable(kAddressBook, "Select FIRST, LAST from ABPERSON where ROWID=1")) continue;
        if ([[Utils monogramTextFromAB:contact] length] > 2) fuzz::fail("initials of more than two characters");
    }
}

}  // namespace

void fuzz::databases(Bytes input) {
    const SoundDatabases& sound = soundDatabases();
    if (input.empty()) return;
    const bool images = input.front() % 2 == 0;
    const std::string bytes = text(input.subspan(1));
    replace(kImages, images ? bytes : sound.images);
    replace(kAddressBook, images ? sound.addressBook : bytes);
    [Utils removeAvatarsFromCache];
    images ? readImages() : readAddressBook();
}
