#include "simulator/frameworks/uikit/table/UITableViewParts.h"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/view/UILabel.h"

namespace {

// Around the text below a group.
constexpr CGFloat kAboveText = 7, kBelowText = 7;

}  // namespace

@implementation UITableViewWrapperView
@end

@implementation UITableViewHeaderFooterView

@synthesize textLabel = _textLabel;

- (instancetype)initWithTitle:(NSString*)title kind:(UITableViewTitleKind)kind inset:(CGFloat)inset {
    self = [super initWithFrame:CGRectZero];
    if (self) {
        _kind = kind;
        _inset = inset;
        _textLabel = [[UILabel alloc] initWithFrame:CGRectZero];
        [_textLabel setText:kind == UITableViewTitleOfGroup ? [title uppercaseString] : title];
        [_textLabel setTextAlignment:NSTextAlignmentNatural];
        if (kind == UITableViewTitleOnBar) {
            [_textLabel setFont:[UIFont boldSystemFontOfSize:15]];
            [self setBackgroundColor:[UIColor colorWithWhite:247 / 255.0 alpha:1]];
        } else {
            [_textLabel setFont:[UIFont systemFontOfSize:13]];
            [_textLabel setTextColor:[UIColor colorWithRed:0.427 green:0.427 blue:0.447 alpha:1]];
        }
        if (kind == UITableViewTextBelowGroup) {
            [_textLabel setNumberOfLines:0];
            [_textLabel setLineBreakMode:NSLineBreakByWordWrapping];
        }
        [self addSubview:_textLabel];
    }
    return self;
}

- (void)dealloc {
    [_textLabel release];
    [super dealloc];
}

- (CGFloat)_textHeightForWidth:(CGFloat)width {
    return std::ceil([_textLabel sizeThatFits:CGSizeMake(width - 2 * _inset, 0)].height);
}

- (CGSize)sizeThatFits:(CGSize)size {
    return CGSizeMake(size.width, [self _textHeightForWidth:size.width] + kAboveText + kBelowText);
}

- (CGFloat)_topOfText:(CGFloat)height {
    const CGFloat room = [self bounds].size.height;
    if (_kind == UITableViewTextBelowGroup) return kAboveText;
    return _kind == UITableViewTitleOfGroup ? room - height - 6 : std::floor((room - height) / 2);
}

- (void)layoutSubviews {
    [super layoutSubviews];
    const CGFloat width = [self bounds].size.width;
    const CGFloat height = [self _textHeightForWidth:width];
    [_textLabel setFrame:CGRectMake(_inset, [self _topOfText:height], width - 2 * _inset, height)];
}

@end

@implementation UITableViewIndex

@synthesize titles = _titles;

- (void)dealloc {
    [_titles release];
    [super dealloc];
}

- (void)drawRect:(CGRect)rect {
    UIFont* font = [UIFont boldSystemFontOfSize:11];
    const auto count = static_cast<CGFloat>([_titles count]);
    const CGFloat step = std::min<CGFloat>(14, rect.size.height / std::max<CGFloat>(1, count));
    CGFloat y = std::floor((rect.size.height - step * count) / 2);
    [[self tintColor] set];
    for (NSString* title in _titles) {
        [title drawInRect:CGRectMake(0, y, rect.size.width, step)
                 withFont:font
            lineBreakMode:NSLineBreakByClipping
                alignment:NSTextAlignmentCenter];
        y += step;
    }
}

@end
