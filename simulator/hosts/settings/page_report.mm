#include "simulator/hosts/settings/page_report.h"

namespace hosts {
namespace {

id orNull(id value) { return value != nil ? value : (id)[NSNull null]; }

NSNumber* number(CGFloat value) { return [NSNumber numberWithDouble:value]; }

UISwitch* switchOf(UITableViewCell* cell) {
    UIView* accessory = [cell accessoryView];
    return [accessory isKindOfClass:[UISwitch class]] ? (UISwitch*)accessory : nil;
}

PSTableCell* cellAt(PSListController* list, NSIndexPath* path) {
    UITableView* table = [list table];
    UITableViewCell* cell = [table cellForRowAtIndexPath:path];
    // A row out of sight has none: it is made as the table would make it.
    if (cell == nil) cell = [list tableView:table cellForRowAtIndexPath:path];
    return (PSTableCell*)cell;
}

NSDictionary* rowReport(PSListController* list, NSIndexPath* path) {
    PSTableCell* cell = cellAt(list, path);
    UITableView* table = [list table];
    UISwitch* control = switchOf(cell);
    const CGRect frame = [table rectForRowAtIndexPath:path];
    const bool hasDetail = [[cell specifier] cellType] == PSTitleValueCell;
    return @{
        @"section" : [NSNumber numberWithInteger:[path section]],
        @"row" : [NSNumber numberWithInteger:[path row]],
        @"label" : orNull([[list specifierAtIndexPath:path] name]),
        @"value" : orNull(hasDetail ? [[cell detailTextLabel] text] : nil),
        @"on" : control != nil ? (id)[NSNumber numberWithBool:[control isOn]] : (id)[NSNull null],
        @"enabled" : [NSNumber numberWithBool:control != nil ? [control isEnabled] : [cell cellEnabled]],
        @"cell" : NSStringFromClass([cell class]),
        @"header" : orNull([list tableView:table titleForHeaderInSection:[path section]]),
        @"footer" : orNull([list tableView:table titleForFooterInSection:[path section]]),
        @"frame" :
            @[ number(frame.origin.x), number(frame.origin.y), number(frame.size.width), number(frame.size.height) ]
    };
}

NSArray* pathsOf(UITableView* table) {
    NSMutableArray* paths = [NSMutableArray array];
    for (NSInteger section = 0; section < [table numberOfSections]; ++section) {
        for (NSInteger row = 0; row < [table numberOfRowsInSection:section]; ++row)
            [paths addObject:[NSIndexPath indexPathForRow:row inSection:section]];
    }
    return paths;
}

}  // namespace

NSArray* rowReportsOf(PSListController* list) {
    NSMutableArray* rows = [NSMutableArray array];
    for (NSIndexPath* path in pathsOf([list table])) [rows addObject:rowReport(list, path)];
    return rows;
}

id alertReport() {
    UIAlertView* alert = [UIAlertView _frontmost];
    if (alert == nil) return [NSNull null];
    NSMutableArray* buttons = [NSMutableArray array];
    for (NSInteger index = 0; index < [alert numberOfButtons]; ++index)
        [buttons addObject:[alert buttonTitleAtIndex:index]];
    return @{@"title" : orNull([alert title]), @"message" : orNull([alert message]), @"buttons" : buttons};
}

NSIndexPath* rowLabelled(PSListController* list, NSString* label) {
    UITableView* table = [list table];
    for (NSIndexPath* path in pathsOf(table)) {
        if (![[[list specifierAtIndexPath:path] name] isEqual:label]) continue;
        [table scrollToRowAtIndexPath:path atScrollPosition:UITableViewScrollPositionNone animated:NO];
        [table layoutIfNeeded];
        return path;
    }
    return nil;
}

}  // namespace hosts
