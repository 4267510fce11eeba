#import "simulator/frameworks/contacts_ui/ABUIPerson.h"

ABAddressBookRef ABUISharedAddressBook(void) {
    static ABAddressBookRef book = ABAddressBookCreate();
    return book;
}

namespace {

// As a capital; empty for an empty or missing name.
NSString* firstLetter(NSString* name) {
    if ([name length] == 0) return @"";
    return [[name substringWithRange:[name rangeOfComposedCharacterSequenceAtIndex:0]] uppercaseString];
}

// Whether the UTF-16 unit is of a script in whose languages the family name comes first: kana, bopomofo, Han characters
// (those outside the basic plane by their surrogates), hangul.
bool isEastAsian(unichar unit) {
    constexpr unichar ranges[][2] = {{0x1100, 0x11FF}, {0x3005, 0x3007}, {0x3040, 0x318F},
                                     {0x3400, 0x4DBF}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7AF},
                                     {0xD840, 0xD88D}, {0xDC00, 0xDFFF}, {0xF900, 0xFAFF}};
    for (const auto& range : ranges)
        if (unit >= range[0] && unit <= range[1]) return true;
    return false;
}

bool isEastAsianName(NSString* name) {
    for (NSUInteger i = 0; i < [name length]; ++i)
        if (!isEastAsian([name characterAtIndex:i])) return false;
    return true;
}

}  // namespace

NSString* ABUICompositeName(NSString* first, NSString* last) {
    if ([first length] == 0 && [last length] == 0) return nil;
    if ([first length] == 0 || [last length] == 0) return [first length] > 0 ? first : last;
    if (isEastAsianName(first) && isEastAsianName(last)) return [last stringByAppendingString:first];
    return [NSString stringWithFormat:@"%@ %@", first, last];
}

NSString* ABUIInitialsOfName(NSString* name) {
    NSMutableArray* words = [NSMutableArray array];
    for (NSString* word in [name componentsSeparatedByCharactersInSet:[NSCharacterSet whitespaceCharacterSet]])
        if ([word length] > 0) [words addObject:word];
    if ([words count] < 2) return firstLetter([words lastObject]);
    return [firstLetter([words objectAtIndex:0]) stringByAppendingString:firstLetter([words lastObject])];
}

@implementation ABUIPerson

+ (ABUIPerson*)personWithRecord:(ABRecordRef)record {
    ABUIPerson* person = [[[self alloc] init] autorelease];
    person->_record = CFRetain(record);
    return person;
}

+ (ABUIPerson*)personWithRecordID:(ABRecordID)identifier {
    ABRecordRef record = ABAddressBookGetPersonWithRecordID(ABUISharedAddressBook(), identifier);
    return record != nullptr ? [self personWithRecord:record] : nil;
}

- (void)dealloc {
    if (_record != nullptr) CFRelease(_record);
    [super dealloc];
}

- (ABRecordRef)record {
    return _record;
}

- (ABRecordID)recordID {
    return ABRecordGetRecordID(_record);
}

// nil for a name that is missing or empty.
- (NSString*)nameOfProperty:(ABPropertyID)property {
    NSString* name = [(NSString*)ABRecordCopyValue(_record, property) autorelease];
    return [name length] > 0 ? name : nil;
}

- (NSString*)compositeName {
    NSString* name = ABUICompositeName([self nameOfProperty:kABPersonFirstNameProperty],
                                       [self nameOfProperty:kABPersonLastNameProperty]);
    if (name != nil) return name;
    NSString* organization = [self nameOfProperty:kABPersonOrganizationProperty];
    return organization != nil ? organization : [self nameOfProperty:kABPersonNicknameProperty];
}

- (NSString*)initials {
    NSString* first = firstLetter([self nameOfProperty:kABPersonFirstNameProperty]);
    NSString* last = firstLetter([self nameOfProperty:kABPersonLastNameProperty]);
    return [first stringByAppendingString:last];
}

- (NSArray*)linkedPeople {
    NSArray* records = [(NSArray*)ABPersonCopyArrayOfAllLinkedPeople(_record) autorelease];
    if ([records count] == 0) return @[ self ];
    NSMutableArray* people = [NSMutableArray arrayWithCapacity:[records count]];
    for (id record in records) [people addObject:[ABUIPerson personWithRecord:(ABRecordRef)record]];
    return people;
}

- (ABUIPerson*)preferredPersonForPhoto {
    if ([[self preferredPhotoThumbnail] length] > 0) return self;
    for (ABUIPerson* person in [self linkedPeople])
        if ([[person preferredPhotoThumbnail] length] > 0) return person;
    return self;
}

- (NSData*)preferredPhotoThumbnail {
    return [(NSData*)ABPersonCopyImageDataWithFormat(_record, kABPersonImageFormatThumbnail) autorelease];
}

@end
