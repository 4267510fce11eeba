#include "src/changes/address_book_changes.h"

#include "src/cache/image_cache.h"
#include "src/contacts/database.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSFileManager.h"
#include "src/platform/foundation/NSNotificationCenter.h"
#include "src/platform/foundation/NSString.h"
#include "src/settings/settings.h"
#include "src/util/log.h"
#include "src/util/process.h"

namespace zelka {
namespace {

constexpr ABRecordID kNoContact = -1;

// The contact modified last; of several, the one that SQLite finds first.
ABRecordID lastModifiedContact() {
    if (!NSFileManager::shared().exists(NSString::fromUTF8(kAddressBookDatabase))) return kNoContact;
    Database database(kAddressBookDatabase);
    if (!database.isOpen()) return kNoContact;
    Statement statement(
        database, "Select ROWID from ABPERSON where MODIFICATIONDATE=(select max(MODIFICATIONDATE) from ABPERSON)");
    if (!statement.isPrepared()) return kNoContact;
    if (statement.step() == SQLITE_DONE) {
        logParts("com.norvex.Zelka => Error: Unabe to get ROWID From ABPERSON");
        return kNoContact;
    }
    return statement.integer(0);
}

}  // namespace

void addressBookChangedCallBack(CFNotificationCenterRef, void*, CFStringRef name, const void*, CFDictionaryRef) {
    AutoreleasePool pool;
    if (!bridged(name).equals(NSString::fromUTF8(kAddressBookChangedNotification)) || !isServedProcess()) return;
    ABRecordID contactID = lastModifiedContact();
    if (contactID >= 1 && removeImageFromCache(contactID)) {
        NSNotificationCenter::shared().post(settingsChangedNotification());
    }
}

}  // namespace zelka
