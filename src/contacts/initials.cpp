#include "src/contacts/initials.h"

#include <array>
#include <cstdio>

#include "src/contacts/contact_ids.h"
#include "src/contacts/waiting_read.h"
#include "src/platform/dispatch.h"

namespace {

constexpr const char* kDatabaseReader = "+[ZelkaCBUtils getMonogramTextFromAB:currentReadCount:]";
constexpr std::int32_t kMaxReadCount = 4;

NSString firstCharacter(NSString text) { return text.substringToIndex(1); }

NSCharacterSet separators() {
    static constinit std::intptr_t once = 0;
    static constinit NSCharacterSet set;
    dispatchOnce(once, [] { set = Owned<NSCharacterSet>::retain(NSCharacterSet::alphanumeric().inverted()).leak(); });
    return set;
}

Owned<NSString> copyName(ABRecordRef person, ABPropertyID property) {
    return Owned<NSString>::adopt(NSString{{ABRecordCopyValue(person, property)}});
}

NSString initialsOf(NSString first, NSString last) {
    if (first.length() > 0 && last.length() > 0) return ZelkaCBUtils::monogramTextFromName(joinText(first, " ", last));
    if (first.length() > 0) return ZelkaCBUtils::monogramTextFromName(first);
    return last.length() > 0 ? ZelkaCBUtils::monogramTextFromName(last) : NSString{};
}

// Pools what the question takes, for a wait asks it every second.
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
        database.leaveOpen();
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

namespace ZelkaCBUtils {

NSString monogramTextFromName(NSString name) {
    if (name.length() == 0) return name;
    NSString unquoted = name.replacing(literal<"\"">(), literal<"">());
    NSArray pieces = unquoted.componentsSeparatedByAnyOf(separators());
    NSString firstWord;
    NSString lastWord;
    NSUInteger count = pieces.count();
    NSUInteger words = 0;
    for (NSUInteger i = 0; i < count; ++i) {
        auto piece = pieces.at<NSString>(i);
        if (piece.length() == 0) continue;
        if (words++ == 0) firstWord = piece;
        lastWord = piece;
    }
    if (words >= 2) return firstCharacter(firstWord).appending(firstCharacter(lastWord));
    // Of the whole text, not of the word: a name that begins with a separator gives a space.
    return firstCharacter(pieces.joinedBy(literal<" ">()));
}

NSString monogramTextFromContactID(ABRecordID contactID) {
    ABRecordRef person = getPersonRecordFromDB(contactID);
    if (person == nullptr) return {};
    Owned<NSString> first = copyName(person, kABPersonFirstNameProperty);
    Owned<NSString> last = copyName(person, kABPersonLastNameProperty);
    NSString initial = first->length() > 0 ? firstCharacter(first.get()) : NSString{};
    if (last->length() == 0) return initial;
    return initial ? initial.appending(firstCharacter(last.get())) : firstCharacter(last.get());
}

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

NSString getMonogramTextFromAB(ABRecordID contactID) { return getMonogramTextFromAB(contactID, 0); }

NSString monogramTextFromAB(ABRecordID contactID) { return getMonogramTextFromAB(contactID, 0); }

std::span<const MethodRow> initialsMethods() {
    static constexpr std::array rows{
        classMethod<"monogramTextFromName:", NSString(NSString), &monogramTextFromName>(),
        classMethod<"monogramTextFromContactID:", NSString(ABRecordID), &monogramTextFromContactID>(),
        classMethod<"getMonogramTextFromAB:currentReadCount:", NSString(ABRecordID, std::int32_t),
                    &getMonogramTextFromAB>(),
        classMethod<"getMonogramTextFromAB:", NSString(ABRecordID), &getMonogramTextFromAB>(),
        classMethod<"monogramTextFromAB:", NSString(ABRecordID), &monogramTextFromAB>()};
    return rows;
}

}  // namespace ZelkaCBUtils
