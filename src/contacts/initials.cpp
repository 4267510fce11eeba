#include "src/contacts/initials.h"

#include <cstdio>

#include "src/contacts/waiting_read.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSFileManager.h"

namespace zelka {
namespace {

constexpr const char* kDatabaseReader = "+[ZelkaCBUtils getMonogramTextFromAB:currentReadCount:]";
constexpr std::int32_t kMaxReadCount = 4;

NSString initialsOf(NSString first, NSString last) {
    if (first.length() > 0 && last.length() > 0) return monogramTextFromName(joinText(first, " ", last));
    if (first.length() > 0) return monogramTextFromName(first);
    return last.length() > 0 ? monogramTextFromName(last) : NSString{};
}

// With a pool of its own, because a waiting read asks every second.
bool addressBookExists() {
    AutoreleasePool pool;
    return NSFileManager::shared().exists(NSString::fromUTF8(kAddressBookDatabase));
}

struct Names {
    NSString first, last;
};

// Reads both names, nil where there is none. False, with a line in the log, when the database cannot be read now.
bool readNames(ABRecordID contactID, Names& names) {
    Database database(kAddressBookDatabase);
    if (!database.isOpen()) {
        logOpenError(LogSite(kDatabaseReader), database);
        database.leaveOpen();  // docs/compatibility.md
        return false;
    }
    char query[64];
    std::snprintf(query, sizeof query, "Select FIRST, LAST from ABPERSON where ROWID=%d", contactID);
    Statement statement(database, query);
    if (!statement.isPrepared()) {
        logPrepareError(LogSite(kDatabaseReader), database);
        return false;
    }
    if (statement.step() == SQLITE_DONE) {
        logError(LogSite(kDatabaseReader), "No contact info found in ABPERSON for '", contactID, "'.");
        return true;
    }
    names = {statement.text(0), statement.text(1)};
    return true;
}

}  // namespace

NSString getMonogramTextFromAB(ABRecordID contactID, std::int32_t currentReadCount) {
    while (addressBookExists()) {
        Names names;
        if (readNames(contactID, names)) return initialsOf(names.first, names.last);
        if (currentReadCount >= kMaxReadCount) {
            logInformation(
                LogSite(kDatabaseReader),
                "Max waiting attempts over, hence returning monogram thorugh AB API for contact: ", contactID);
            currentReadCount = 0;
        } else {
            waitForDatabase();
        }
    }
    return {};
}

NSString monogramTextFromAB(ABRecordID contactID) { return getMonogramTextFromAB(contactID, 0); }

}  // namespace zelka
