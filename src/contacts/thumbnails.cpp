#include "src/contacts/thumbnails.h"

#include "src/contacts/waiting_read.h"
#include "src/platform/foundation/NSArray.h"
#include "src/platform/owned.h"
#include "src/util/device.h"

namespace zelka {
namespace {

constexpr const char* kThumbnailReader = "NSData *getContactImageFromABForID(int, int)";

// Reads the bytes, nil when there are none. False, with a line in the log, when the database cannot be read now.
bool readThumbnail(ABRecordID contactID, NSData& thumbnail) {
    Database database(kAddressBookImageDatabase);
    if (!database.isOpen()) {
        logOpenError(LogSite(kThumbnailReader), database);
        return false;
    }
    Statement statement(database,
                        "SELECT data FROM ABThumbnailImage WHERE RECORD_ID=? AND FORMAT=0 AND DATA IS NOT NULL");
    if (!statement.isPrepared()) {
        logPrepareError(LogSite(kThumbnailReader), database);
        return false;
    }
    statement.bindInteger(1, contactID);
    if (statement.step() != SQLITE_ROW) return true;
    auto bytes = statement.bytes(0);
    if (!bytes.empty()) thumbnail = NSData::copyOf(bytes.data(), bytes.size());
    return true;
}

}  // namespace

NSData getContactImageFromABForID(ABRecordID contactID, std::int32_t) {
    NSData thumbnail;
    while (!readThumbnail(contactID, thumbnail)) waitForDatabase();
    return thumbnail;
}

NSData photoOfContact(ABRecordID contactID) {
    NSData photo = getContactImageFromABForID(contactID, 0);
    if (!photo && isIOS_7()) photo = getContactImageDataFromAB(contactID);
    return photo;
}

NSData getContactImageDataFromAB(ABRecordID contactID) {
    logInformation(LogSite("+[ZelkaCBUtils getContactImageDataFromAB:]"), "Getting image for ", contactID);
    // Kept for the life of the process, one for each lookup (docs/compatibility.md).
    ABAddressBookRef book = ABAddressBookCreate();
    ABRecordRef person = ABAddressBookGetPersonWithRecordID(book, contactID);
    if (person == nullptr || !isIOS_7()) return {};
    auto linked = adopt(NSArray{{ABPersonCopyArrayOfAllLinkedPeople(person)}});
    NSUInteger count = linked->count();
    if (count < 2) return {};
    for (NSUInteger i = 0; i < count; ++i) {
        ABRecordID linkedID = ABRecordGetRecordID(linked->at(i).object);
        if (linkedID == contactID) continue;
        if (NSData thumbnail = getContactImageFromABForID(linkedID, 0)) return thumbnail;
    }
    return {};
}

}  // namespace zelka
