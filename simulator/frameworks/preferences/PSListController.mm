#include "simulator/frameworks/preferences/PSListController.h"

#include <vector>

#include "simulator/frameworks/preferences/PSTableCell.h"
#include "simulator/frameworks/preferences/specifier_list.h"

@implementation PSListController

- (void)dealloc {
    [_table setDataSource:nil];
    [_table setDelegate:nil];
    [_table release];
    [_specifiers release];
    [super dealloc];
}

- (void)loadView {
    [super loadView];
    UIView* view = [self view];
    _table = [[UITableView alloc] initWithFrame:[view bounds] style:UITableViewStyleGrouped];
    [_table setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
    [_table setDataSource:self];
    [_table setDelegate:self];
    [view addSubview:_table];
}

- (void)viewWillAppear:(BOOL)animated {
    [super viewWillAppear:animated];
    [self specifiers];
}

- (NSArray*)specifiers {
    return _specifiers;
}

- (void)setSpecifiers:(NSArray*)specifiers {
    ASSIGN(_specifiers, specifiers);
    [_table reloadData];
}

- (NSBundle*)bundle {
    return [NSBundle bundleForClass:[self class]];
}

- (NSArray*)loadSpecifiersFromPlistName:(NSString*)name target:(id)target {
    NSBundle* bundle = [self bundle];
    NSString* path = [bundle pathForResource:name ofType:@"plist"];
    NSDictionary* list = path ? [NSDictionary dictionaryWithContentsOfFile:path] : nil;
    if (!list) {
        [NSException raise:NSInvalidArgumentException
                    format:@"%@ has no property list %@.plist", [bundle bundlePath], name];
    }
    NSString* title = [list objectForKey:@"title"];
    if (title) [self setTitle:preferences::localized(title, bundle, name)];
    return preferences::specifiersOf([list objectForKey:@"items"], target, bundle, name);
}

- (UITableView*)table {
    return _table;
}

- (PSSpecifier*)specifierForID:(NSString*)identifier {
    for (PSSpecifier* specifier in [self specifiers]) {
        if ([[specifier identifier] isEqual:identifier]) return specifier;
    }
    return nil;
}

// Where each section's group specifier stands in the list; rows before the first group have a section of their own.
- (std::vector<NSInteger>)_groups {
    std::vector<NSInteger> groups;
    NSArray* all = [self specifiers];
    for (NSUInteger index = 0; index < [all count]; ++index) {
        if ([[all objectAtIndex:index] cellType] == PSGroupCell)
            groups.push_back((NSInteger)index);
        else if (groups.empty())
            groups.push_back(-1);
    }
    return groups;
}

- (PSSpecifier*)_groupOf:(NSInteger)section {
    const NSInteger index = [self _groups].at((size_t)section);
    return index < 0 ? nil : [[self specifiers] objectAtIndex:(NSUInteger)index];
}

- (PSSpecifier*)specifierAtIndexPath:(NSIndexPath*)indexPath {
    const NSInteger group = [self _groups].at((size_t)[indexPath section]);
    return [[self specifiers] objectAtIndex:(NSUInteger)(group + 1 + [indexPath row])];
}

- (NSIndexPath*)indexPathForSpecifier:(PSSpecifier*)specifier {
    const NSUInteger index = [[self specifiers] indexOfObjectIdenticalTo:specifier];
    if (index == NSNotFound) return nil;
    const std::vector<NSInteger> groups = [self _groups];
    size_t section = groups.size() - 1;
    while (groups[section] > (NSInteger)index) --section;
    const NSInteger row = (NSInteger)index - groups[section] - 1;
    return row < 0 ? nil : [NSIndexPath indexPathForRow:row inSection:(NSInteger)section];
}

- (void)reloadSpecifier:(PSSpecifier*)specifier {
    NSIndexPath* indexPath = [self indexPathForSpecifier:specifier];
    if (indexPath) [_table reloadRowsAtIndexPaths:@[ indexPath ] withRowAnimation:UITableViewRowAnimationNone];
}

- (void)reloadSpecifierID:(NSString*)identifier {
    [self reloadSpecifier:[self specifierForID:identifier]];
}

- (void)reloadSpecifiers {
    [_specifiers release];
    _specifiers = nil;
    [self specifiers];
    [_table reloadData];
}

- (NSInteger)numberOfSectionsInTableView:(UITableView*)tableView {
    return (NSInteger)[self _groups].size();
}

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    const std::vector<NSInteger> groups = [self _groups];
    const auto next = (size_t)section + 1;
    const NSInteger end = next < groups.size() ? groups[next] : (NSInteger)[[self specifiers] count];
    return end - groups.at((size_t)section) - 1;
}

- (NSString*)tableView:(UITableView*)tableView titleForHeaderInSection:(NSInteger)section {
    NSString* title = [[self _groupOf:section] name];
    return [title length] > 0 ? title : nil;
}

- (NSString*)tableView:(UITableView*)tableView titleForFooterInSection:(NSInteger)section {
    NSString* text = [[self _groupOf:section] propertyForKey:@"footerText"];
    return [text length] > 0 ? text : nil;
}

- (CGFloat)tableView:(UITableView*)tableView heightForRowAtIndexPath:(NSIndexPath*)indexPath {
    NSNumber* height = [[self specifierAtIndexPath:indexPath] propertyForKey:@"height"];
    return height ? [height doubleValue] : UITableViewAutomaticDimension;
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    PSSpecifier* specifier = [self specifierAtIndexPath:indexPath];
    Class cellClass = [PSTableCell _cellClassOf:specifier];
    const UITableViewCellStyle style = [PSTableCell _cellStyleOf:specifier];
    NSString* identifier = [NSString stringWithFormat:@"%@ %ld", NSStringFromClass(cellClass), (long)style];
    PSTableCell* cell = [tableView dequeueReusableCellWithIdentifier:identifier];
    if (!cell) {
        cell = [[[cellClass alloc] initWithStyle:style reuseIdentifier:identifier specifier:specifier] autorelease];
    }
    [cell refreshCellContentsWithSpecifier:specifier];
    return cell;
}

- (void)tableView:(UITableView*)tableView didSelectRowAtIndexPath:(NSIndexPath*)indexPath {
    [tableView deselectRowAtIndexPath:indexPath animated:YES];
    PSSpecifier* specifier = [self specifierAtIndexPath:indexPath];
    NSNumber* enabled = [specifier propertyForKey:@"enabled"];
    if (enabled && ![enabled boolValue]) return;
    if ([specifier cellType] == PSButtonCell && specifier->action) {
        [specifier->target performSelector:specifier->action withObject:specifier];
    }
    if ([specifier cellType] == PSLinkCell) {
        [[self navigationController] pushViewController:[self controllerForSpecifier:specifier] animated:YES];
    }
}

- (UIViewController*)controllerForSpecifier:(PSSpecifier*)specifier {
    Class detail = specifier->detailControllerClass;
    if (!detail) {
        [NSException raise:NSInvalidArgumentException format:@"%@ has no class of a page to show", specifier];
    }
    UIViewController* page = [[[detail alloc] init] autorelease];
    if ([page isKindOfClass:[PSViewController class]]) [(PSViewController*)page setSpecifier:specifier];
    return page;
}

@end
