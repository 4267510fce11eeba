#include <algorithm>
#include <vector>

#include "simulator/frameworks/uikit/table/UITableView.h"
#include "simulator/frameworks/uikit/table/UITableViewInternals.h"
#include "simulator/frameworks/uikit/table/UITableViewParts.h"

@interface UITableView (UITableViewInternals) <UITableViewInternals>
@end

namespace {

constexpr CGFloat kIndexWidth = 15;

NSIndexPath* pathOf(const UITableViewRowMap::Row& row) {
    return [NSIndexPath indexPathForRow:(NSInteger)row.row inSection:(NSInteger)row.section];
}

}  // namespace

@implementation UITableView (UITableViewRows)

- (void)_forgetRows {
    _needsReload = YES;
    [self setNeedsLayout];
}

- (UITableViewRowMap&)_rowMap {
    const BOOL wrapsAnew = _style == UITableViewStyleGrouped && _rows->width != [self bounds].size.width;
    if (_needsReload || wrapsAnew) {
        _needsReload = NO;
        [self _loadRows];
        [self _loadIndex];
    }
    return *_rows;
}

- (CGSize)contentSize {
    const CGFloat footer = _tableFooterView ? [_tableFooterView frame].size.height : 0;
    return CGSizeMake([self bounds].size.width, [self _rowMap].bottom() + footer);
}

- (NSInteger)_sectionCount {
    const BOOL knowsSections = [(id)_dataSource respondsToSelector:@selector(numberOfSectionsInTableView:)];
    return knowsSections ? [_dataSource numberOfSectionsInTableView:self] : 1;
}

- (void)_loadRows {
    *_rows = UITableViewRowMap{};
    _rows->width = [self bounds].size.width;
    _rows->top = _tableHeaderView ? [_tableHeaderView frame].size.height : 0;
    if (!_dataSource) return;
    const NSInteger sections = [self _sectionCount];
    for (NSInteger section = 0; section < sections; ++section) {
        _rows->addSection([self _headerHeightOf:section], [self _rowHeightsOf:section], [self _footerHeightOf:section]);
    }
}

- (std::vector<double>)_rowHeightsOf:(NSInteger)section {
    const NSInteger count = [_dataSource tableView:self numberOfRowsInSection:section];
    std::vector<double> heights((size_t)std::max<NSInteger>(0, count), _rowHeight);
    if (![(id)[self delegate] respondsToSelector:@selector(tableView:heightForRowAtIndexPath:)]) return heights;
    for (NSInteger row = 0; row < count; ++row) {
        NSIndexPath* indexPath = [NSIndexPath indexPathForRow:row inSection:section];
        const CGFloat height = [[self delegate] tableView:self heightForRowAtIndexPath:indexPath];
        if (height >= 0) heights[(size_t)row] = height;
    }
    return heights;
}

- (void)_loadIndex {
    NSArray* titles = nil;
    if ([(id)_dataSource respondsToSelector:@selector(sectionIndexTitlesForTableView:)]) {
        titles = [_dataSource sectionIndexTitlesForTableView:self];
    }
    if ([titles count] == 0) {
        [_index removeFromSuperview];
        [_index release];
        _index = nil;
        return;
    }
    if (!_index) {
        _index = [[UITableViewIndex alloc] initWithFrame:CGRectMake(0, 0, kIndexWidth, 0)];
        [self addSubview:_index];
    }
    [_index setTitles:titles];
}

- (NSInteger)numberOfSections {
    return (NSInteger)[self _rowMap].sections.size();
}

- (const UITableViewRowMap::Section&)_section:(NSInteger)section {
    const UITableViewRowMap& rows = [self _rowMap];
    if (section < 0 || (size_t)section >= rows.sections.size()) {
        [NSException raise:NSRangeException
                    format:@"UITableView: section %ld of %lu", (long)section, (unsigned long)rows.sections.size()];
    }
    return rows.sections[(size_t)section];
}

- (NSInteger)numberOfRowsInSection:(NSInteger)section {
    return (NSInteger)[self _section:section].rowCount();
}

- (CGRect)rectForRowAtIndexPath:(NSIndexPath*)indexPath {
    const UITableViewRowMap::Section& section = [self _section:[indexPath section]];
    const NSInteger row = [indexPath row];
    if (row < 0 || (size_t)row >= section.rowCount()) {
        [NSException raise:NSRangeException
                    format:@"UITableView: row %ld of %lu", (long)row, (unsigned long)section.rowCount()];
    }
    const double top = section.rowEdges[(size_t)row];
    return CGRectMake(0, top, [self bounds].size.width, section.rowEdges[(size_t)row + 1] - top);
}

- (NSArray*)indexPathsForRowsInRect:(CGRect)rect {
    NSMutableArray* paths = [NSMutableArray array];
    for (const UITableViewRowMap::Row& row : [self _rowMap].rowsBetween(CGRectGetMinY(rect), CGRectGetMaxY(rect))) {
        [paths addObject:pathOf(row)];
    }
    return paths;
}

- (NSIndexPath*)indexPathForRowAtPoint:(CGPoint)point {
    for (NSIndexPath* path in [self indexPathsForRowsInRect:CGRectMake(point.x, point.y, 1, 1)]) {
        if (CGRectContainsPoint([self rectForRowAtIndexPath:path], point)) return path;
    }
    return nil;
}

- (void)scrollToRowAtIndexPath:(NSIndexPath*)indexPath
              atScrollPosition:(UITableViewScrollPosition)position
                      animated:(BOOL)animated {
    const CGRect row = [self rectForRowAtIndexPath:indexPath];
    if (position == UITableViewScrollPositionNone) {
        [self scrollRectToVisible:row animated:animated];
        return;
    }
    const UIEdgeInsets inset = [self contentInset];
    const CGFloat room = [self bounds].size.height - inset.top - inset.bottom;
    CGFloat above = 0;
    if (position == UITableViewScrollPositionTop && _style == UITableViewStylePlain) {
        above = [self rectForHeaderInSection:[indexPath section]].size.height;
    }
    if (position == UITableViewScrollPositionMiddle) above = (room - row.size.height) / 2;
    if (position == UITableViewScrollPositionBottom) above = room - row.size.height;
    const CGFloat highest = -inset.top;
    const CGFloat lowest = std::max(highest, [self contentSize].height + inset.bottom - [self bounds].size.height);
    const CGFloat y = std::clamp(row.origin.y - above - inset.top, highest, lowest);
    [self setContentOffset:CGPointMake(0, y) animated:animated];
}

@end
