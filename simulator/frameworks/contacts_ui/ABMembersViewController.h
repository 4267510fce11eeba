#pragma once

#include "simulator/frameworks/contacts_ui/ABMembersDataSource.h"
#include "simulator/frameworks/uikit/uikit.h"

// The system's list of contacts: a search bar over one table, which shows all contacts, or those found while a search
// text is set. The list is read when it appears and whenever another process changes the address book.
@interface ABMembersViewController : UIViewController {
  @private
    UISearchBar* _searchBar;
    UITableView* _tableView;
    NSArray* _members;
    ABMembersDataSource* _dataSource;
    ABMembersFilteredDataSource* _filteredDataSource;
}

@property (nonatomic, readonly) UITableView* tableView;  // +0
@property (nonatomic, copy) NSString* searchText;        // nil or empty: all contacts
// Whether rows have a view of their own for the name (see ABMemberCell). Set it before the list is shown.
@property (nonatomic) BOOL givesNameViews;

- (ABMember*)memberAtIndexPath:(NSIndexPath*)indexPath;  // of what is shown; +0

@end
