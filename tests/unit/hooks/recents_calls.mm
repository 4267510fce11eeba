#include "tests/unit/hooks/recents_test.h"

@implementation UidCall
- (NSInteger)uid {
    return identifier;
}
@end

@implementation RecordCall
- (NSNumber*)addressBookRecordId {
    return number;
}
@end

@implementation BothCall
- (NSNumber*)addressBookRecordId {
    [hostEvents() appendString:@"record-asked "];
    return @1;
}
@end

@implementation NamedCall
- (NSString*)callerName {
    return name;
}
@end

@implementation FlippingUidCall
- (NSInteger)uid {
    [[SettingsClass sharedSettings] setValue:@(NO) forKey:flip];
    return identifier;
}
@end

@implementation FlippingNameCall
- (NSString*)callerName {
    [[SettingsClass sharedSettings] setIsMonogramEnabled:NO];
    return name;
}
@end
