#include "simulator/frameworks/uikit/controller/UITableViewController.h"

#include "simulator/frameworks/uikit/graphics/UIScreen.h"

@implementation UITableViewController

- (instancetype)initWithStyle:(UITableViewStyle)style {
    self = [super initWithNibName:nil bundle:nil];
    if (self) _style = style;
    return self;
}

- (void)dealloc {
    if ([self isViewLoaded]) {
        [[self tableView] setDataSource:nil];
        [[self tableView] setDelegate:nil];
    }
    [super dealloc];
}

- (void)loadView {
    UITableView* table = [[UITableView alloc] initWithFrame:[[UIScreen mainScreen] applicationFrame] style:_style];
    [table setDataSource:self];
    [table setDelegate:self];
    [self setView:table];
    [table release];
}

- (UITableView*)tableView {
    UIView* view = [self view];
    if (![view isKindOfClass:[UITableView class]]) {
        [NSException raise:NSInternalInconsistencyException
                    format:@"-[%@ tableView]: the view is a %@", [self class], [view class]];
    }
    return (UITableView*)view;
}

- (void)setTableView:(UITableView*)table {
    [self setView:table];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
    [super setEditing:editing animated:animated];
    [[self tableView] setEditing:editing animated:animated];
}

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    return 0;
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    [NSException raise:NSInternalInconsistencyException
                format:@"-[%@ tableView:cellForRowAtIndexPath:] is not implemented", [self class]];
    return nil;
}

@end
