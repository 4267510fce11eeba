#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/table/UITableView.h"
#include "simulator/frameworks/uikit/table/UITableViewInternals.h"
#include "simulator/frameworks/uikit/table/UITableViewParts.h"

@interface UITableView (UITableViewInternals) <UITableViewInternals>
@end

const CGFloat UITableViewAutomaticDimension = -1;

namespace {

// A grouped table keeps half a gap above and below each section, and a whole one above the first.
constexpr CGFloat kHalfGap = 17.5;

}  // namespace

@implementation UITableView (UITableViewHeaders)

- (NSString*)_headerTitleOf:(NSInteger)section {
    if (![(id)_dataSource respondsToSelector:@selector(tableView:titleForHeaderInSection:)]) return nil;
    return [_dataSource tableView:self titleForHeaderInSection:section];
}

- (NSString*)_footerTitleOf:(NSInteger)section {
    if (![(id)_dataSource respondsToSelector:@selector(tableView:titleForFooterInSection:)]) return nil;
    return [_dataSource tableView:self titleForFooterInSection:section];
}

- (CGFloat)_headerHeightOf:(NSInteger)section {
    id<UITableViewDelegate> delegate = [self delegate];
    if ([(id)delegate respondsToSelector:@selector(tableView:heightForHeaderInSection:)]) {
        const CGFloat height = [delegate tableView:self heightForHeaderInSection:section];
        if (height >= 0) return height;
    }
    const BOOL grouped = _style == UITableViewStyleGrouped;
    const CGFloat aboveFirst = grouped && section == 0 ? kHalfGap : 0;
    if ([self _headerTitleOf:section]) return _sectionHeaderHeight + aboveFirst;
    return grouped ? kHalfGap + aboveFirst : 0;
}

- (CGFloat)_footerHeightOf:(NSInteger)section {
    id<UITableViewDelegate> delegate = [self delegate];
    if ([(id)delegate respondsToSelector:@selector(tableView:heightForFooterInSection:)]) {
        const CGFloat height = [delegate tableView:self heightForFooterInSection:section];
        if (height >= 0) return height;
    }
    UIView* footer = [self _makeTitledFooterOf:section];
    if (footer) {
        // What follows a text keeps its own distance; behind the last one there is nothing that could.
        const CGFloat height = [footer sizeThatFits:CGSizeMake([self bounds].size.width, 0)].height;
        return section + 1 == [self _sectionCount] ? height + kHalfGap : height;
    }
    return _style == UITableViewStyleGrouped ? kHalfGap : 0;
}

- (CGRect)rectForHeaderInSection:(NSInteger)index {
    const UITableViewRowMap::Section& section = [self _section:index];
    return CGRectMake(0, section.top, [self bounds].size.width, section.headerHeight);
}

- (CGRect)rectForFooterInSection:(NSInteger)index {
    const UITableViewRowMap::Section& section = [self _section:index];
    return CGRectMake(0, section.rowsBottom(), [self bounds].size.width, section.footerHeight);
}

// A plain table's header stays at the top until its section's rows have gone by.
- (CGRect)_headerFrameOf:(NSInteger)index {
    CGRect frame = [self rectForHeaderInSection:index];
    if (_style == UITableViewStyleGrouped) return frame;
    const CGFloat edge = [self bounds].origin.y + [self contentInset].top;
    const CGFloat lowest = [self _section:index].rowsBottom() - frame.size.height;
    frame.origin.y = std::max(frame.origin.y, std::min(edge, lowest));
    return frame;
}

- (UIView*)_makeHeaderOf:(NSInteger)section {
    if ([(id)[self delegate] respondsToSelector:@selector(tableView:viewForHeaderInSection:)]) {
        UIView* view = [[self delegate] tableView:self viewForHeaderInSection:section];
        if (view) return view;
    }
    NSString* title = [self _headerTitleOf:section];
    if (!title) return nil;
    const BOOL grouped = _style == UITableViewStyleGrouped;
    return [[[UITableViewHeaderFooterView alloc] initWithTitle:title
                                                          kind:grouped ? UITableViewTitleOfGroup : UITableViewTitleOnBar
                                                         inset:_separatorInset.left] autorelease];
}

- (UIView*)_makeTitledFooterOf:(NSInteger)section {
    NSString* title = [self _footerTitleOf:section];
    if (!title) return nil;
    return [[[UITableViewHeaderFooterView alloc] initWithTitle:title
                                                          kind:UITableViewTextBelowGroup
                                                         inset:_separatorInset.left] autorelease];
}

- (UIView*)_makeFooterOf:(NSInteger)section {
    if ([(id)[self delegate] respondsToSelector:@selector(tableView:viewForFooterInSection:)]) {
        UIView* view = [[self delegate] tableView:self viewForFooterInSection:section];
        if (view) return view;
    }
    return [self _makeTitledFooterOf:section];
}

// Takes the view of a section out of sight away, and puts that of one in sight into its place.
- (void)_show:(NSMutableDictionary*)views
           of:(NSInteger)section
           in:(CGRect)frame
           by:(UIView* (*)(UITableView* table, NSInteger section))make {
    NSNumber* key = [NSNumber numberWithInteger:section];
    UIView* view = [views objectForKey:key];
    if (frame.size.height <= 0 || !CGRectIntersectsRect(frame, [self bounds])) {
        [view removeFromSuperview];
        [views removeObjectForKey:key];
        return;
    }
    if (!view) {
        view = make(self, section);
        if (!view) return;
        [views setObject:view forKey:key];
        _index ? [self insertSubview:view belowSubview:(UIView*)_index] : [self addSubview:view];
    }
    [view setFrame:frame];
}

- (void)_askForHeaders {
    const auto makeHeader = [](UITableView* table, NSInteger section) { return [table _makeHeaderOf:section]; };
    const auto makeFooter = [](UITableView* table, NSInteger section) { return [table _makeFooterOf:section]; };
    for (NSInteger section = 0; section < [self numberOfSections]; ++section) {
        [self _show:_headers of:section in:[self _headerFrameOf:section] by:makeHeader];
        [self _show:_footers of:section in:[self rectForFooterInSection:section] by:makeFooter];
    }
}

- (void)_forgetHeaders {
    for (NSMutableDictionary* views in @[ _headers, _footers ]) {
        for (UIView* view in [views allValues]) [view removeFromSuperview];
        [views removeAllObjects];
    }
}

@end
