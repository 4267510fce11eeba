#include "simulator/frameworks/uikit/table/UITableView.h"
#include "simulator/frameworks/uikit/table/UITableViewCell+Private.h"
#include "simulator/frameworks/uikit/table/UITableViewInternals.h"
#include "simulator/frameworks/uikit/table/UITableViewParts.h"

@interface UITableView (UITableViewInternals) <UITableViewInternals>
@end

@implementation UITableView (UITableViewCells)

- (UIView*)_cellContainer {
    return _wrapperView ? _wrapperView : self;
}

// A cell without an identifier has nobody to wait for.
- (void)_recycleCellAt:(NSIndexPath*)indexPath {
    UITableViewCell* cell = [_cells objectForKey:indexPath];
    if (!cell) return;
    NSString* identifier = [cell reuseIdentifier];
    if (identifier) {
        NSMutableArray* waiting = [_reusableCells objectForKey:identifier];
        if (!waiting) {
            waiting = [NSMutableArray array];
            [_reusableCells setObject:waiting forKey:identifier];
        }
        [waiting addObject:cell];
    }
    [cell removeFromSuperview];
    [_cells removeObjectForKey:indexPath];
}

- (void)_recycleAllCells {
    for (NSIndexPath* indexPath in [self _shownPaths]) [self _recycleCellAt:indexPath];
}

- (NSArray*)_shownPaths {
    return [[_cells allKeys] sortedArrayUsingSelector:@selector(compare:)];
}

- (id)dequeueReusableCellWithIdentifier:(NSString*)identifier {
    NSMutableArray* waiting = [_reusableCells objectForKey:identifier];
    UITableViewCell* cell = [[[waiting lastObject] retain] autorelease];
    if (cell) {
        [waiting removeLastObject];
        [cell prepareForReuse];
        return cell;
    }
    Class cellClass = [_cellClasses objectForKey:identifier];
    if (!cellClass) return nil;
    return [[[cellClass alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:identifier] autorelease];
}

- (id)dequeueReusableCellWithIdentifier:(NSString*)identifier forIndexPath:(NSIndexPath*)indexPath {
    id cell = [self dequeueReusableCellWithIdentifier:identifier];
    if (!cell) {
        [NSException raise:NSInternalInconsistencyException
                    format:@"unable to dequeue a cell with identifier %@ - must register a class for the identifier",
                           identifier];
    }
    return cell;
}

- (UITableViewCellEditingStyle)_editingStyleAt:(NSIndexPath*)indexPath {
    if ([(id)[self delegate] respondsToSelector:@selector(tableView:editingStyleForRowAtIndexPath:)]) {
        return [[self delegate] tableView:self editingStyleForRowAtIndexPath:indexPath];
    }
    return UITableViewCellEditingStyleDelete;
}

- (BOOL)_canEditAt:(NSIndexPath*)indexPath {
    return ![(id)_dataSource respondsToSelector:@selector(tableView:canEditRowAtIndexPath:)] ||
           [_dataSource tableView:self canEditRowAtIndexPath:indexPath];
}

- (void)_applyEditingTo:(UITableViewCell*)cell at:(NSIndexPath*)indexPath {
    const BOOL editing = _editing && [self _canEditAt:indexPath];
    [cell _setEditingStyle:editing ? [self _editingStyleAt:indexPath] : UITableViewCellEditingStyleNone];
    if ([cell isEditing] != editing) [cell setEditing:editing animated:NO];
}

- (UITableViewCellSectionEdges)_edgesAt:(NSIndexPath*)indexPath {
    const NSInteger last = [self numberOfRowsInSection:[indexPath section]] - 1;
    return ([indexPath row] == 0 ? UITableViewCellFirstOfSection : UITableViewCellInSection) |
           ([indexPath row] == last ? UITableViewCellLastOfSection : UITableViewCellInSection);
}

- (void)_dress:(UITableViewCell*)cell at:(NSIndexPath*)indexPath {
    const BOOL separated = _separatorStyle != UITableViewCellSeparatorStyleNone;
    [cell setFrame:[self rectForRowAtIndexPath:indexPath]];
    [cell _setSeparatorColor:separated ? _separatorColor : nil];
    if (_style == UITableViewStyleGrouped) [cell _setSectionEdges:separated ? [self _edgesAt:indexPath] : 0];
    [cell _setTableSeparatorInset:_separatorInset];
    [cell _setIndexWidth:_index ? [(UIView*)_index frame].size.width : 0];
}

- (void)_showCellAt:(NSIndexPath*)indexPath {
    UITableViewCell* cell = [_dataSource tableView:self cellForRowAtIndexPath:indexPath];
    if (!cell) {
        [NSException raise:NSInternalInconsistencyException
                    format:@"UITableView dataSource must return a cell from tableView:cellForRowAtIndexPath:"];
    }
    [_cells setObject:cell forKey:indexPath];
    [self _dress:cell at:indexPath];
    [self _applyEditingTo:cell at:indexPath];
    if ([(id)[self delegate] respondsToSelector:@selector(tableView:willDisplayCell:forRowAtIndexPath:)]) {
        [[self delegate] tableView:self willDisplayCell:cell forRowAtIndexPath:indexPath];
    }
    // Behind the section headers, which stand in the table itself.
    [[self _cellContainer] insertSubview:cell atIndex:0];
}

- (void)_updateCells {
    NSArray* wanted = [self indexPathsForRowsInRect:[self bounds]];
    NSSet* wantedSet = [NSSet setWithArray:wanted];
    for (NSIndexPath* indexPath in [self _shownPaths]) {
        if (![wantedSet containsObject:indexPath]) [self _recycleCellAt:indexPath];
    }
    for (NSIndexPath* indexPath in wanted) {
        UITableViewCell* cell = [_cells objectForKey:indexPath];
        cell ? [self _dress:cell at:indexPath] : [self _showCellAt:indexPath];
    }
}

- (NSArray*)indexPathsForVisibleRows {
    [self _rowMap];
    [self _updateCells];
    return [self _shownPaths];
}

- (NSArray*)visibleCells {
    NSMutableArray* cells = [NSMutableArray array];
    for (NSIndexPath* indexPath in [self indexPathsForVisibleRows]) [cells addObject:[_cells objectForKey:indexPath]];
    return cells;
}

- (NSIndexPath*)indexPathForCell:(UITableViewCell*)cell {
    for (NSIndexPath* indexPath in [self _shownPaths]) {
        if ([_cells objectForKey:indexPath] == cell) return indexPath;
    }
    return nil;
}

- (UITableViewCell*)cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    return [_cells objectForKey:indexPath];
}

- (void)selectRowAtIndexPath:(NSIndexPath*)indexPath
                    animated:(BOOL)animated
              scrollPosition:(UITableViewScrollPosition)position {
    if (position != UITableViewScrollPositionNone) {
        [self scrollToRowAtIndexPath:indexPath atScrollPosition:position animated:animated];
    }
    [[self cellForRowAtIndexPath:indexPath] setSelected:YES animated:animated];
}

- (void)deselectRowAtIndexPath:(NSIndexPath*)indexPath animated:(BOOL)animated {
    [[self cellForRowAtIndexPath:indexPath] setSelected:NO animated:animated];
}

@end
