#import "simulator/frameworks/contacts_ui/ABMemberCell.h"

#include <algorithm>

#import "simulator/frameworks/contacts_ui/reading_direction.h"

namespace {

constexpr CGFloat kFontSize = 18;
constexpr CGFloat kTextInset = 10;  // in a name view, which stands a little inside the row
constexpr CGFloat kNameViewX = 5;
constexpr CGFloat kOldMargin = 40;  // more at the names' leading side before system 7
constexpr CGFloat kNameViewTrailing = 15;
constexpr CGFloat kTextReserve = 45;       // kept free at the end of the name
constexpr CGFloat kBareTextInset = 15;     // in the content view
constexpr CGFloat kBareEditingInset = 50;  // beside the delete control

CGFloat extraMargin() { return [[[UIDevice currentDevice] systemVersion] intValue] < 7 ? kOldMargin : 0; }

}  // namespace

// Has its cell draw the name over all of its bounds.
@interface ABMemberNameCanvas : UIView {
  @private
    ABMemberCell* _cell;  // unowned
}
- (instancetype)initWithCell:(ABMemberCell*)cell;
@end

@interface ABMemberCell ()
- (UIView*)viewForName;
- (CGFloat)textInset;
- (void)drawNameInBounds:(CGRect)bounds;
@end

@implementation ABMemberNameCanvas

- (instancetype)initWithCell:(ABMemberCell*)cell {
    if ((self = [super initWithFrame:CGRectZero]) != nil) {
        _cell = cell;
        [self setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
        [self setUserInteractionEnabled:NO];
    }
    return self;
}

- (void)drawRect:(CGRect)rect {
    [_cell drawNameInBounds:[self bounds]];
}

@end

@implementation ABMemberCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString*)reuseIdentifier {
    if ((self = [super initWithStyle:style reuseIdentifier:reuseIdentifier]) != nil) {
        [self setSelectionStyle:UITableViewCellSelectionStyleNone];
        _canvas = [[ABMemberNameCanvas alloc] initWithCell:self];
        UIView* home = [self viewForName];
        [_canvas setFrame:[home bounds]];
        [home addSubview:_canvas];
    }
    return self;
}

- (void)dealloc {
    // It outlives the cell when someone else still holds it, and must not draw then.
    [_canvas removeFromSuperview];
    [_canvas release];
    [_person release];
    [_name release];
    [super dealloc];
}

- (UIView*)viewForName {
    return [self contentView];
}

- (UIView*)nameCanvas {
    return _canvas;
}

- (ABUIPerson*)person {
    return _person;
}

- (NSString*)name {
    return _name;
}

- (void)setPerson:(ABUIPerson*)person name:(NSString*)name {
    ASSIGN(_person, person);
    NSString* shown = [name length] > 0 ? name : @"No Name";
    [_name release];
    _name = [shown copy];
    [_canvas setNeedsDisplay];
    [self setNeedsLayout];
}

- (void)layoutSubviews {
    [super layoutSubviews];
    [self layOutName];
    [_canvas setFrame:[[self viewForName] bounds]];
}

- (void)layOutName {
    const CGSize size = [self bounds].size;
    [[self contentView] setFrame:CGRectMake(0, 0, size.width, size.height)];
}

- (CGFloat)textInset {
    return [self isEditing] ? kBareEditingInset : kBareTextInset + extraMargin();
}

- (void)drawNameInBounds:(CGRect)bounds {
    UIFont* font = [UIFont systemFontOfSize:kFontSize];
    const CGFloat inset = [self textInset];
    const CGFloat y = (bounds.size.height - [font lineHeight]) / 2;
    const CGFloat width = std::max<CGFloat>(0, bounds.size.width - inset - kTextReserve);
    const CGFloat x = ABUIReadsFromTheRight() ? kTextReserve : inset;
    [self _drawText:_name
            withColor:[UIColor blackColor]
          shadowColor:nil
         shadowOffset:CGSizeMake(0, 0)
              atPoint:CGPointMake(x, y)
             forWidth:static_cast<float>(width)
             withFont:font
        lineBreakMode:NSLineBreakByTruncatingTail];
}

- (CGSize)_drawText:(NSString*)text
          withColor:(UIColor*)color
        shadowColor:(UIColor*)shadowColor
       shadowOffset:(CGSize)shadowOffset
            atPoint:(CGPoint)point
           forWidth:(float)width
           withFont:(UIFont*)font
      lineBreakMode:(NSLineBreakMode)lineBreakMode {
    CGPoint start = point;
    if (ABUIReadsFromTheRight())
        start.x += width - [text sizeWithFont:font forWidth:width lineBreakMode:lineBreakMode].width;
    if (shadowColor != nil) {
        [shadowColor set];
        [text drawAtPoint:CGPointMake(start.x + shadowOffset.width, start.y + shadowOffset.height)
                 forWidth:width
                 withFont:font
            lineBreakMode:lineBreakMode];
    }
    [color set];
    return [text drawAtPoint:start forWidth:width withFont:font lineBreakMode:lineBreakMode];
}

@end

@implementation ABNameViewMemberCell

- (void)dealloc {
    [_contactNameView release];
    [super dealloc];
}

- (UIView*)viewForName {
    return [self contactNameView];
}

- (UIView*)contactNameView {
    if (_contactNameView == nil) {
        _contactNameView = [[UIView alloc] initWithFrame:CGRectZero];
        [[self contentView] addSubview:_contactNameView];
    }
    return _contactNameView;
}

- (void)layOutName {
    const CGSize size = [[self contentView] bounds].size;
    const CGFloat x = kNameViewX + ([self isEditing] ? 0 : extraMargin());
    [_contactNameView setFrame:CGRectMake(x, 0, std::max<CGFloat>(0, size.width - x - kNameViewTrailing), size.height)];
}

- (CGFloat)textInset {
    return kTextInset;
}

@end
