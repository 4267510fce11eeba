#import "simulator/frameworks/contacts_ui/ABMembersViewController.h"

#import "simulator/frameworks/contacts_ui/ABMemberCell.h"

namespace {

constexpr CGFloat kSearchBarHeight = 44;
constexpr CGFloat kRowHeight = 44;

// The system's name for "another process wrote to the address book".
NSString* const kChanged = @"__ABDataBaseChangedByOtherProcessNotification";

void addressBookChanged(CFNotificationCenterRef, void* observer, CFStringRef, const void*, CFDictionaryRef) {
    [(ABMembersViewController*)observer performSelectorOnMainThread:@selector(readMembersAndReload)
                                                         withObject:nil
                                                      waitUntilDone:NO];
}

}  // namespace

@implementation ABMembersViewController

- (instancetype)init {
    if ((self = [super init]) != nil) {
        _dataSource = [[ABMembersDataSource alloc] init];
        _filteredDataSource = [[ABMembersFilteredDataSource alloc] init];
    }
    return self;
}

- (void)dealloc {
    CFNotificationCenterRemoveEveryObserver(CFNotificationCenterGetDarwinNotifyCenter(), self);
    [_tableView setDataSource:nil];
    [_searchBar release];
    [_tableView release];
    [_members release];
    [_dataSource release];
    [_filteredDataSource release];
    [super dealloc];
}

- (void)viewDidLoad {
    [super viewDidLoad];
    [[self view] setBackgroundColor:[UIColor whiteColor]];
    _searchBar = [[UISearchBar alloc] initWithFrame:CGRectZero];
    [_searchBar setPlaceholder:@"Search"];
    [[self view] addSubview:_searchBar];
    _tableView = [[UITableView alloc] initWithFrame:CGRectZero style:UITableViewStylePlain];
    [_tableView setRowHeight:kRowHeight];
    [_tableView setSeparatorInset:UIEdgeInsetsMake(0, 15, 0, 0)];
    [_tableView setDataSource:_dataSource];
    [[self view] addSubview:_tableView];
    CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), self, addressBookChanged, kChanged,
                                    nullptr, CFNotificationSuspensionBehaviorDeliverImmediately);
}

- (void)viewWillLayoutSubviews {
    [super viewWillLayoutSubviews];
    const CGSize size = [[self view] bounds].size;
    [_searchBar setFrame:CGRectMake(0, 0, size.width, kSearchBarHeight)];
    [_tableView setFrame:CGRectMake(0, kSearchBarHeight, size.width, size.height - kSearchBarHeight)];
}

- (void)viewWillAppear:(BOOL)animated {
    [super viewWillAppear:animated];
    [self readMembersAndReload];
}

- (void)viewDidAppear:(BOOL)animated {
    [super viewDidAppear:animated];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
    [super setEditing:editing animated:animated];
    [_tableView setEditing:editing animated:animated];
}

- (void)readMembersAndReload {
    NSArray* members = [ABUIReadMembers() retain];
    [_members release];
    _members = members;
    [_dataSource setMembers:_members];
    [self setSearchText:[self searchText]];
}

- (UITableView*)tableView {
    [self view];
    return _tableView;
}

- (BOOL)givesNameViews {
    return [_dataSource givesNameViews];
}

- (void)setGivesNameViews:(BOOL)gives {
    [_dataSource setGivesNameViews:gives];
    [_filteredDataSource setGivesNameViews:gives];
}

- (NSString*)searchText {
    return [_searchBar text];
}

- (void)setSearchText:(NSString*)text {
    [self view];
    [_searchBar setText:text];
    const bool searching = [text length] > 0;
    if (searching) [_filteredDataSource setMembers:_members matchingText:text];
    [_tableView setDataSource:searching ? (id)_filteredDataSource : (id)_dataSource];
    [_tableView reloadData];
}

- (ABMember*)memberAtIndexPath:(NSIndexPath*)indexPath {
    return [[self searchText] length] > 0 ? [_filteredDataSource memberAtIndexPath:indexPath]
                                          : [_dataSource memberAtIndexPath:indexPath];
}

@end
