#pragma once

#include "simulator/frameworks/contacts_ui/ABMember.h"
#include "simulator/frameworks/uikit/uikit.h"

// Rows of the full list, in sections A to Z and "#".
@interface ABMembersDataSource : NSObject <UITableViewDataSource> {
  @private
    NSMutableArray* _sections;
    BOOL _givesNameViews;
}

// ABMember objects, in the order of ABUIReadMembers.
- (void)setMembers:(NSArray*)members;
// Whether the cells made from now on have a view for the name (see ABMemberCell); YES at first.
@property (nonatomic) BOOL givesNameViews;
- (ABMember*)memberAtIndexPath:(NSIndexPath*)indexPath;  // +0

@end

// Rows of the search results: the members of whose name one word begins with the text, whatever its case and accents.
@interface ABMembersFilteredDataSource : NSObject <UITableViewDataSource> {
  @private
    NSArray* _matches;
    BOOL _givesNameViews;
}

- (void)setMembers:(NSArray*)members matchingText:(NSString*)text;
@property (nonatomic) BOOL givesNameViews;
- (ABMember*)memberAtIndexPath:(NSIndexPath*)indexPath;  // +0

@end
