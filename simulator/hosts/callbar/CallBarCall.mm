#import "simulator/hosts/callbar/CallBarCall.h"

#include "simulator/frameworks/address_book/address_book.h"
#include "simulator/frameworks/contacts_ui/ABUIPerson.h"

namespace {

NSString* textOf(const std::string& text) {
    NSString* result = [NSString stringWithUTF8String:text.c_str()];
    return result != nil ? result : @"";
}

bool isEmail(NSString* address) { return [address rangeOfString:@"@"].length > 0; }

// Unowned: the record belongs to the shared book.
ABRecordRef personOfRow(const callbar::CallRow& row, NSString* address) {
    ABRecordRef person = nullptr;
    if (row.contact > 0) person = ABAddressBookGetPersonWithRecordID(ABUISharedAddressBook(), row.contact);
    if (person == nullptr && [address length] > 0 && !isEmail(address))
        person = ABCFindPersonMatchingPhoneNumber(ABUISharedAddressBook(), address, 0, 0);
    return person;
}

}  // namespace

@interface CallBarCall ()
- (instancetype)initWithRow:(const callbar::CallRow&)row
                     person:(ABRecordRef)person
                       name:(NSString*)name
                    address:(NSString*)address;
@end

@interface CallBarUidCall : CallBarCall
@end
@interface CallBarNamedUidCall : CallBarUidCall
@end
@interface CallBarRecordIdCall : CallBarCall
@end
@interface CallBarNamedRecordIdCall : CallBarRecordIdCall
@end
@interface CallBarAddressCall : CallBarCall
@end
@interface CallBarNamedAddressCall : CallBarAddressCall
@end

@implementation CallBarCall

+ (CallBarCall*)callWithRow:(const callbar::CallRow&)row {
    NSString* address = textOf(row.address);
    ABRecordRef person = personOfRow(row, address);
    NSString* name = person != nullptr ? [[ABUIPerson personWithRecord:person] compositeName] : nil;
    if ([name length] == 0 && !row.name.empty()) name = textOf(row.name);
    const bool named = [name length] > 0 && row.id % 4 != 3;
    Class kinds[3][2] = {{[CallBarUidCall class], [CallBarNamedUidCall class]},
                         {[CallBarRecordIdCall class], [CallBarNamedRecordIdCall class]},
                         {[CallBarAddressCall class], [CallBarNamedAddressCall class]}};
    // A ROWID may be negative in a database that was tampered with.
    const long long kind = ((row.id % 3) + 3) % 3;
    return [[[kinds[kind][named ? 1 : 0] alloc] initWithRow:row person:person name:name address:address] autorelease];
}

- (instancetype)initWithRow:(const callbar::CallRow&)row
                     person:(ABRecordRef)person
                       name:(NSString*)name
                    address:(NSString*)address {
    if ((self = [super init]) != nil) {
        _address = [address copy];
        _name = [name length] > 0 ? [name copy] : nil;
        _date = [[NSDate alloc] initWithTimeIntervalSince1970:row.date];
        _contact = person != nullptr ? ABRecordGetRecordID(person) : kABRecordInvalidID;
        _outgoing = row.isOutgoing;
        _missed = row.isMissed;
    }
    return self;
}

- (void)dealloc {
    [_address release];
    [_name release];
    [_date release];
    [super dealloc];
}

- (NSString*)address {
    return _address;
}

- (NSString*)knownName {
    return _name;
}

- (NSString*)displayName {
    if (_name != nil) return _name;
    if ([_address length] == 0) return @"Unknown";
    return isEmail(_address) ? _address : [[ABPhoneFormatting abCopyPhoneNumberFromString:_address] autorelease];
}

- (NSString*)addressKind {
    if (_contact > 0) {
        const std::string label = callbar::addressLabel(_contact, [_address UTF8String]);
        if (!label.empty()) return textOf(label);
    }
    return isEmail(_address) ? @"FaceTime" : @"unknown";
}

- (NSDate*)date {
    return _date;
}

- (int)contactIdentifier {
    return _contact;
}

- (BOOL)isOutgoing {
    return _outgoing;
}

- (BOOL)isMissed {
    return _missed;
}

@end

@implementation CallBarUidCall
- (NSInteger)uid {
    return [self contactIdentifier];
}
@end

@implementation CallBarNamedUidCall
- (NSString*)callerName {
    return [self knownName];
}
@end

@implementation CallBarRecordIdCall
- (NSNumber*)addressBookRecordId {
    return [NSNumber numberWithInt:[self contactIdentifier]];
}
@end

@implementation CallBarNamedRecordIdCall
- (NSString*)callerName {
    return [self knownName];
}
@end

@implementation CallBarAddressCall
@end

@implementation CallBarNamedAddressCall
- (NSString*)callerName {
    return [self knownName];
}
@end

NSArray* CallBarEntriesOfCalls(NSArray* calls) {
    NSMutableArray* entries = [NSMutableArray array];
    for (CallBarCall* call in calls) {
        CallBarCall* before = [[[entries lastObject] objectForKey:@"calls"] lastObject];
        if (before != nil && [[before address] isEqualToString:[call address]] && [before isMissed] == [call isMissed])
            [[[entries lastObject] objectForKey:@"calls"] addObject:call];
        else
            [entries addObject:@{@"calls" : [NSMutableArray arrayWithObject:call], @"address" : [call address]}];
    }
    return entries;
}

NSArray* CallBarMissedCalls(NSArray* calls) {
    NSMutableArray* missed = [NSMutableArray array];
    for (CallBarCall* call in calls)
        if ([call isMissed]) [missed addObject:call];
    return missed;
}

NSArray* CallBarReadCalls(void) {
    std::vector<callbar::CallRow> rows;
    const phone::Status read = callbar::readCallHistory(rows);
    if (!read) NSLog(@"CallBar: the call history cannot be read: %s", read.error().message.c_str());
    NSMutableArray* calls = [NSMutableArray arrayWithCapacity:rows.size()];
    for (const callbar::CallRow& row : rows) [calls addObject:[CallBarCall callWithRow:row]];
    return calls;
}
