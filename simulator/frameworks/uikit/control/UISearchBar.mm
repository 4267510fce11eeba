#include "simulator/frameworks/uikit/control/UISearchBar.h"

#include <cmath>

#include "simulator/frameworks/uikit/graphics/NSString+Drawing.h"
#include "simulator/frameworks/uikit/graphics/UIBezierPath.h"
#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

constexpr CGFloat kFieldHeight = 28;
constexpr CGFloat kFieldMargin = 8;
constexpr CGFloat kIconSize = 13;
constexpr CGFloat kIconGap = 6;

void drawMagnifier(CGFloat x, CGFloat y) {
    UIBezierPath* glass = [UIBezierPath bezierPathWithOvalInRect:CGRectMake(x + 1, y + 1, 8.5, 8.5)];
    [glass setLineWidth:1.2];
    [glass stroke];
    UIBezierPath* handle = [UIBezierPath bezierPath];
    [handle moveToPoint:CGPointMake(x + 8.3, y + 8.3)];
    [handle addLineToPoint:CGPointMake(x + 12.5, y + 12.5)];
    [handle setLineWidth:1.4];
    [handle stroke];
}

}  // namespace

@implementation UISearchBar

@synthesize text = _text;
@synthesize placeholder = _placeholder;
@synthesize delegate = _delegate;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) [self setBackgroundColor:[UIColor colorWithRed:0.788 green:0.788 blue:0.808 alpha:1]];
    return self;
}

- (void)dealloc {
    [_text release];
    [_placeholder release];
    [super dealloc];
}

- (void)setText:(NSString*)text {
    [self _requireThread:_cmd];
    ASSIGNCOPY(_text, text);
}

- (void)setPlaceholder:(NSString*)placeholder {
    [self _requireThread:_cmd];
    ASSIGNCOPY(_placeholder, placeholder);
}

- (CGSize)sizeThatFits:(CGSize)size {
    return CGSizeMake(size.width, 44);
}

- (void)drawRect:(CGRect)rect {
    const CGRect field = CGRectMake(kFieldMargin, std::floor((rect.size.height - kFieldHeight) / 2),
                                    rect.size.width - 2 * kFieldMargin, kFieldHeight);
    [[UIColor whiteColor] set];
    [[UIBezierPath bezierPathWithRoundedRect:field cornerRadius:5] fill];
    [self _drawTextInField:field];
}

// What was typed begins at the field's edge; the placeholder stands in its middle.
- (void)_drawTextInField:(CGRect)field {
    const BOOL typed = [_text length] > 0;
    NSString* shown = typed ? _text : _placeholder;
    UIFont* font = [UIFont systemFontOfSize:14];
    const CGSize size = shown ? [shown sizeWithFont:font] : CGSizeZero;
    const CGFloat whole = kIconSize + kIconGap + size.width;
    const CGFloat left = field.origin.x + (typed ? 8 : std::floor((field.size.width - whole) / 2));
    UIColor* gray = [UIColor colorWithRed:0.557 green:0.557 blue:0.576 alpha:1];
    [gray set];
    drawMagnifier(left, field.origin.y + (field.size.height - kIconSize) / 2);
    if (typed) [[UIColor blackColor] set];
    const CGFloat textLeft = left + kIconSize + kIconGap;
    [shown drawInRect:CGRectMake(textLeft, field.origin.y + std::floor((field.size.height - size.height) / 2),
                                 CGRectGetMaxX(field) - textLeft, size.height)
             withFont:font
        lineBreakMode:NSLineBreakByTruncatingTail];
}

@end
