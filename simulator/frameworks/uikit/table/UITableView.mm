#include "simulator/frameworks/uikit/table/UITableView.h"

#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/UIGraphics.h"
#include "simulator/frameworks/uikit/graphics/UIScreen.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/table/UITableViewInternals.h"
#include "simulator/frameworks/uikit/table/UITableViewParts.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

@interface UITableView (UITableViewInternals) <UITableViewInternals>
@end

namespace {

BOOL wrapsCells() {
    const int version = uikit::systemMajorVersion();
    return version >= 7 && version <= 10;
}

}  // namespace

@implementation UITableView

@dynamic delegate;
@synthesize style = _style;
@synthesize dataSource = _dataSource;
@synthesize rowHeight = _rowHeight;
@synthesize sectionHeaderHeight = _sectionHeaderHeight;
@synthesize separatorStyle = _separatorStyle;
@synthesize separatorColor = _separatorColor;
@synthesize separatorInset = _separatorInset;
@synthesize tableHeaderView = _tableHeaderView;
@synthesize tableFooterView = _tableFooterView;
@synthesize editing = _editing;

- (instancetype)initWithFrame:(CGRect)frame {
    return [self initWithFrame:frame style:UITableViewStylePlain];
}

- (instancetype)initWithFrame:(CGRect)frame style:(UITableViewStyle)style {
    self = [super initWithFrame:frame];
    if (self) {
        _style = style;
        _rows = new UITableViewRowMap;
        _reusableCells = [[NSMutableDictionary alloc] init];
        _cellClasses = [[NSMutableDictionary alloc] init];
        _cells = [[NSMutableDictionary alloc] init];
        _headers = [[NSMutableDictionary alloc] init];
        _footers = [[NSMutableDictionary alloc] init];
        _rowHeight = 44;
        _sectionHeaderHeight = style == UITableViewStyleGrouped ? 38 : uikit::systemMajorVersion() >= 8 ? 28 : 22;
        _separatorStyle = UITableViewCellSeparatorStyleSingleLine;
        _separatorColor = [[UIColor colorWithRed:0.783 green:0.78 blue:0.8 alpha:1] retain];
        _separatorInset = UIEdgeInsetsMake(0, uikit::rowInset(), 0, 0);
        _needsReload = YES;
        const BOOL grouped = style == UITableViewStyleGrouped;
        [self setBackgroundColor:grouped ? [UIColor colorWithRed:0.937 green:0.937 blue:0.957 alpha:1]
                                         : [UIColor whiteColor]];
        if (wrapsCells()) {
            _wrapperView = [[UITableViewWrapperView alloc] initWithFrame:[self bounds]];
            [self addSubview:_wrapperView];
        }
    }
    return self;
}

- (void)dealloc {
    delete _rows;
    [_reusableCells release];
    [_cellClasses release];
    [_cells release];
    [_headers release];
    [_footers release];
    [_wrapperView release];
    [_tableHeaderView release];
    [_tableFooterView release];
    [_index release];
    [_separatorColor release];
    [super dealloc];
}

- (void)setDataSource:(id<UITableViewDataSource>)dataSource {
    [self _requireThread:_cmd];
    _dataSource = dataSource;
    [self reloadData];
}

- (void)setRowHeight:(CGFloat)height {
    [self _requireThread:_cmd];
    _rowHeight = height;
    [self _forgetRows];
}

- (void)setSectionHeaderHeight:(CGFloat)height {
    [self _requireThread:_cmd];
    _sectionHeaderHeight = height;
    [self _forgetRows];
}

- (void)setSeparatorStyle:(UITableViewCellSeparatorStyle)style {
    [self _requireThread:_cmd];
    _separatorStyle = style;
    [self setNeedsLayout];
}

- (void)setSeparatorColor:(UIColor*)color {
    [self _requireThread:_cmd];
    ASSIGN(_separatorColor, color);
    [self setNeedsLayout];
}

- (void)setSeparatorInset:(UIEdgeInsets)inset {
    [self _requireThread:_cmd];
    _separatorInset = inset;
    [self setNeedsLayout];
}

- (void)_replace:(UIView**)slot with:(UIView*)view {
    if (view != *slot) {
        [*slot removeFromSuperview];
        [view retain];
        [*slot release];
        *slot = view;
        if (view) [self addSubview:view];
    }
    [self _forgetRows];
}

- (void)setTableHeaderView:(UIView*)view {
    [self _requireThread:_cmd];
    [self _replace:&_tableHeaderView with:view];
}

- (void)setTableFooterView:(UIView*)view {
    [self _requireThread:_cmd];
    [self _replace:&_tableFooterView with:view];
}

- (void)setEditing:(BOOL)editing {
    [self setEditing:editing animated:NO];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
    [self _requireThread:_cmd];
    _editing = editing;
    for (NSIndexPath* indexPath in [_cells allKeys]) {
        [self _applyEditingTo:[_cells objectForKey:indexPath] at:indexPath];
    }
    [self setNeedsLayout];
}

- (void)reloadData {
    [self _requireThread:_cmd];
    [self _recycleAllCells];
    [self _forgetHeaders];
    [self _forgetRows];
}

- (void)reloadRowsAtIndexPaths:(NSArray*)indexPaths withRowAnimation:(UITableViewRowAnimation)animation {
    [self _requireThread:_cmd];
    for (NSIndexPath* indexPath in indexPaths) [self _recycleCellAt:indexPath];
    [self _forgetRows];
}

- (void)registerClass:(Class)cellClass forCellReuseIdentifier:(NSString*)identifier {
    cellClass ? [_cellClasses setObject:cellClass forKey:identifier] : [_cellClasses removeObjectForKey:identifier];
}

- (void)layoutSubviews {
    [super layoutSubviews];
    [_wrapperView setFrame:CGRectMake(0, 0, [self bounds].size.width, [self bounds].size.height)];
    [self _rowMap];
    [self _placeHeaderAndFooter];
    [self _updateCells];
    [self _askForHeaders];
    [self _placeIndex];
    for (UITableViewCell* cell in [_cells allValues]) [cell setNeedsLayout];
}

- (void)_placeHeaderAndFooter {
    const CGFloat width = [self bounds].size.width;
    [_tableHeaderView setFrame:CGRectMake(0, 0, width, [_tableHeaderView frame].size.height)];
    [_tableFooterView setFrame:CGRectMake(0, [self _rowMap].bottom(), width, [_tableFooterView frame].size.height)];
}

// The index stays with the screen while the rows move under it.
- (void)_placeIndex {
    const CGRect bounds = [self bounds];
    const UIEdgeInsets inset = [self contentInset];
    const CGFloat width = [_index frame].size.width;
    const CGFloat x = uikit::mirrorsViews() ? bounds.origin.x : CGRectGetMaxX(bounds) - width;
    [_index setFrame:CGRectMake(x, bounds.origin.y + inset.top, width, bounds.size.height - inset.top - inset.bottom)];
}

// A plain table rules the room below its last row as if more rows were to come.
- (void)drawRect:(CGRect)rect {
    if (_style != UITableViewStylePlain || _separatorStyle == UITableViewCellSeparatorStyleNone) return;
    if (_tableFooterView || _rowHeight <= 0) return;
    const CGFloat line = 1 / [[UIScreen mainScreen] scale];
    [_separatorColor set];
    CGFloat y = [self _rowMap].bottom() + _rowHeight;
    while (y < CGRectGetMaxY(rect)) {
        UIRectFill(CGRectMake(_separatorInset.left, y - line, rect.size.width - _separatorInset.left, line));
        y += _rowHeight;
    }
}

@end
