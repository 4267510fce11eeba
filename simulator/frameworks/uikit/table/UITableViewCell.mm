#include "simulator/frameworks/uikit/table/UITableViewCell.h"

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/table/UITableViewCellParts.h"
#include "simulator/frameworks/uikit/view/UIImageView.h"
#include "simulator/frameworks/uikit/view/UILabel.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

struct LabelLook {
    CGFloat textSize, detailSize;
    BOOL detailIsGray;
};

LabelLook lookOf(UITableViewCellStyle style) {
    switch (style) {
        case UITableViewCellStyleSubtitle:
            return {17, 12, NO};
        case UITableViewCellStyleValue1:
            return {17, 17, YES};
        case UITableViewCellStyleValue2:
            return {12, 15, NO};
        case UITableViewCellStyleDefault:
            break;
    }
    return {17, 17, NO};
}

}  // namespace

@implementation UITableViewCell

@synthesize reuseIdentifier = _reuseIdentifier;
@synthesize contentView = _contentView;
@synthesize accessoryType = _accessoryType;
@synthesize accessoryView = _accessoryView;
@synthesize backgroundView = _backgroundView;
@synthesize selectedBackgroundView = _selectedBackgroundView;
@synthesize selectionStyle = _selectionStyle;
@synthesize selected = _selected;
@synthesize highlighted = _highlighted;
@synthesize separatorInset = _separatorInset;
@synthesize editing = _editing;
@synthesize editingStyle = _editingStyle;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [self initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil];
    if (self) [self setFrame:frame];
    return self;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString*)reuseIdentifier {
    self = [super initWithFrame:CGRectMake(0, 0, 320, 44)];
    if (self) {
        _style = style;
        _reuseIdentifier = [reuseIdentifier copy];
        _selectionStyle = UITableViewCellSelectionStyleDefault;
        _separatorInset = UIEdgeInsetsMake(0, uikit::rowInset(), 0, 0);
        _contentView = [[UITableViewCellContentView alloc] initWithFrame:[self bounds]];
        if (uikit::systemMajorVersion() == 7) {
            _scrollView = [[UITableViewCellScrollView alloc] initWithFrame:[self bounds]];
            [self addSubview:_scrollView];
        }
        [[self _container] addSubview:_contentView];
        [self setBackgroundColor:[UIColor whiteColor]];
    }
    return self;
}

- (void)dealloc {
    [_reuseIdentifier release];
    [_scrollView release];
    [_contentView release];
    [_textLabel release];
    [_detailTextLabel release];
    [_imageView release];
    [_accessoryView release];
    [_defaultAccessory release];
    [_separatorView release];
    [_topLineView release];
    [_backgroundView release];
    [_selectedBackgroundView release];
    [_editControl release];
    [super dealloc];
}

// Where the cell's parts stand.
- (UIView*)_container {
    return _scrollView ? (UIView*)_scrollView : self;
}

- (UILabel*)_makeLabelOfSize:(CGFloat)size {
    Class labelClass = [UILabel class];
    if (uikit::systemMajorVersion() >= 8) labelClass = [UITableViewLabel class];
    UILabel* label = [[labelClass alloc] initWithFrame:CGRectZero];
    [label setFont:[UIFont systemFontOfSize:size]];
    [label setTextAlignment:NSTextAlignmentNatural];
    [_contentView addSubview:label];
    [self setNeedsLayout];
    return label;
}

- (UILabel*)textLabel {
    if (!_textLabel) {
        _textLabel = [self _makeLabelOfSize:lookOf(_style).textSize];
        if (_style == UITableViewCellStyleValue2) [_textLabel setTextColor:[self tintColor]];
    }
    return _textLabel;
}

- (UILabel*)detailTextLabel {
    if (!_detailTextLabel && _style != UITableViewCellStyleDefault) {
        _detailTextLabel = [self _makeLabelOfSize:lookOf(_style).detailSize];
        if (lookOf(_style).detailIsGray) {
            [_detailTextLabel setTextColor:[UIColor colorWithRed:0.557 green:0.557 blue:0.576 alpha:1]];
        }
    }
    return _detailTextLabel;
}

