#include "simulator/frameworks/uikit/table/UITableViewParts.h"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/view/UILabel.h"

@implementation UITableViewWrapperView
@end

@implementation UITableViewHeaderFooterView

@synthesize textLabel = _textLabel;

- (instancetype)initWithTitle:(NSString*)title grouped:(BOOL)grouped inset:(CGFloat)inset {
    self = [super initWithFrame:CGRectZero];
    if (self) {
        _inset = inset;
        _textLabel = [[UILabel alloc] initWithFrame:CGRectZero];
        [_textLabel setText:grouped ? [title uppercaseString] : title];
        [_textLabel setTextAlignment:NSTextAlignmentNatural];
        if (grouped) {
            [_textLabel setFont:[UIFont systemFontOfSize:13]];
            [_textLabel setTextColor:[UIColor colorWithRed:0.427 green:0.427 blue:0.447 alpha:1]];
        } else {
            [_textLabel setFont:[UIFont boldSystemFontOfSize:15]];
            [self setBackgroundColor:[UIColor colorWithWhite:247 / 255.0 alpha:1]];
        }
        [self addSubview:_textLabel];
    }
    return self;
}

- (void)dealloc {
    [_textLabel release];
    [super dealloc];
}

- (void)layoutSubviews {
    [super layoutSubviews];
    const CGSize size = [self bounds].size;
    const CGFloat height = [_textLabel sizeThatFits:size].height;
    const BOOL grouped = [self backgroundColor] == nil;
    [_textLabel setFrame:CGRectMake(_inset, grouped ? size.height - height - 6 : std::floor((size.height - height) / 2),
                                    size.width - 2 * _inset, height)];
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
