// The AddressBook framework, its private phone-number functions included. Copy and Create functions return owned
// references (+1); a person belongs to the book that found it. A book is used by one thread at a time.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/system.h"

using ABAddressBookRef = const void*;
using ABRecordRef = const void*;
using ABRecordID = std::int32_t;
using ABPropertyID = std::int32_t;

namespace zelka {

// kABPersonImageFormatThumbnail
constexpr std::int32_t kImageFormatThumbnail = 0;

}  // namespace zelka

extern "C" {
extern const ABPropertyID kABPersonFirstNameProperty;
extern const ABPropertyID kABPersonLastNameProperty;

ABAddressBookRef ABAddressBookCreate();
ABRecordRef ABAddressBookGetPersonWithRecordID(ABAddressBookRef book, ABRecordID contactID);
id ABPersonCopyArrayOfAllLinkedPeople(ABRecordRef person);
ABRecordID ABRecordGetRecordID(ABRecordRef record);
id ABRecordCopyValue(ABRecordRef record, ABPropertyID property);
BOOL ABPersonHasImageData(ABRecordRef person);
id ABPersonCopyImageData(ABRecordRef person);
id ABPersonCopyImageDataWithFormat(ABRecordRef person, std::int32_t format);
}

namespace zelka {

// The person whose phone number matches (+0, owned by the book), or nullptr; nullptr on a system that lacks the private
// function, too.
// The function's own side may spell the pointers' types in its own way, at which the sanitizer would stumble.
__attribute__((no_sanitize("function"))) inline ABRecordRef findPersonMatchingPhoneNumber(ABAddressBookRef book,
                                                                                          id phoneNumber) {
    // The last two arguments are a country and an identifier to fill in; 0 asks for neither.
    using Find = ABRecordRef(ABAddressBookRef, id, std::uintptr_t country, std::uintptr_t identifier);
    auto* find = systemFunction<Find>("ABCFindPersonMatchingPhoneNumber");
    return find != nullptr ? find(book, phoneNumber, 0, 0) : nullptr;
}

}  // namespace zelka

// Private to the framework, so a system may lack it.
struct ABPhoneFormatting : NSObject {
    // The number as the region writes it; nothing when the system lacks the class.
    [[nodiscard]] static zelka::Owned<NSString> copyPhoneNumber(NSString number) {
        return zelka::adopt(
            zelka::send<NSString, "abCopyPhoneNumberFromString:">(zelka::optionalClass<ABPhoneFormatting>(), number));
    }
};
