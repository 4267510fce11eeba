#import "simulator/hosts/callbar/CallBarTableViewTransparentCell.h"

#import "simulator/hosts/callbar/CallBarDrawing.h"

#include <algorithm>

namespace {

constexpr CGFloat kRowHeight = 48;
constexpr CGFloat kNameTop = 5;
constexpr CGFloat kKindTop = 27;
constexpr CGFloat kMargin = 15;
constexpr CGFloat kWideMargin = 50;
constexpr CGFloat kGap = 8;
constexpr CGFloat kIconGap = 5;
constexpr CGFloat kIconDrop = 4;
constexpr CGFloat kAccessorySide = 22;
constexpr CGFloat kAccessoryInset = 34;  // from the row's edge to the accessory's inner side
constexpr CGFloat kDeleteInset = 38;
constexpr CGFloat kMirroredTextEnd = 90;  // from the row's right edge to where the texts begin
constexpr CGFloat kMirroredTextEndEditing = 78;

bool systemIsAtLeast(int major) { return [[[UIDevice currentDevice] systemVersion] intValue] >= major; }

bool rightToLeft() {
    return
        [[UIApplication sharedApplication] userInterfaceLayoutDirection] == UIUserInterfaceLayoutDirectionRightToLeft;
}

}  // namespace

@implementation CallBarTableViewTransparentCell

+ (CGFloat)rowHeight {
    return kRowHeight;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString*)reuseIdentifier {
    if ((self = [super initWithStyle:style reuseIdentifier:reuseIdentifier]) != nil) {
        [self setBackgroundColor:[UIColor clearColor]];
        [self setSelectionStyle:UITableViewCellSelectionStyleNone];
        [self setAccessoryType:systemIsAtLeast(7) ? UITableViewCellAccessoryDetailButton
                                                  : UITableViewCellAccessoryDetailDisclosureButton];
        [self makeTexts];
        [self placeTextsInTheirContainers];
    }
    return self;
}

- (void)dealloc {
    [_nameLabel release];
    [_kindLabel release];
    [_dateLabel release];
    [_typeIcon release];
    [_mirroredTexts release];
    [_deleteControl release];
    [super dealloc];
}

- (void)makeTexts {
    const NSTextAlignment leading = rightToLeft() ? NSTextAlignmentRight : NSTextAlignmentLeft;
    Class nameClass = systemIsAtLeast(8) ? [UITableViewLabel class] : [UILabel class];
    _nameLabel = [[nameClass alloc] initWithFrame:CGRectZero];
    [_nameLabel setFont:[UIFont systemFontOfSize:17]];
    [_nameLabel setTextAlignment:leading];
    _kindLabel = [[UILabel alloc] initWithFrame:CGRectZero];
    [_kindLabel setFont:[UIFont systemFontOfSize:13]];
    [_kindLabel setTextColor:CallBarSecondaryTextColor()];
    [_kindLabel setTextAlignment:leading];
    _dateLabel = [[UIDateLabel alloc] initWithFrame:CGRectZero];
    [_dateLabel setFont:[UIFont systemFontOfSize:14]];
    [_dateLabel setTextColor:CallBarSecondaryTextColor()];
    _typeIcon = [[UIImageView alloc] initWithImage:CallBarOutgoingIcon()];
    [_typeIcon setHidden:YES];
}

- (void)placeTextsInTheirContainers {
    UIView* content = [self contentView];
    UIView* beside = content;
    if (rightToLeft()) {
        _mirroredTexts = [[UIView alloc] initWithFrame:[content bounds]];
        [content addSubview:_mirroredTexts];
        content = beside = _mirroredTexts;
    } else if (systemIsAtLeast(7)) {
        beside = [content superview];
    }
    [content addSubview:_nameLabel];
    [content addSubview:_typeIcon];
    [beside addSubview:_kindLabel];
    [beside addSubview:_dateLabel];
}

- (UILabel*)nameLabel {
    return _nameLabel;
}

- (UILabel*)kindLabel {
    return _kindLabel;
}

- (UIDateLabel*)dateLabel {
    return _dateLabel;
}

- (UIImageView*)typeIcon {
    return _typeIcon;
}

- (void)layoutSubviews {
    [super layoutSubviews];
    const CGSize size = [self bounds].size;
    [[self contentView] setFrame:CGRectMake(0, 0, size.width, size.height)];
    const bool editing = [self isEditing];
    UIView* accessory = [self _defaultAccessoryView];
    // While editing the delete control takes the accessory's place, which waits beyond the edge.
    const CGFloat accessoryX = editing ? size.width : size.width - kAccessoryInset;
    [accessory setFrame:CGRectMake(accessoryX, (size.height - kAccessorySide) / 2, kAccessorySide, kAccessorySide)];
    [self showDeleteControl:editing];
    if (rightToLeft()) {
        [self layOutTextsFromTheRight:size.width - (editing ? kMirroredTextEndEditing : kMirroredTextEnd)];
    } else {
        [self layOutTextsFrom:systemIsAtLeast(7) ? kMargin : kWideMargin
                           to:size.width - (editing ? kDeleteInset : kAccessoryInset) - kGap];
    }
}

- (void)layOutTextsFrom:(CGFloat)left to:(CGFloat)right {
    [_dateLabel sizeToFit];
    [_kindLabel sizeToFit];
    const CGSize date = [_dateLabel bounds].size;
    const CGSize kind = [_kindLabel bounds].size;
    const CGSize icon = [_typeIcon bounds].size;
    const CGFloat nameHeight = [[_nameLabel font] lineHeight];
    [_dateLabel setFrame:CGRectMake(right - date.width, (kRowHeight - date.height) / 2, date.width, date.height)];
    [_nameLabel setFrame:CGRectMake(left, kNameTop, std::max(0.0, right - date.width - kGap - left), nameHeight)];
    [_kindLabel setFrame:CGRectMake(left, kKindTop, kind.width, kind.height)];
    [_typeIcon setFrame:CGRectMake(left + kind.width + kIconGap, kKindTop + kIconDrop, icon.width, icon.height)];
}

- (void)layOutTextsFromTheRight:(CGFloat)right {
    [_mirroredTexts setFrame:[[self contentView] bounds]];
    [_dateLabel sizeToFit];
    [_kindLabel sizeToFit];
    const CGSize date = [_dateLabel bounds].size;
    const CGSize kind = [_kindLabel bounds].size;
    const CGSize icon = [_typeIcon bounds].size;
    const CGFloat nameLeft = kMargin + date.width + kGap;
    const CGFloat nameHeight = [[_nameLabel font] lineHeight];
    [_dateLabel setFrame:CGRectMake(kMargin, (kRowHeight - date.height) / 2, date.width, date.height)];
    [_nameLabel setFrame:CGRectMake(nameLeft, kNameTop, std::max(0.0, right - nameLeft), nameHeight)];
    [_kindLabel setFrame:CGRectMake(right - kind.width, kKindTop, kind.width, kind.height)];
    [_typeIcon
        setFrame:CGRectMake(right - kind.width - kIconGap - icon.width, kKindTop + kIconDrop, icon.width, icon.height)];
}

- (void)showDeleteControl:(bool)shown {
    if (shown && _deleteControl == nil) {
        _deleteControl = [[CallBarDeleteControl alloc] initWithFrame:CGRectZero];
        [self addSubview:_deleteControl];
    }
    [_deleteControl setHidden:!shown];
    const CGSize size = [self bounds].size;
    [_deleteControl setFrame:CGRectMake(size.width - kAccessoryInset + 4, (size.height - kAccessorySide) / 2,
                                        kAccessorySide, kAccessorySide)];
}

@end
