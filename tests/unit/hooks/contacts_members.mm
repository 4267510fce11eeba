#include "tests/unit/hooks/contacts_list_test.h"

@implementation TestPerson
- (int)recordID {
    return identifier;
}
- (id)preferredPersonForPhoto {
    [hostEvents() appendString:@"photo-asked "];
    return photographed != nil ? photographed : self;
}
- (NSData*)preferredPhotoThumbnail {
    return thumbnail;
}
@end

@implementation TestMember
- (id)person {
    return person;
}
- (NSString*)name {
    return @"Ann Lee";
}
- (NSString*)sectionTitle {
    return @"L";
}
- (BOOL)matchesFoldedText:(NSString*)text {
    return YES;
}
@end

@implementation StrangeCell
- (void)setPerson:(id)person name:(NSString*)name {
}
@end

@implementation CountingCell
- (void)layOutName {
    [hostEvents() appendString:@"host-layout "];
    [self contactNameView].frame = CGRectMake(5, 3, 200, 38);
}
@end
