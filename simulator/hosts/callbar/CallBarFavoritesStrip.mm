#import "simulator/hosts/callbar/CallBarFavoritesStrip.h"

#import "simulator/frameworks/contacts_ui/reading_direction.h"
#import "simulator/hosts/callbar/CallBarDrawing.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat kPictureSide = 60;
constexpr CGFloat kDeleteSide = 20;
constexpr CGFloat kNameGap = 5;
constexpr CGFloat kNameHeight = 16;
constexpr CGFloat kButtonHeight = kPictureSide + kNameGap + kNameHeight;
constexpr CGFloat kColumnWidth = 76;
constexpr CGFloat kMargin = 8;
constexpr CGFloat kRowGap = 14;

}  // namespace

@implementation CallBarFavoriteButton

+ (CallBarFavoriteButton*)buttonWithPicture:(UIImage*)picture name:(NSString*)name contact:(int)contact {
    CallBarFavoriteButton* button = [self buttonWithType:UIButtonTypeCustom];
    button->_contact = contact;
    [button setImage:picture forState:UIControlStateNormal];
    [button setTitle:name forState:UIControlStateNormal];
    [button setTitleColor:[UIColor blackColor] forState:UIControlStateNormal];
    [[button titleLabel] setFont:[UIFont systemFontOfSize:12]];
    [[button titleLabel] setTextAlignment:NSTextAlignmentCenter];
    return button;
}

- (void)dealloc {
    [_deleteControl release];
    [super dealloc];
}

- (int)contactIdentifier {
    return _contact;
}

- (void)setEditing:(BOOL)editing {
    if (editing && _deleteControl == nil) {
        _deleteControl = [[CallBarDeleteControl alloc]
            initWithFrame:CGRectMake((kColumnWidth - kPictureSide) / 2 - 4, 0, kDeleteSide, kDeleteSide)];
        [self insertSubview:_deleteControl aboveSubview:[self imageView]];
    }
    [_deleteControl setHidden:!editing];
}

- (void)layoutSubviews {
    [super layoutSubviews];
    const CGFloat width = [self bounds].size.width;
    [[self imageView] setFrame:CGRectMake((width - kPictureSide) / 2, 0, kPictureSide, kPictureSide)];
    [[self titleLabel] setFrame:CGRectMake(0, kPictureSide + kNameGap, width, kNameHeight)];
}

@end

@implementation CallBarFavoritesStrip

- (void)dealloc {
    [_buttons release];
    [super dealloc];
}

- (NSArray*)buttons {
    return [NSArray arrayWithArray:_buttons];
}

- (void)addButton:(CallBarFavoriteButton*)button {
    if (_buttons == nil) _buttons = [[NSMutableArray alloc] init];
    [_buttons addObject:button];
    [button setEditing:_editing];
    [self addSubview:button];
    [self setNeedsLayout];
}

- (void)setEditing:(BOOL)editing {
    _editing = editing;
    for (CallBarFavoriteButton* button in _buttons) [button setEditing:editing];
}

- (void)removeAllButtons {
    for (UIView* button in _buttons) [button removeFromSuperview];
    [_buttons removeAllObjects];
}

- (void)layoutSubviews {
    [super layoutSubviews];
    const CGFloat width = [self bounds].size.width - 2 * kMargin;
    const int columns = std::max(1, static_cast<int>(width / kColumnWidth));
    const CGFloat columnWidth = width / columns;
    const bool mirrored = ABUIReadsFromTheRight();
    int index = 0;
    for (UIView* button in _buttons) {
        const int place = index % columns;
        const int column = mirrored ? columns - 1 - place : place;
        const int row = index / columns;
        const CGFloat left = kMargin + column * columnWidth + (columnWidth - kColumnWidth) / 2;
        [button setFrame:CGRectMake(std::floor(left), kRowGap + row * (kButtonHeight + kRowGap), kColumnWidth,
                                    kButtonHeight)];
        ++index;
    }
}

@end
