#include "simulator/frameworks/address_book/address_book.h"

#include <map>

#include "simulator/frameworks/address_book/book_database.h"
#include "simulator/phone_number/phone_number.h"
#include "simulator/runtime/process/device.h"

const ABPropertyID kABPersonFirstNameProperty = 0;
const ABPropertyID kABPersonLastNameProperty = 1;
const ABPropertyID kABPersonMiddleNameProperty = 6;
const ABPropertyID kABPersonPrefixProperty = 20;
const ABPropertyID kABPersonSuffixProperty = 21;
const ABPropertyID kABPersonNicknameProperty = 19;
const ABPropertyID kABPersonOrganizationProperty = 10;

// A person keeps only its ID: names and pictures are read when asked for, so that changes made elsewhere are seen.
@interface ABCPerson : NSObject {
  @public
    ABRecordID _recordID;
}
@end

@implementation ABCPerson
- (NSString*)description {
    return [NSString stringWithFormat:@"<ABCPerson %d>", (int)_recordID];
}
@end

@interface ABCAddressBook : NSObject {
    NSMutableDictionary* _people;  // ID -> person, so that one ID is one object while the book lives
}
- (ABRecordRef)personWithRecordID:(ABRecordID)identifier;
@end

@implementation ABCAddressBook
- (ABRecordRef)personWithRecordID:(ABRecordID)identifier {
    if (!address_book::personExists(identifier)) return nullptr;
    @synchronized(self) {
        if (!_people) _people = [[NSMutableDictionary alloc] init];
        NSNumber* key = [[NSNumber alloc] initWithInt:identifier];
        ABCPerson* person = [_people objectForKey:key];
        if (!person) {
            person = [[ABCPerson alloc] init];
            person->_recordID = identifier;
            [_people setObject:person forKey:key];
            [person release];
        }
        [key release];
        return person;
    }
}
- (void)dealloc {
    [_people release];
    [super dealloc];
}
@end

namespace {

ABCPerson* personOf(ABRecordRef record) { return (ABCPerson*)record; }

NSString* newText(const std::string& utf8) {
    NSData* bytes = [[NSData alloc] initWithBytes:utf8.data() length:utf8.size()];
    NSString* text = [[NSString alloc] initWithData:bytes encoding:NSUTF8StringEncoding];
    [bytes release];
    return text;
}

CFDataRef newData(const std::optional<std::string>& bytes) {
    return bytes ? [[NSData alloc] initWithBytes:bytes->data() length:bytes->size()] : nil;
}

// UTF-8; a text that has none (half a surrogate pair) is no phone number.
std::string utf8(NSString* text) {
    NSData* bytes = [text dataUsingEncoding:NSUTF8StringEncoding];
    return std::string(static_cast<const char*>([bytes bytes]), [bytes length]);
}

}  // namespace

ABAddressBookRef ABAddressBookCreate(void) { return [[ABCAddressBook alloc] init]; }

ABRecordRef ABAddressBookGetPersonWithRecordID(ABAddressBookRef book, ABRecordID identifier) {
    return [(ABCAddressBook*)book personWithRecordID:identifier];
}

ABRecordID ABRecordGetRecordID(ABRecordRef record) { return record ? personOf(record)->_recordID : kABRecordInvalidID; }

CFTypeRef ABRecordCopyValue(ABRecordRef record, ABPropertyID property) {
    using address_book::Name;
    static const std::map<ABPropertyID, Name>& names =
        *new std::map<ABPropertyID, Name>{{kABPersonFirstNameProperty, Name::first},
                                          {kABPersonLastNameProperty, Name::last},
                                          {kABPersonMiddleNameProperty, Name::middle},
                                          {kABPersonPrefixProperty, Name::prefix},
                                          {kABPersonSuffixProperty, Name::suffix},
                                          {kABPersonNicknameProperty, Name::nickname},
                                          {kABPersonOrganizationProperty, Name::organization}};
    auto known = names.find(property);
    if (known == names.end()) {
        [NSException raise:NSInvalidArgumentException
                    format:@"ABRecordCopyValue: property %d is not part of this phone", (int)property];
    }
    if (!record) return nullptr;
    std::optional<std::string> value = address_book::name(personOf(record)->_recordID, known->second);
    return value ? newText(*value) : nil;
}

CFArrayRef ABPersonCopyArrayOfAllLinkedPeople(ABRecordRef person) {
    if (!person) return nil;
    std::vector<ABRecordID> identifiers = address_book::linkedPeople(personOf(person)->_recordID);
    if (identifiers.empty()) return nil;
    NSMutableArray* people = [[NSMutableArray alloc] initWithCapacity:identifiers.size()];
    for (ABRecordID identifier : identifiers) {
        ABCPerson* linked = personOf(person)->_recordID == identifier ? [personOf(person) retain] : nil;
        if (!linked) {
            linked = [[ABCPerson alloc] init];
            linked->_recordID = identifier;
        }
        [people addObject:linked];
        [linked release];
    }
    return people;
}

bool ABPersonHasImageData(ABRecordRef person) { return person && address_book::hasImage(personOf(person)->_recordID); }

CFDataRef ABPersonCopyImageData(ABRecordRef person) {
    CFDataRef original = ABPersonCopyImageDataWithFormat(person, kABPersonImageFormatOriginalSize);
    return original ? original : ABPersonCopyImageDataWithFormat(person, kABPersonImageFormatThumbnail);
}

CFDataRef ABPersonCopyImageDataWithFormat(ABRecordRef person, ABPersonImageFormat format) {
    if (!person) return nil;
    ABRecordID identifier = personOf(person)->_recordID;
    if (format == kABPersonImageFormatOriginalSize) return newData(address_book::fullSizeImage(identifier));
    return newData(address_book::thumbnail(identifier, format));
}

ABRecordRef ABCFindPersonMatchingPhoneNumber(ABAddressBookRef book, id number, uintptr_t country,
                                             uintptr_t identifier) {
    if (country != 0 || identifier != 0) {
        [NSException raise:NSInvalidArgumentException
                    format:@"ABCFindPersonMatchingPhoneNumber: only 0 is known for the last two arguments"];
    }
    if (!book || !number) return nullptr;
    const std::string& region = phone::device().region;
    std::string wanted = utf8(number);
    phone_number::Match best = phone_number::Match::none;
    ABRecordID found = kABRecordInvalidID;
    for (const auto& [person, candidate] : address_book::phoneNumbersEndingIn(phone_number::lastFour(wanted, region))) {
        phone_number::Match match = phone_number::compare(wanted, candidate, region);
        if (match <= best) continue;
        best = match;
        found = person;
    }
    return best == phone_number::Match::none ? nullptr : ABAddressBookGetPersonWithRecordID(book, found);
}

@implementation ABPhoneFormatting
+ (NSString*)abCopyPhoneNumberFromString:(NSString*)text {
    if (!text) return nil;
    std::string given = utf8(text);
    std::string displayed = phone_number::displayForm(given, phone::device().region);
    return displayed == given ? [text copy] : newText(displayed);
}
@end
