#include "src/exports/initials_methods.h"

#include "src/cache/shared_address_book.h"
#include "src/contacts/initials.h"
#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/owned.h"

namespace zelka {
namespace {

Owned<NSString> copyName(ABRecordRef person, ABPropertyID property) {
    return adopt(NSString{{ABRecordCopyValue(person, property)}});
}

// From the shared address book; nil when it has no such person or the person has no name.
NSString monogramTextFromContactID(ABRecordID contactID) {
    ABRecordRef person = ABAddressBookGetPersonWithRecordID(getAddressBook(), contactID);
    if (person == nullptr) return {};
    Owned<NSString> first = copyName(person, kABPersonFirstNameProperty);
    Owned<NSString> last = copyName(person, kABPersonLastNameProperty);
    NSString initial = first->length() > 0 ? firstCharacter(first.get()) : NSString{};
    if (last->length() == 0) return initial;
    return initial ? initial.appending(firstCharacter(last.get())) : firstCharacter(last.get());
}

}  // namespace

std::span<const MethodRow> initialsMethods() {
    static constexpr MethodRow kRows[] = {
        classMethod<"monogramTextFromName:", NSString(NSString), &monogramTextFromName>(),
        classMethod<"monogramTextFromContactID:", NSString(ABRecordID), &monogramTextFromContactID>(),
        classMethod<"getMonogramTextFromAB:currentReadCount:", NSString(ABRecordID, std::int32_t),
                    &getMonogramTextFromAB>(),
        classMethod<"getMonogramTextFromAB:", NSString(ABRecordID), &monogramTextFromAB>(),
        classMethod<"monogramTextFromAB:", NSString(ABRecordID), &monogramTextFromAB>(),
    };
    return kRows;
}

}  // namespace zelka
