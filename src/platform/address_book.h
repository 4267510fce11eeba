// The AddressBook framework, its private phone-number functions included. Copy and Create functions answer owned
// references (+1); a person belongs to the book that found it.
#pragma once

#include "src/platform/foundation.h"
#include "src/platform/system.h"

using ABAddressBookRef = const void*;
using ABRecordRef = const void*;
using ABRecordID = std::int32_t;
using ABPropertyID = std::int32_t;

// kABPersonImageFormatThumbnail
constexpr std::int32_t kImageFormatThumbnail = 0;

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

// The person whose phone number matches (+0), or nothing; nobody's number matches on a system that lacks the private
// function.
// The function's own side may spell the pointers' types in its own way, at which the sanitizer would stumble.
__attribute__((no_sanitize("function"))) inline ABRecordRef findPersonMatchingPhoneNumber(ABAddressBookRef book,
                                                                                          id phoneNumber) {
    // The last two arguments are a country and an identifier to fill in; 0 asks for neither.
    using Find = ABRecordRef(ABAddressBookRef, id, std::uintptr_t country, std::uintptr_t identifier);
    auto* find = platform::systemFunction<Find>("ABCFindPersonMatchingPhoneNumber");
    return find != nullptr ? find(book, phoneNumber, 0, 0) : nullptr;
}
