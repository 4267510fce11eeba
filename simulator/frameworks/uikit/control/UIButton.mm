#include "simulator/frameworks/uikit/control/UIButton.h"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIBezierPath.h"
#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/UIGraphics.h"
#include "simulator/frameworks/uikit/graphics/UIImage.h"
#include "simulator/frameworks/uikit/view/UIImageView.h"
#include "simulator/frameworks/uikit/view/UILabel.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

constexpr CGFloat kInfoSize = 22;

BOOL isInfo(UIButtonType type) { return type >= UIButtonTypeDetailDisclosure; }

id valueFor(NSDictionary* values, UIControlState state) {
    id value = [values objectForKey:[NSNumber numberWithUnsignedInteger:state]];
    return value ?: [values objectForKey:[NSNumber numberWithUnsignedInteger:UIControlStateNormal]];
}

void setValue(NSMutableDictionary* values, id value, UIControlState state) {
    NSNumber* key = [NSNumber numberWithUnsignedInteger:state];
    value ? [values setObject:value forKey:key] : [values removeObjectForKey:key];
}

}  // namespace

@implementation UIButton

@synthesize buttonType = _buttonType;

+ (instancetype)buttonWithType:(UIButtonType)type {
    const CGFloat size = isInfo(type) ? kInfoSize : 0;
    UIButton* button = [[[self alloc] initWithFrame:CGRectMake(0, 0, size, size)] autorelease];
    button->_buttonType = type;
    return button;
}

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        _titles = [[NSMutableDictionary alloc] init];
        _titleColors = [[NSMutableDictionary alloc] init];
        _images = [[NSMutableDictionary alloc] init];
    }
    return self;
}

- (void)dealloc {
    [_titles release];
    [_titleColors release];
    [_images release];
    [_titleLabel release];
    [_imageView release];
    [super dealloc];
}

- (UILabel*)titleLabel {
    if (!_titleLabel) {
        _titleLabel = [[UILabel alloc] initWithFrame:CGRectZero];
        [_titleLabel setTextAlignment:NSTextAlignmentCenter];
        [self addSubview:_titleLabel];
    }
    return _titleLabel;
}

- (UIImageView*)imageView {
    if (!_imageView) {
        _imageView = [[UIImageView alloc] initWithFrame:CGRectZero];
        [self addSubview:_imageView];
    }
    return _imageView;
}

- (void)setTitle:(NSString*)title forState:(UIControlState)state {
    [self _requireThread:_cmd];
    setValue(_titles, title, state);
    [self setNeedsLayout];
}

- (NSString*)titleForState:(UIControlState)state {
    return valueFor(_titles, state);
}

- (void)setTitleColor:(UIColor*)color forState:(UIControlState)state {
    [self _requireThread:_cmd];
    setValue(_titleColors, color, state);
    [self setNeedsLayout];
}

- (UIColor*)titleColorForState:(UIControlState)state {
    UIColor* color = valueFor(_titleColors, state);
    if (color) return color;
    return _buttonType == UIButtonTypeSystem ? [self tintColor] : [UIColor whiteColor];
}

- (void)setImage:(UIImage*)image forState:(UIControlState)state {
    [self _requireThread:_cmd];
    setValue(_images, image, state);
    [self setNeedsLayout];
}

- (UIImage*)imageForState:(UIControlState)state {
    return valueFor(_images, state);
}

- (CGSize)sizeThatFits:(CGSize)size {
    if (isInfo(_buttonType)) return CGSizeMake(kInfoSize, kInfoSize);
    [self _showState];
    const CGSize image = _imageView ? [_imageView sizeThatFits:size] : CGSizeZero;
    const CGSize title = _titleLabel ? [_titleLabel sizeThatFits:CGSizeZero] : CGSizeZero;
    return CGSizeMake(image.width + title.width, std::max(image.height, title.height));
}

- (void)_showState {
    NSString* title = [self titleForState:[self state]];
    if (title || _titleLabel) {
        [[self titleLabel] setText:title];
        [[self titleLabel] setTextColor:[self titleColorForState:[self state]]];
    }
    UIImage* image = [self imageForState:[self state]];
    if (image || _imageView) [[self imageView] setImage:image];
}

- (void)layoutSubviews {
    [super layoutSubviews];
    [self _showState];
    const CGSize room = [self bounds].size;
    const CGSize image = _imageView ? [_imageView sizeThatFits:room] : CGSizeZero;
    CGSize title = _titleLabel ? [_titleLabel sizeThatFits:CGSizeZero] : CGSizeZero;
    title.width = std::min(title.width, room.width - image.width);
    const CGFloat left = std::floor((room.width - image.width - title.width) / 2);
    [_imageView setFrame:CGRectMake(left, std::floor((room.height - image.height) / 2), image.width, image.height)];
    [_titleLabel setFrame:CGRectMake(left + image.width, std::floor((room.height - title.height) / 2), title.width,
                                     title.height)];
}

// The circled "i".
- (void)drawRect:(CGRect)rect {
    if (!isInfo(_buttonType)) return;
    [[self tintColor] set];
    const CGFloat left = std::floor((rect.size.width - kInfoSize) / 2);
    const CGFloat top = std::floor((rect.size.height - kInfoSize) / 2);
    UIBezierPath* ring =
        [UIBezierPath bezierPathWithOvalInRect:CGRectMake(left + 0.5, top + 0.5, kInfoSize - 1, kInfoSize - 1)];
    [ring setLineWidth:1];
    [ring stroke];
    [[UIBezierPath bezierPathWithOvalInRect:CGRectMake(left + 9.9, top + 5, 2.2, 2.2)] fill];
    UIRectFill(CGRectMake(left + 10.25, top + 9, 1.5, 7.5));
    UIRectFill(CGRectMake(left + 8.75, top + 9, 1.5, 1));
    UIRectFill(CGRectMake(left + 8.5, top + 16, 5, 1));
}

@end
