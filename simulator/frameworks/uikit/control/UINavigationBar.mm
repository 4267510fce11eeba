#include "simulator/frameworks/uikit/control/UINavigationBar.h"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIBezierPath.h"
#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/UIScreen.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/view/UILabel.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

constexpr CGFloat kBarHeight = 44;
constexpr CGFloat kEdge = 8;      // between the chevron and the screen's edge
constexpr CGFloat kChevron = 13;  // its width
constexpr CGFloat kGap = 6;       // between it and the title

}  // namespace

// A chevron, then a title.
@interface UINavigationBackButton : UIButton
@end

@implementation UINavigationBackButton

- (CGSize)sizeThatFits:(CGSize)size {
    return CGSizeMake(kEdge + kChevron + kGap + [super sizeThatFits:size].width, kBarHeight);
}

- (void)layoutSubviews {
    [super layoutSubviews];
    const CGSize room = [self bounds].size;
    const CGFloat chevron = kEdge + kChevron + kGap;
    [[self titleLabel] setFrame:CGRectMake(uikit::mirrorsViews() ? 0 : chevron, 0, room.width - chevron, room.height)];
}

- (void)drawRect:(CGRect)rect {
    const CGFloat width = rect.size.width;
    const CGFloat tip = uikit::mirrorsViews() ? width - kEdge - 1.5 : kEdge + 1.5;
    const CGFloat end = uikit::mirrorsViews() ? tip - 9 : tip + 9;
    const CGFloat middle = rect.size.height / 2;
    UIBezierPath* path = [UIBezierPath bezierPath];
    [path moveToPoint:CGPointMake(end, middle - 9)];
    [path addLineToPoint:CGPointMake(tip, middle)];
    [path addLineToPoint:CGPointMake(end, middle + 9)];
    [path setLineWidth:3];
    [[self tintColor] set];
    [path stroke];
}

@end

@implementation UINavigationBar

@synthesize items = _items;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        [self setBackgroundColor:[UIColor colorWithWhite:0.97 alpha:1]];
        _line = [[UIView alloc] initWithFrame:CGRectZero];
        [_line setBackgroundColor:[UIColor colorWithWhite:0.7 alpha:1]];
        [self addSubview:_line];
        _titleLabel = [[UILabel alloc] initWithFrame:CGRectZero];
        [_titleLabel setFont:[UIFont boldSystemFontOfSize:17]];
        [_titleLabel setTextAlignment:NSTextAlignmentCenter];
        [self addSubview:_titleLabel];
        _backButton = [[UINavigationBackButton buttonWithType:UIButtonTypeSystem] retain];
        [[_backButton titleLabel] setFont:[UIFont systemFontOfSize:17]];
        [[_backButton titleLabel] setTextAlignment:NSTextAlignmentNatural];
        [self addSubview:_backButton];
    }
    return self;
}

- (void)dealloc {
    [self _release];
    [_titleLabel release];
    [_backButton release];
    [_line release];
    [super dealloc];
}

- (void)_release {
    for (UINavigationItem* item in _items) [item _setShownBy:nil];
    [_items release];
    _items = nil;
}

- (void)setItems:(NSArray*)items {
    [self _requireThread:_cmd];
    NSArray* shown = [items copy];
    [self _release];
    _items = shown;
    for (UINavigationItem* item in _items) [item _setShownBy:self];
    [self setNeedsLayout];
}

- (UINavigationItem*)topItem {
    return [_items lastObject];
}

- (UINavigationItem*)backItem {
    return [_items count] > 1 ? [_items objectAtIndex:[_items count] - 2] : nil;
}

- (UIButton*)_backButton {
    return _backButton;
}

// The title is centred unless the button reaches further.
- (void)layoutSubviews {
    [super layoutSubviews];
    const CGSize room = [self bounds].size;
    const CGFloat line = 1 / [[UIScreen mainScreen] scale];
    [_line setFrame:CGRectMake(0, room.height - line, room.width, line)];
    const CGFloat top = room.height - kBarHeight;
    const CGFloat taken = [self _layOutBackButtonAt:top];
    [_titleLabel setText:[[self topItem] title]];
    const CGFloat width = [_titleLabel sizeThatFits:CGSizeZero].width;
    const CGFloat most = std::max<CGFloat>(0, room.width - taken - 2 * kEdge);
    const CGFloat fitting = std::min(width, most);
    const CGFloat leading = std::max(std::floor((room.width - fitting) / 2), taken + kEdge);
    const CGFloat x = uikit::mirrorsViews() ? room.width - leading - fitting : leading;
    [_titleLabel setFrame:CGRectMake(x, top, fitting, kBarHeight)];
}

// Returns how much of the bar's width the button takes.
- (CGFloat)_layOutBackButtonAt:(CGFloat)top {
    [_backButton setHidden:[self backItem] == nil];
    if ([_backButton isHidden]) return 0;
    [_backButton setTitle:[[self backItem] title] forState:UIControlStateNormal];
    [_backButton sizeToFit];
    const CGFloat barWidth = [self bounds].size.width;
    const CGFloat width = std::min([_backButton frame].size.width, barWidth / 2);
    [_backButton setFrame:CGRectMake(uikit::mirrorsViews() ? barWidth - width : 0, top, width, kBarHeight)];
    return width;
}

@end
