#include <algorithm>
#include <vector>

#include "simulator/frameworks/uikit/table/UITableView.h"
#include "simulator/frameworks/uikit/table/UITableViewInternals.h"
#include "simulator/frameworks/uikit/table/UITableViewParts.h"

@interface UITableView (UITableViewInternals) <UITableViewInternals>
@end

namespace {

constexpr CGFloat kIndexWidth = 15;
constexpr CGFloat kUntitledGroupGap = 18;

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
    if (_needsReload) {
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

- (void)_loadRows {
    *_rows = UITableViewRowMap{};
    _rows->top = _tableHeaderView ? [_tableHeaderView frame].size.height : 0;
    if (!_dataSource) return;
    const BOOL knowsSections = [(id)_dataSource respondsToSelector:@selector(numberOfSectionsInTableView:)];
    const NSInteger sections = knowsSections ? [_dataSource numberOfSectionsInTableView:self] : 1;
    for (NSInteger section = 0; section < sections; ++section) {
        _rows->addSection([self _headerHeightOf:section], [self _rowHeightsOf:section]);
    }
}

- (std::vector<double>)_rowHeightsOf:(NSInteger)section {
    const NSInteger count = [_dataSource tableView:self numberOfRowsInSection:section];
    std::vector<double> heights((size_t)std::max<NSInteger>(0, count), _rowHeight);
    if (![(id)[self delegate] respondsToSelector:@selector(tableView:heightForRowAtIndexPath:)]) return heights;
    for (NSInteger row = 0; row < count; ++row) {
        NSIndexPath* indexPath = [NSIndexPath indexPathForRow:row inSection:section];
        heights[(size_t)row] = [[self delegate] tableView:self heightForRowAtIndexPath:indexPath];
    }
    return heights;
}

- (NSString*)_titleOf:(NSInteger)section {
    if (![(id)_dataSource respondsToSelector:@selector(tableView:titleForHeaderInSection:)]) return nil;
    return [_dataSource tableView:self titleForHeaderInSection:section];
}

- (CGFloat)_headerHeightOf:(NSInteger)section {
    id<UITableViewDelegate> delegate = [self delegate];
    if ([(id)delegate respondsToSelector:@selector(tableView:heightForHeaderInSection:)]) {
        return [delegate tableView:self heightForHeaderInSection:section];
    }
    if ([self _titleOf:section]) return _sectionHeaderHeight;
    return _style == UITableViewStyleGrouped ? kUntitledGroupGap : 0;
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

- (CGRect)rectForHeaderInSection:(NSInteger)index {
    const UITableViewRowMap::Section& section = [self _section:index];
    return CGRectMake(0, section.top, [self bounds].size.width, section.headerHeight);
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

// A plain table's header stays at the top until its section's rows have gone by.
- (CGRect)_headerFrameOf:(NSInteger)index {
    CGRect frame = [self rectForHeaderInSection:index];
    if (_style == UITableViewStyleGrouped) return frame;
    const CGFloat edge = [self bounds].origin.y + [self contentInset].top;
    const CGFloat lowest = [self _section:index].bottom() - frame.size.height;
    frame.origin.y = std::max(frame.origin.y, std::min(edge, lowest));
    return frame;
}

- (UIView*)_makeHeaderOf:(NSInteger)section {
    if ([(id)[self delegate] respondsToSelector:@selector(tableView:viewForHeaderInSection:)]) {
        UIView* view = [[self delegate] tableView:self viewForHeaderInSection:section];
        if (view) return view;
    }
    NSString* title = [self _titleOf:section];
    if (!title) return nil;
    return [[[UITableViewHeaderFooterView alloc] initWithTitle:title
                                                       grouped:_style == UITableViewStyleGrouped
                                                         inset:_separatorInset.left] autorelease];
}

- (void)_askForHeaders {
    const CGRect bounds = [self bounds];
    for (NSInteger section = 0; section < [self numberOfSections]; ++section) {
        NSNumber* key = [NSNumber numberWithInteger:section];
        const CGRect frame = [self _headerFrameOf:section];
        UIView* header = [_headers objectForKey:key];
        if (frame.size.height <= 0 || !CGRectIntersectsRect(frame, bounds)) {
            [header removeFromSuperview];
            [_headers removeObjectForKey:key];
            continue;
        }
        if (!header) {
            header = [self _makeHeaderOf:section];
            if (!header) continue;
            [_headers setObject:header forKey:key];
            _index ? [self insertSubview:header belowSubview:(UIView*)_index] : [self addSubview:header];
        }
        [header setFrame:frame];
    }
}

@end
