#pragma once

#include "simulator/frameworks/address_book/address_book.h"
#include "simulator/frameworks/uikit/uikit.h"

// The system's generator of contact pictures: round, and for a contact without a photo a grey disc with the initials.
// Pictures are at the main screen's scale and owned by the caller (+1), all three methods' alike. Main thread.
@interface ABMonogrammer : NSObject {
  @private
    CGFloat _diameter;
    UIFont* _font;
}

// The diameter in points.
- (instancetype)initWithDiameter:(CGFloat)diameter;

@property (nonatomic, readonly) CGFloat diameter;
@property (nonatomic, readonly) UIFont* font;  // of the initials; +0

// +1. Empty or nil initials give the bare disc.
- (UIImage*)_copyMonogramWithInitials:(NSString*)initials;
// +1; nil when there are no bytes or they are no picture. The picture fills the disc, cut at its longer sides.
- (UIImage*)_copyMonogramWithImageData:(CFDataRef)data;
// +1. The person's own photo, else a linked contact's, with *isPersonImage set to YES; else the initials, with NO. A
// NULL person gives the bare disc. The pointer may be NULL.
- (UIImage*)monogramForPerson:(ABRecordRef)person isPersonImage:(BOOL*)isPersonImage;

@end
