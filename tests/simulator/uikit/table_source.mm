#include "tests/simulator/uikit/table_source.h"

@implementation CountingCell
- (void)layoutSubviews {
    [super layoutSubviews];
    ++layouts;
}
- (void)prepareForReuse {
    [super prepareForReuse];
    ++reuses;
}
@end

@implementation NameSource
- (instancetype)init {
    self = [super init];
    sections = [[NSMutableArray alloc] init];
    titles = [[NSMutableArray alloc] init];
    return self;
}
- (void)dealloc {
    [sections release];
    [titles release];
    [super dealloc];
}
- (NSInteger)numberOfSectionsInTableView:(UITableView*)table {
    return (NSInteger)[sections count];
}
- (NSInteger)tableView:(UITableView*)table numberOfRowsInSection:(NSInteger)section {
    return (NSInteger)[[sections objectAtIndex:(NSUInteger)section] count];
}
- (NSString*)tableView:(UITableView*)table titleForHeaderInSection:(NSInteger)section {
    return [titles count] ? [titles objectAtIndex:(NSUInteger)section] : nil;
}
- (NSArray*)sectionIndexTitlesForTableView:(UITableView*)table {
    return indexed ? titles : nil;
}
- (UITableViewCell*)tableView:(UITableView*)table cellForRowAtIndexPath:(NSIndexPath*)path {
    CountingCell* cell = [table dequeueReusableCellWithIdentifier:@"name"];
    if (!cell) {
        cell = [[[CountingCell alloc] initWithStyle:style reuseIdentifier:@"name"] autorelease];
        ++made;
    }
    NSArray* names = [sections objectAtIndex:(NSUInteger)[path section]];
    [[cell textLabel] setText:[names objectAtIndex:(NSUInteger)[path row]]];
    [[cell detailTextLabel] setText:@"mobile"];
    [cell setAccessoryType:accessory];
    return cell;
}
@end

UITableView* makeTable(NameSource* source, CGRect frame) {
    UITableView* table = [[[UITableView alloc] initWithFrame:frame style:UITableViewStylePlain] autorelease];
    [table setDelegate:source];
    [table setDataSource:source];
    return table;
}

NameSource* sourceOf(NSArray* names) {
    NameSource* source = [[[NameSource alloc] init] autorelease];
    [source->sections addObject:names];
    return source;
}
