#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIImage.h"
#include "simulator/frameworks/uikit/graphics/UIScreen.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/table/UITableViewCell+Private.h"
#include "simulator/frameworks/uikit/table/UITableViewCellParts.h"
#include "simulator/frameworks/uikit/view/UIImageView.h"
#include "simulator/frameworks/uikit/view/UILabel.h"

namespace {

constexpr CGFloat kEditWidth = 38;       // what editing moves the contents by
constexpr CGFloat kTrailingMargin = 15;  // between an accessory and the edge
constexpr CGFloat kAccessoryGap = 8;     // between the contents and an accessory
constexpr CGFloat kImageGap = 15;
constexpr CGFloat kValue2Column = 91;
constexpr CGFloat kValueGap = 6;

CGFloat hairline() { return 1 / [[UIScreen mainScreen] scale]; }

CGRect flipped(CGRect frame, CGFloat width) {
    frame.origin.x = width - frame.origin.x - frame.size.width;
    return frame;
}

// The span of a row's texts. Reading from the right turns positions around within it.
struct TextArea {
    CGFloat left, right, height;

    CGFloat width() const { return std::max<CGFloat>(0, right - left); }
    void place(UIView* view, CGFloat x, CGFloat y, CGSize size) const {
        const CGFloat from = uikit::rightToLeft() ? right - x - size.width : left + x;
        [view setFrame:CGRectMake(from, y, size.width, size.height)];
    }
};

CGSize fitted(UILabel* label, CGFloat width) {
    const CGSize size = label ? [label sizeThatFits:CGSizeZero] : CGSizeZero;
    return CGSizeMake(std::min(size.width, width), size.height);
}

void layOutSubtitle(UILabel* text, UILabel* detail, const TextArea& area) {
    const CGSize textSize = fitted(text, area.width());
    const CGSize detailSize = fitted(detail, area.width());
    const CGFloat top = std::floor((area.height - textSize.height - detailSize.height) / 2);
    if (text) area.place(text, 0, top, textSize);
    if (detail) area.place(detail, 0, top + textSize.height, detailSize);
}

void layOutValue1(UILabel* text, UILabel* detail, const TextArea& area) {
    const CGSize detailSize = fitted(detail, area.width());
    const CGFloat room = area.width() - detailSize.width - (detailSize.width > 0 ? kValueGap : 0);
    const CGSize textSize = fitted(text, std::max<CGFloat>(0, room));
    if (text) area.place(text, 0, std::floor((area.height - textSize.height) / 2), textSize);
    if (detail) {
        area.place(detail, area.width() - detailSize.width, std::floor((area.height - detailSize.height) / 2),
                   detailSize);
    }
}

void layOutValue2(UILabel* text, UILabel* detail, const TextArea& area) {
    const CGSize textSize = fitted(text, kValue2Column);
    const CGSize detailSize = fitted(detail, area.width() - kValue2Column - kValueGap);
    if (text) {
        area.place(text, kValue2Column - textSize.width, std::floor((area.height - textSize.height) / 2), textSize);
    }
    if (detail) {
        area.place(detail, kValue2Column + kValueGap, std::floor((area.height - detailSize.height) / 2), detailSize);
    }
}

}  // namespace

@implementation UITableViewCell (UITableViewCellLayout)

- (void)layoutSubviews {
    [super layoutSubviews];
    [_scrollView setFrame:[self bounds]];
    [_backgroundView setFrame:[self bounds]];
    [_selectedBackgroundView setFrame:[self bounds]];
    const CGFloat accessoryWidth = [self _layOutAccessory];
    [self _layOutEditControl];
    [self _layOutContentBeside:accessoryWidth];
    [self _layOutSeparator];
}

- (void)_place:(UIView*)view at:(CGRect)frame {
    [view setFrame:uikit::mirrorsViews() ? flipped(frame, [self bounds].size.width) : frame];
}

- (CGFloat)_editShift {
    return _editing && _editingStyle != UITableViewCellEditingStyleNone ? kEditWidth : 0;
}

