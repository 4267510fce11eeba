#include "simulator/frameworks/uikit/view/UILabel.h"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

// Labels follow the direction of reading by themselves from system 9 on.
NSTextAlignment firstAlignment() {
    return uikit::systemMajorVersion() >= 9 ? NSTextAlignmentNatural : NSTextAlignmentLeft;
}

NSTextAlignment resolved(NSTextAlignment alignment) {
    if (alignment != NSTextAlignmentNatural) return alignment;
    return uikit::rightToLeft() ? NSTextAlignmentRight : NSTextAlignmentLeft;
}

}  // namespace

@implementation UILabel

@synthesize text = _text;
@synthesize font = _font;
@synthesize textColor = _textColor;
@synthesize highlightedTextColor = _highlightedTextColor;
@synthesize textAlignment = _textAlignment;
@synthesize lineBreakMode = _lineBreakMode;
@synthesize numberOfLines = _numberOfLines;
@synthesize highlighted = _highlighted;
@synthesize enabled = _enabled;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        _font = [[UIFont systemFontOfSize:17] retain];
        _textColor = [[UIColor blackColor] retain];
        _textAlignment = firstAlignment();
        _lineBreakMode = NSLineBreakByTruncatingTail;
        _numberOfLines = 1;
        _enabled = YES;
        [self setUserInteractionEnabled:NO];
    }
    return self;
}

- (void)dealloc {
    [_text release];
    [_font release];
    [_textColor release];
    [_highlightedTextColor release];
    [super dealloc];
}

- (void)setText:(NSString*)text {
    [self _requireThread:_cmd];
    ASSIGNCOPY(_text, text);
}

- (void)setFont:(UIFont*)font {
    [self _requireThread:_cmd];
    ASSIGN(_font, font);
}

- (void)setTextColor:(UIColor*)color {
    [self _requireThread:_cmd];
    ASSIGN(_textColor, color);
}

- (CGSize)_textSizeForWidth:(CGFloat)width {
    if (_numberOfLines == 1) return [_text sizeWithFont:_font];
    const CGFloat height =
        _numberOfLines == 0 ? CGFLOAT_MAX : std::ceil([_font lineHeight]) * static_cast<CGFloat>(_numberOfLines);
    return [_text sizeWithFont:_font constrainedToSize:CGSizeMake(width, height) lineBreakMode:_lineBreakMode];
}

- (CGSize)sizeThatFits:(CGSize)size {
    if ([_text length] == 0) return CGSizeZero;
    return [self _textSizeForWidth:size.width > 0 ? size.width : CGFLOAT_MAX];
}

- (void)drawRect:(CGRect)rect {
    [self drawTextInRect:rect];
}

- (void)drawTextInRect:(CGRect)rect {
    if ([_text length] == 0) return;
    const CGFloat height = std::min([self _textSizeForWidth:rect.size.width].height, rect.size.height);
    const CGFloat top = rect.origin.y + std::floor((rect.size.height - height) / 2);
    UIColor* color = _highlighted && _highlightedTextColor ? _highlightedTextColor : _textColor;
    [(_enabled ? color : [color colorWithAlphaComponent:0.5]) set];
    [_text drawInRect:CGRectMake(rect.origin.x, top, rect.size.width, height)
             withFont:_font
        lineBreakMode:_lineBreakMode
            alignment:resolved(_textAlignment)];
}

@end

@implementation UITableViewLabel
@end
