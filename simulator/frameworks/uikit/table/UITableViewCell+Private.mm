#include "simulator/frameworks/uikit/table/UITableViewCell+Private.h"

#include "simulator/frameworks/uikit/graphics/UIColor.h"

@implementation UITableViewCell (UITableViewCellPrivate)

- (void)_setEditingStyle:(UITableViewCellEditingStyle)style {
    _editingStyle = style;
}

- (void)_setSeparatorColor:(UIColor*)color {
    if (color == [_separatorView backgroundColor]) return;
    if (color && !_separatorView) {
        _separatorView = [[UIView alloc] initWithFrame:CGRectZero];
        [[_contentView superview] addSubview:_separatorView];
    }
    [_separatorView setBackgroundColor:color];
    [_separatorView setHidden:color == nil];
    [self setNeedsLayout];
}

- (void)_setSectionEdges:(UITableViewCellSectionEdges)edges {
    _sectionEdges = edges;
    if (edges & UITableViewCellFirstOfSection && !_topLineView) {
        _topLineView = [[UIView alloc] initWithFrame:CGRectZero];
        [[_contentView superview] addSubview:_topLineView];
    }
    [_topLineView setBackgroundColor:[_separatorView backgroundColor]];
    [_topLineView setHidden:!(edges & UITableViewCellFirstOfSection)];
    [self setNeedsLayout];
}

- (void)_setTableSeparatorInset:(UIEdgeInsets)inset {
    if (_hasOwnSeparatorInset) return;
    [self setSeparatorInset:inset];
    _hasOwnSeparatorInset = NO;
}

- (void)_setIndexWidth:(CGFloat)width {
    if (width == _indexWidth) return;
    _indexWidth = width;
    [self setNeedsLayout];
}

@end
