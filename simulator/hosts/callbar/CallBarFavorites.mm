#import "simulator/hosts/callbar/CallBarFavorites.h"

#include "simulator/frameworks/contacts_ui/ABUIPerson.h"

namespace {

NSString* const kFile = @"/private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist";

NSString* textOf(NSDictionary* entry, NSString* key) {
    NSString* text = [entry objectForKey:key];
    return [text isKindOfClass:[NSString class]] ? text : nil;
}

}  // namespace

@implementation CallBarFavorite

// nil when the entry names nobody.
- (instancetype)initWithEntry:(NSDictionary*)entry {
    if ((self = [super init]) == nil) return nil;
    id identifier = [entry objectForKey:@"ABUid"];
    const bool numeric = [identifier isKindOfClass:[NSNumber class]] || [identifier isKindOfClass:[NSString class]];
    _contact = numeric ? [identifier intValue] : kABRecordInvalidID;
    NSString* name = [[ABUIPerson personWithRecordID:_contact] compositeName];
    if (name == nil) name = textOf(entry, @"Name");
    if (name == nil) name = textOf(entry, @"Value");
    if (name == nil) {
        [self release];
        return nil;
    }
    _name = [name copy];
    return self;
}

- (void)dealloc {
    [_name release];
    [super dealloc];
}

- (NSString*)name {
    return _name;
}

- (int)contactIdentifier {
    return _contact;
}

@end

NSArray* CallBarReadFavorites(void) {
    NSMutableArray* favorites = [NSMutableArray array];
    if (![[NSFileManager defaultManager] fileExistsAtPath:kFile]) return favorites;
    NSArray* entries = [NSArray arrayWithContentsOfFile:kFile];
    if (entries == nil) NSLog(@"CallBar: %@ is not an array of favourites", kFile);
    for (NSDictionary* entry in entries) {
        const bool usable = [entry isKindOfClass:[NSDictionary class]];
        CallBarFavorite* favorite = usable ? [[[CallBarFavorite alloc] initWithEntry:entry] autorelease] : nil;
        if (favorite != nil)
            [favorites addObject:favorite];
        else
            NSLog(@"CallBar: a favourite that names nobody was left out: %@", entry);
    }
    return favorites;
}
