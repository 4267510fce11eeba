#include "tests/unit/hooks/host_classes.h"

NSMutableString* hostEvents(void) {
    static NSMutableString* events = [[NSMutableString alloc] init];
    return events;
}

static void note(NSString* word) { [hostEvents() appendFormat:@"%@ ", word]; }

static void post(NSString* notification) {
    if (notification != nil) [[NSNotificationCenter defaultCenter] postNotificationName:notification object:nil];
}

void makeShortLived(void) { [[[FreedWitness alloc] init] autorelease]; }

@implementation FreedWitness
- (void)dealloc {
    note(@"freed");
    [super dealloc];
}
@end

@implementation SpringBoard
- (void)applicationDidFinishLaunching:(id)application {
    [hostEvents() appendFormat:@"launched(%p) ", application];
    NSLog(@"the host has launched");
}
@end

@implementation CallBarControllerModern
- (void)viewDidLoad {
    note(@"loaded");
    post(postedWhileLoading);
}
- (void)toggleFavorites:(id)sender {
    [hostEvents() appendFormat:@"%s(%p) ", sel_getName(_cmd), sender];
}
- (void)toggleRecents:(id)sender {
    [hostEvents() appendFormat:@"%s(%p) ", sel_getName(_cmd), sender];
}
- (void)toggleContacts:(id)sender {
    [hostEvents() appendFormat:@"%s(%p) ", sel_getName(_cmd), sender];
}
- (ABMonogrammer*)monogrammer {
    return generator;
}
- (void)cleanupFavoritesButtons {
    note(@"cleanup");
}
- (void)resetFavorites {
    note(@"reset");
}
@end

@implementation CallBarFavoritesViewController
- (void)viewDidAppear:(BOOL)animated {
    makeShortLived();
    note(animated ? @"appeared-animated" : @"appeared");
}
@end

@implementation CallBarTableViewTransparentCell
// As every cell does, without having it inherited: the library replaces this class's own.
- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString*)reuseIdentifier {
    return [super initWithStyle:style reuseIdentifier:reuseIdentifier];
}
- (void)layoutSubviews {
    note(@"layout");
    [super layoutSubviews];
}
@end

@implementation CallBarABViewController
- (void)dealloc {
    note(@"dealloc");
    [super dealloc];
}
- (void)viewDidLoad {
    note(@"loaded");
    post(postedWhileLoading);
}
- (void)viewDidAppear:(BOOL)animated {
    makeShortLived();
    note(animated ? @"appeared-animated" : @"appeared");
}
- (UITableView*)tableView {
    return table;
}
- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    return cell;
}
@end

@implementation NotedTable
- (void)reloadData {
    note(@"reload");
    [super reloadData];
}
- (id)dequeueReusableCellWithIdentifier:(NSString*)identifier {
    return handedOut;
}
@end
