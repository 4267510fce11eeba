#import "simulator/frameworks/contacts_ui/ABMonogrammer.h"

#import "simulator/frameworks/contacts_ui/ABUIPerson.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat kFontShare = 0.42;  // of the diameter

struct Grey {
    CGFloat red, green, blue;
};
constexpr Grey kTop{0.647, 0.671, 0.725};
constexpr Grey kBottom{0.522, 0.537, 0.580};

CGFloat mix(CGFloat a, CGFloat b, CGFloat share) { return a + (b - a) * share; }

// From the lighter grey at the top to the darker at the bottom, one line of pixels at a time.
void fillGradient(CGFloat side) {
    const CGFloat scale = [[UIScreen mainScreen] scale];
    const auto lines = static_cast<int>(std::ceil(side * scale));
    for (int line = 0; line < lines; ++line) {
        const CGFloat y = line / scale;
        const CGFloat share = y / side;
        [[UIColor colorWithRed:mix(kTop.red, kBottom.red, share)
                         green:mix(kTop.green, kBottom.green, share)
                          blue:mix(kTop.blue, kBottom.blue, share)
                         alpha:1] setFill];
        UIRectFill(CGRectMake(0, y, side, 1 / scale));
    }
}

}  // namespace

@implementation ABMonogrammer

- (instancetype)initWithDiameter:(CGFloat)diameter {
    if ((self = [super init]) != nil) {
        _diameter = diameter;
        _font = [[UIFont systemFontOfSize:diameter * kFontShare] retain];
    }
    return self;
}

- (void)dealloc {
    [_font release];
    [super dealloc];
}

- (CGFloat)diameter {
    return _diameter;
}

- (UIFont*)font {
    return _font;
}

- (void)beginDisc {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(_diameter, _diameter), NO, 0);
    [[UIBezierPath bezierPathWithOvalInRect:CGRectMake(0, 0, _diameter, _diameter)] addClip];
}

// +1.
- (UIImage*)copyDisc {
    UIImage* picture = [UIGraphicsGetImageFromCurrentImageContext() retain];
    UIGraphicsEndImageContext();
    return picture;
}

- (UIImage*)_copyMonogramWithInitials:(NSString*)initials {
    return [self copyInitialsDisc:initials];
}

- (UIImage*)_copyMonogramWithImageData:(CFDataRef)data {
    return [self copyPhotoDisc:data];
}

// A person's picture is drawn without the two messages above: whoever replaces them does not replace it.
- (UIImage*)monogramForPerson:(ABRecordRef)record isPersonImage:(BOOL*)isPersonImage {
    ABUIPerson* person = record != nullptr ? [ABUIPerson personWithRecord:record] : nil;
    NSData* photo = [[person preferredPersonForPhoto] preferredPhotoThumbnail];
    UIImage* picture = [photo length] > 0 ? [self copyPhotoDisc:photo] : nil;
    if (isPersonImage != nullptr) *isPersonImage = picture != nil;
    return picture != nil ? picture : [self copyInitialsDisc:[person initials]];
}

// +1.
- (UIImage*)copyInitialsDisc:(NSString*)initials {
    [self beginDisc];
    fillGradient(_diameter);
    [[UIColor whiteColor] set];
    const CGFloat lineHeight = [_font lineHeight];
    [initials drawInRect:CGRectMake(0, (_diameter - lineHeight) / 2, _diameter, lineHeight)
                withFont:_font
           lineBreakMode:NSLineBreakByClipping
               alignment:NSTextAlignmentCenter];
    return [self copyDisc];
}

// +1; nil for what is no picture.
- (UIImage*)copyPhotoDisc:(CFDataRef)data {
    UIImage* photo = [data length] > 0 ? [UIImage imageWithData:data] : nil;
    if (photo == nil) return nil;
    const CGSize size = [photo size];
    const CGFloat scale = _diameter / std::min(size.width, size.height);
    const CGFloat width = size.width * scale;
    const CGFloat height = size.height * scale;
    [self beginDisc];
    [photo drawInRect:CGRectMake((_diameter - width) / 2, (_diameter - height) / 2, width, height)];
    return [self copyDisc];
}

@end
