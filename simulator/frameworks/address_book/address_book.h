// AddressBook, as far as CallBar and what hooks it use it, read from the phone's own databases with SQLite.
//
// Functions named Create or Copy return +1, the others +0. All may be called from any thread: one connection, opened at
// first use and shared by every handle, is used under a lock. A database that is missing or unreadable is an empty book
// (reported once on standard error), and is looked for again at the next use.
#pragma once

#import <Foundation/Foundation.h>
#include <stdbool.h>

#include "simulator/frameworks/core_foundation/core_foundation.h"

typedef CFTypeRef ABAddressBookRef;
typedef CFTypeRef ABRecordRef;
typedef int32_t ABRecordID;
typedef int32_t ABPropertyID;
typedef enum ABPersonImageFormat {
    kABPersonImageFormatThumbnail = 0,
    kABPersonImageFormatOriginalSize = 2,
} ABPersonImageFormat;

#define kABRecordInvalidID ((ABRecordID)-1)

#ifdef __cplusplus
extern "C" {
#endif

extern const ABPropertyID kABPersonFirstNameProperty;
extern const ABPropertyID kABPersonLastNameProperty;
extern const ABPropertyID kABPersonMiddleNameProperty;
extern const ABPropertyID kABPersonPrefixProperty;
extern const ABPropertyID kABPersonSuffixProperty;
extern const ABPropertyID kABPersonNicknameProperty;
extern const ABPropertyID kABPersonOrganizationProperty;

// A handle on the phone's address book; nothing is read yet.
ABAddressBookRef ABAddressBookCreate(void);

// The person with that record ID, owned by the book; NULL when there is none, or no book.
ABRecordRef ABAddressBookGetPersonWithRecordID(ABAddressBookRef book, ABRecordID identifier);

// The record ID of a person; kABRecordInvalidID for NULL.
ABRecordID ABRecordGetRecordID(ABRecordRef record);

// A name as text, as the database holds it now (an empty name is an empty text); NULL when it has none or the person is
// gone. A property that is not one of the above raises.
CFTypeRef ABRecordCopyValue(ABRecordRef record, ABPropertyID property);

// All contacts that are linked into one person with this one, itself included, in the database's order; NULL for a
// contact that is linked to nothing.
CFArrayRef ABPersonCopyArrayOfAllLinkedPeople(ABRecordRef person);

bool ABPersonHasImageData(ABRecordRef person);
// The picture as it was given to the phone, else the thumbnail; NULL when there is neither.
CFDataRef ABPersonCopyImageData(ABRecordRef person);
// The picture of just that format, encoded; NULL when there is none.
CFDataRef ABPersonCopyImageDataWithFormat(ABRecordRef person, ABPersonImageFormat format);

// The private search: the person one of whose phone numbers is this text, spelt nationally or internationally, read in
// the device's region; owned by the book. NULL when there is none, or no book. The surest match wins, then the lowest
// record ID. It is found by name, so its type is its caller's: untyped text, and two words that must be 0.
ABRecordRef ABCFindPersonMatchingPhoneNumber(ABAddressBookRef book, id number, uintptr_t country, uintptr_t identifier);

#ifdef __cplusplus
}
#endif

// The phone's private formatter.
@interface ABPhoneFormatting : NSObject
// +1: the number's form for display in the device's region; a text that is no phone number comes back as it is, nil as
// nil.
+ (NSString*)abCopyPhoneNumberFromString:(NSString*)text;
@end
