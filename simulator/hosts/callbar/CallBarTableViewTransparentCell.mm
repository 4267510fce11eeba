#import "simulator/hosts/callbar/CallBarTableViewTransparentCell.h"

#import "simulator/frameworks/contacts_ui/reading_direction.h"
#import "simulator/hosts/callbar/CallBarDrawing.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat kRowHeight = 48;
constexpr CGFloat kNameTop = 5;
constexpr CGFloat kKindTop = 27;
constexpr CGFloat kMargin = 15;
constexpr CGFloat kWideMargin = 50;
constexpr CGFloat kGap = 8;
constexpr CGFloat kIconGap = 5;
constexpr CGFloat kIconDrop = 4;
constexpr CGFloat kEdge = 12;  // from the accessory or the delete control to the row's edge
constexpr CGFloat kMirroredDeleteEdge = 4;
constexpr CGFloat kDeleteSide = 22;
constexpr CGFloat kMirroredMargin = 56;  // between the accessory and texts that read from the right
constexpr CGFloat kMirroredEditingMargin = 78;

bool systemIsAtLeast(int major) { return [[[UIDevice currentDevice] systemVersion] intValue] >= major; }

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
    const NSTextAlignment leading = ABUIReadsFromTheRight() ? NSTextAlignmentRight : NSTextAlignmentLeft;
    Class nameClass = [UILabel class];
    if (systemIsAtLeast(8)) nameClass = [UITableViewLabel class];
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
    [_dateLabel setTextAlignment:ABUIReadsFromTheRight() ? NSTextAlignmentLeft : NSTextAlignmentRight];
    _typeIcon = [[UIImageView alloc] initWithImage:CallBarOutgoingIcon()];
    [_typeIcon setHidden:YES];
}

- (void)placeTextsInTheirContainers {
    UIView* content = [self contentView];
    UIView* beside = content;
    if (ABUIReadsFromTheRight()) {
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
    const CGFloat accessoryX = [self placeAccessory];
    [self placeDeleteControl];
    if (ABUIReadsFromTheRight()) {
        [self layOutTextsFromTheRight:accessoryX - ([self isEditing] ? kMirroredEditingMargin : kMirroredMargin)];
    } else {
        const CGFloat end = [self isEditing] ? size.width - kEdge - kDeleteSide : accessoryX;
        [self layOutTextsFrom:systemIsAtLeast(7) ? kMargin : kWideMargin to:end - kGap];
    }
}

// Returns the accessory's x. While editing, the delete control takes its place and it waits beyond the edge.
- (CGFloat)placeAccessory {
    UIView* accessory = [self _defaultAccessoryView];
    const CGSize room = [self bounds].size;
    const CGSize size = [accessory bounds].size;
    const CGFloat x = [self isEditing] ? room.width : room.width - kEdge - size.width;
    [accessory setFrame:CGRectMake(x, (room.height - size.height) / 2, size.width, size.height)];
    return x;
}

- (void)placeDeleteControl {
    if ([self isEditing] && _deleteControl == nil) {
        _deleteControl = [[CallBarDeleteControl alloc] initWithFrame:CGRectZero];
        [self addSubview:_deleteControl];
    }
    [_deleteControl setHidden:![self isEditing]];
    const CGSize room = [self bounds].size;
    const CGFloat edge = ABUIReadsFromTheRight() ? kMirroredDeleteEdge : kEdge;
    [_deleteControl setFrame:CGRectMake(room.width - edge - kDeleteSide, (room.height - kDeleteSide) / 2, kDeleteSide,
                                        kDeleteSide)];
}

- (void)layOutTextsFrom:(CGFloat)left to:(CGFloat)right {
    [_dateLabel sizeToFit];
    [_kindLabel sizeToFit];
    const CGSize date = [_dateLabel bounds].size;
    const CGSize kind = [_kindLabel bounds].size;
    const CGSize icon = [_typeIcon bounds].size;
    const CGFloat nameHeight = std::ceil([[_nameLabel font] lineHeight]);
    // The gap belongs to the date, so that it stays where a name is made to end at the date.
    const CGFloat dateX = right - date.width - kGap;
    [_dateLabel setFrame:CGRectMake(dateX, (kRowHeight - date.height) / 2, date.width + kGap, date.height)];
    [_nameLabel setFrame:CGRectMake(left, kNameTop, std::max<CGFloat>(0, dateX - left), nameHeight)];
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
    const CGFloat nameHeight = std::ceil([[_nameLabel font] lineHeight]);
    [_dateLabel setFrame:CGRectMake(kMargin, (kRowHeight - date.height) / 2, date.width, date.height)];
    [_nameLabel setFrame:CGRectMake(nameLeft, kNameTop, std::max<CGFloat>(0, right - nameLeft), nameHeight)];
    [_kindLabel setFrame:CGRectMake(right - kind.width, kKindTop, kind.width, kind.height)];
    [_typeIcon
        setFrame:CGRectMake(right - kind.width - kIconGap - icon.width, kKindTop + kIconDrop, icon.width, icon.height)];
}

@end
