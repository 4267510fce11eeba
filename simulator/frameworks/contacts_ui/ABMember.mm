#import "simulator/frameworks/contacts_ui/ABMember.h"

#include <string_view>
#include <tuple>

#include "simulator/frameworks/contacts_ui/member_list.h"
#include "simulator/frameworks/contacts_ui/name_order.h"

namespace {

NSString* textOf(const std::string& text) {
    NSString* result = [NSString stringWithUTF8String:text.c_str()];
    return result != nil ? result : @"";
}

// The last name, then the first; else what is shown.
NSString* sortKeyOf(NSString* first, NSString* last, NSString* shown) {
    if ([first length] > 0 && [last length] > 0) return [NSString stringWithFormat:@"%@ %@", last, first];
    return shown;
}

std::string utf8(NSString* text) {
    const char* bytes = [text UTF8String];
    return bytes != nullptr ? bytes : "";
}

NSComparisonResult compareMembers(ABMember* a, ABMember* b, void*) { return [a compare:b]; }

}  // namespace

@implementation ABMember

- (instancetype)initWithMember:(const contacts_ui::Member&)member {
    if ((self = [super init]) != nil) {
        _recordID = member.id;
        NSString* first = textOf(member.first);
        NSString* last = textOf(member.last);
        NSString* composite = ABUICompositeName(first, last);
        _name = [(composite != nil ? composite : textOf(member.otherName)) copy];
        const contacts_ui::NameOrder::Place place =
            contacts_ui::deviceNameOrder().placeOf(utf8(sortKeyOf(first, last, _name)));
        _section = place.section;
        _sortKey = [[NSData alloc] initWithBytes:place.key.data() length:place.key.size()];
        _sectionTitle = [textOf(place.title) copy];
    }
    return self;
}

- (void)dealloc {
    [_name release];
    [_sortKey release];
    [_sectionTitle release];
    [_person release];
    [super dealloc];
}

- (ABRecordID)recordID {
    return _recordID;
}

- (NSString*)name {
    return _name;
}

- (NSComparisonResult)compare:(ABMember*)other {
    const auto key = [](NSData* bytes) {
        return std::string_view(static_cast<const char*>([bytes bytes]), [bytes length]);
    };
    const auto place = [&key](ABMember* member) {
        return std::tuple(member->_section, key(member->_sortKey), member->_recordID);
    };
    if (place(self) == place(other)) return NSOrderedSame;
    return place(self) < place(other) ? NSOrderedAscending : NSOrderedDescending;
}

- (NSString*)sectionTitle {
    return _sectionTitle;
}

- (ABUIPerson*)person {
    if (_person == nil) _person = [[ABUIPerson personWithRecordID:_recordID] retain];
    return _person;
}

- (BOOL)matchesFoldedText:(NSString*)text {
    if ([text length] == 0) return NO;
    NSString* name = ABUIFold(_name);
    return [name hasPrefix:text] || [name rangeOfString:[@" " stringByAppendingString:text]].length > 0;
}

@end

NSString* ABUIFold(NSString* text) {
    NSString* lower = [[text decomposedStringWithCanonicalMapping] lowercaseString];
    NSCharacterSet* marks = [NSCharacterSet nonBaseCharacterSet];
    if ([lower rangeOfCharacterFromSet:marks].length == 0) return lower;
    return [[lower componentsSeparatedByCharactersInSet:marks] componentsJoinedByString:@""];
}

NSArray* ABUIReadMembers(void) {
    std::vector<contacts_ui::Member> rows;
    const phone::Status read = contacts_ui::readMembers(rows);
    if (!read) NSLog(@"Contacts: the contacts cannot be read: %s", read.error().message.c_str());
    NSMutableArray* members = [NSMutableArray arrayWithCapacity:rows.size()];
    for (const contacts_ui::Member& row : rows) [members addObject:[[[ABMember alloc] initWithMember:row] autorelease]];
    [members sortUsingFunction:(NSComparisonResult(*)(id, id, void*))compareMembers context:nullptr];
    return members;
}