// The contents' bottom leaves the separator free.
- (CGFloat)_contentHeight {
    const BOOL separated = _separatorView && ![_separatorView isHidden];
    return [self bounds].size.height - (separated ? hairline() : 0);
}

// Returns how much of the row the accessory takes.
- (CGFloat)_layOutAccessory {
    [_defaultAccessory setHidden:_accessoryView != nil];
    [self _placeAccessory:_defaultAccessory];
    [self _placeAccessory:_accessoryView];
    UIView* shown = _accessoryView ? _accessoryView : _defaultAccessory;
    if (_editing || !shown) return _indexWidth;
    return _indexWidth + [shown frame].size.width + kTrailingMargin;
}

// Editing slides accessories out beyond the edge.
- (void)_placeAccessory:(UIView*)view {
    if (!view) return;
    const CGSize room = [self bounds].size;
    const CGSize size = [view frame].size;
    const CGFloat x = _editing ? room.width : room.width - _indexWidth - kTrailingMargin - size.width;
    [self _place:view at:CGRectMake(x, std::floor(([self _contentHeight] - size.height) / 2), size.width, size.height)];
}

- (void)_layOutEditControl {
    if (!_editControl) return;
    const CGFloat shift = [self _editShift];
    const CGFloat width = kEditWidth + 9;
    [self _place:_editControl at:CGRectMake(shift > 0 ? 3 : -width, 0, width - 6, [self _contentHeight])];
}

- (void)_layOutContentBeside:(CGFloat)accessoryWidth {
    const CGFloat shift = [self _editShift];
    const CGFloat height = [self _contentHeight];
    const CGFloat width = std::max<CGFloat>(0, [self bounds].size.width - shift - accessoryWidth);
    [self _place:_contentView at:CGRectMake(shift, 0, width, height)];
    const CGFloat leading = _separatorInset.left + [self _layOutImageInHeight:height];
    const CGFloat trailing = accessoryWidth > 0 ? kAccessoryGap : kTrailingMargin;
    TextArea area{leading, width - trailing, height};
    if (uikit::mirrorsViews()) area = {trailing, width - leading, height};
    [self _layOutLabelsIn:area.left < area.right ? area : TextArea{area.left, area.left, height}];
}

// Returns how far the picture moves the texts.
- (CGFloat)_layOutImageInHeight:(CGFloat)height {
    UIImage* image = [_imageView image];
    if (!image) {
        [_imageView setFrame:CGRectZero];
        return 0;
    }
    const CGSize natural = [image size];
    const CGFloat factor = std::min<CGFloat>(1, height / natural.height);
    const CGSize size = CGSizeMake(natural.width * factor, natural.height * factor);
    const CGRect frame =
        CGRectMake(_separatorInset.left, std::floor((height - size.height) / 2), size.width, size.height);
    const CGFloat width = [_contentView bounds].size.width;
    [_imageView setFrame:uikit::mirrorsViews() ? flipped(frame, width) : frame];
    return size.width + kImageGap;
}

- (void)_layOutLabelsIn:(const TextArea&)area {
    switch (_style) {
        case UITableViewCellStyleDefault:
            [_textLabel setFrame:CGRectMake(area.left, 0, area.width(), area.height)];
            return;
        case UITableViewCellStyleSubtitle:
            layOutSubtitle(_textLabel, _detailTextLabel, area);
            return;
        case UITableViewCellStyleValue1:
            layOutValue1(_textLabel, _detailTextLabel, area);
            return;
        case UITableViewCellStyleValue2:
            layOutValue2(_textLabel, _detailTextLabel, area);
            return;
    }
}

- (void)_layOutSeparator {
    const CGSize room = [self bounds].size;
    [_topLineView setFrame:CGRectMake(0, 0, room.width, hairline())];
    if (!_separatorView) return;
    const BOOL wholeWidth = (_sectionEdges & UITableViewCellLastOfSection) != 0;
    const CGFloat left = wholeWidth ? 0 : _separatorInset.left + [self _editShift];
    const CGFloat right = wholeWidth ? 0 : _separatorInset.right;
    [self _place:_separatorView at:CGRectMake(left, room.height - hairline(), room.width - left - right, hairline())];
}

@end
