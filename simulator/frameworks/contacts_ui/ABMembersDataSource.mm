#import "simulator/frameworks/contacts_ui/ABMembersDataSource.h"

#import "simulator/frameworks/contacts_ui/reading_direction.h"

#import "simulator/frameworks/contacts_ui/ABMemberCell.h"

namespace {

// A cell keeps the kind that it was made with, so the two kinds have pools of their own.
ABMemberCell* cellForMember(UITableView* table, ABMember* member, bool withNameView) {
    Class kind = [ABMemberCell class];
    if (withNameView) kind = [ABNameViewMemberCell class];
    NSString* identifier = NSStringFromClass(kind);
    ABMemberCell* cell = [table dequeueReusableCellWithIdentifier:identifier];
    if (cell == nil)
        cell = [[[kind alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:identifier] autorelease];
    [cell setPerson:[member person] name:[member name]];
    return cell;
}

}  // namespace

@implementation ABMembersDataSource

- (instancetype)init {
    if ((self = [super init]) != nil) {
        _sections = [[NSMutableArray alloc] init];
        _givesNameViews = YES;
    }
    return self;
}

- (void)dealloc {
    [_sections release];
    [super dealloc];
}

- (BOOL)givesNameViews {
    return _givesNameViews;
}

- (void)setGivesNameViews:(BOOL)gives {
    _givesNameViews = gives;
}

- (void)setMembers:(NSArray*)members {
    [_sections removeAllObjects];
    for (ABMember* member in members) {
        ABMember* before = [[_sections lastObject] lastObject];
        if (before == nil || ![[before sectionTitle] isEqualToString:[member sectionTitle]])
            [_sections addObject:[NSMutableArray array]];
        [[_sections lastObject] addObject:member];
    }
}

- (ABMember*)memberAtIndexPath:(NSIndexPath*)indexPath {
    return [[_sections objectAtIndex:(NSUInteger)[indexPath section]] objectAtIndex:(NSUInteger)[indexPath row]];
}

- (NSInteger)numberOfSectionsInTableView:(UITableView*)tableView {
    return (NSInteger)[_sections count];
}

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    return (NSInteger)[[_sections objectAtIndex:(NSUInteger)section] count];
}

- (NSString*)tableView:(UITableView*)tableView titleForHeaderInSection:(NSInteger)section {
    return [[[_sections objectAtIndex:(NSUInteger)section] lastObject] sectionTitle];
}

// An index of Latin letters is of no use to those who read from the right.
- (NSArray*)sectionIndexTitlesForTableView:(UITableView*)tableView {
    if (ABUIReadsFromTheRight()) return nil;
    NSMutableArray* titles = [NSMutableArray array];
    for (NSArray* section in _sections) [titles addObject:[[section lastObject] sectionTitle]];
    return titles;
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    return cellForMember(tableView, [self memberAtIndexPath:indexPath], _givesNameViews);
}

- (BOOL)tableView:(UITableView*)tableView canEditRowAtIndexPath:(NSIndexPath*)indexPath {
    return YES;
}

@end

@implementation ABMembersFilteredDataSource

- (instancetype)init {
    if ((self = [super init]) != nil) _givesNameViews = YES;
    return self;
}

- (void)dealloc {
    [_matches release];
    [super dealloc];
}

- (BOOL)givesNameViews {
    return _givesNameViews;
}

- (void)setGivesNameViews:(BOOL)gives {
    _givesNameViews = gives;
}

- (void)setMembers:(NSArray*)members matchingText:(NSString*)text {
    NSString* folded = ABUIFold(text);
    NSMutableArray* matches = [[NSMutableArray alloc] init];
    for (ABMember* member in members)
        if ([member matchesFoldedText:folded]) [matches addObject:member];
    [_matches release];
    _matches = matches;
}

- (ABMember*)memberAtIndexPath:(NSIndexPath*)indexPath {
    return [_matches objectAtIndex:(NSUInteger)[indexPath row]];
}

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    return (NSInteger)[_matches count];
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    return cellForMember(tableView, [self memberAtIndexPath:indexPath], _givesNameViews);
}

- (BOOL)tableView:(UITableView*)tableView canEditRowAtIndexPath:(NSIndexPath*)indexPath {
    return YES;
}

@end