- (UIImageView*)imageView {
    if (!_imageView) {
        _imageView = [[UIImageView alloc] initWithFrame:CGRectZero];
        [_contentView addSubview:_imageView];
    }
    return _imageView;
}

- (void)setAccessoryType:(UITableViewCellAccessoryType)type {
    [self _requireThread:_cmd];
    if (type == _accessoryType) return;
    _accessoryType = type;
    [_defaultAccessory removeFromSuperview];
    [_defaultAccessory release];
    _defaultAccessory = [UITableViewMakeAccessory(type) retain];
    if (_defaultAccessory) [[self _container] addSubview:_defaultAccessory];
    [self setNeedsLayout];
}

- (UIView*)_defaultAccessoryView {
    return _defaultAccessory;
}

// Puts `view` into the place of `*slot`, at the back of the cell's container when `behind`.
- (void)_replace:(UIView**)slot with:(UIView*)view behind:(BOOL)behind {
    if (view == *slot) return;
    [*slot removeFromSuperview];
    [view retain];
    [*slot release];
    *slot = view;
    if (view) {
        UIView* parent = behind ? self : [self _container];
        [parent insertSubview:view atIndex:behind ? 0 : (NSInteger)[[parent subviews] count]];
    }
    [self setNeedsLayout];
}

- (void)setAccessoryView:(UIView*)view {
    [self _requireThread:_cmd];
    [self _replace:&_accessoryView with:view behind:NO];
}

- (void)setBackgroundView:(UIView*)view {
    [self _requireThread:_cmd];
    [self _replace:&_backgroundView with:view behind:YES];
}

- (void)setSelectedBackgroundView:(UIView*)view {
    [self _requireThread:_cmd];
    [self _replace:&_selectedBackgroundView with:view behind:YES];
    [self _showSelection];
}

- (void)setSeparatorInset:(UIEdgeInsets)inset {
    [self _requireThread:_cmd];
    _hasOwnSeparatorInset = YES;
    if (UIEdgeInsetsEqualToEdgeInsets(_separatorInset, inset)) return;
    _separatorInset = inset;
    [self setNeedsLayout];
}

- (void)setSelected:(BOOL)selected {
    [self setSelected:selected animated:NO];
}

- (void)setSelected:(BOOL)selected animated:(BOOL)animated {
    [self _requireThread:_cmd];
    _selected = selected;
    [self _showSelection];
}

- (void)setHighlighted:(BOOL)highlighted {
    [self setHighlighted:highlighted animated:NO];
}

- (void)setHighlighted:(BOOL)highlighted animated:(BOOL)animated {
    [self _requireThread:_cmd];
    _highlighted = highlighted;
    [self _showSelection];
}

- (void)_showSelection {
    const BOOL shown = (_selected || _highlighted) && _selectionStyle != UITableViewCellSelectionStyleNone;
    if (shown && !_selectedBackgroundView) {
        UIView* gray = [[UIView alloc] initWithFrame:[self bounds]];
        [gray setBackgroundColor:[UIColor colorWithWhite:0.85 alpha:1]];
        [self _replace:&_selectedBackgroundView with:gray behind:YES];
        [gray release];
    }
    [_selectedBackgroundView setHidden:!shown];
    [_textLabel setHighlighted:shown];
    [_detailTextLabel setHighlighted:shown];
    [_imageView setHighlighted:shown];
}

- (void)setEditing:(BOOL)editing {
    [self setEditing:editing animated:NO];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
    [self _requireThread:_cmd];
    _editing = editing;
    if (editing && !_editControl) {
        _editControl = [[UITableViewCellEditControl alloc] initWithFrame:CGRectZero];
        [[self _container] addSubview:_editControl];
    }
    [_editControl setStyle:editing ? _editingStyle : UITableViewCellEditingStyleNone];
    [self setNeedsLayout];
}

- (void)prepareForReuse {
    [self setSelected:NO animated:NO];
    [self setHighlighted:NO animated:NO];
}

@end
