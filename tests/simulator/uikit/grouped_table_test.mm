#include "tests/simulator/uikit/phone_test.h"

using phone::Pixel;

// Two sections: two rows with a title and a text below, then one row without.
@interface GroupSource : NSObject <UITableViewDataSource> {
  @public
    NSString* below;
}
@end

@implementation GroupSource

- (NSInteger)numberOfSectionsInTableView:(UITableView*)tableView {
    return 2;
}

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    return section == 0 ? 2 : 1;
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    return [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"] autorelease];
}

- (NSString*)tableView:(UITableView*)tableView titleForHeaderInSection:(NSInteger)section {
    return section == 0 ? @"Pictures" : nil;
}

- (NSString*)tableView:(UITableView*)tableView titleForFooterInSection:(NSInteger)section {
    return section == 0 ? below : nil;
}

@end

namespace {

constexpr Pixel kBackground = {239, 239, 244, 255};
constexpr Pixel kWhite = {255, 255, 255, 255};
constexpr Pixel kLine = {200, 199, 204, 255};

class GroupedTable : public PhoneTest {
  protected:
    UITableView* makeTable(NSString* below = @"A short text.") {
        start("iphone6-8.4");
        GroupSource* source = [[GroupSource alloc] init];
        source->below = below;
        UITableView* table = [[[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 400)
                                                           style:UITableViewStyleGrouped] autorelease];
        [table setDataSource:source];
        [table layoutIfNeeded];
        return table;
    }
};

TEST_F(GroupedTable, SectionsHaveTitlesAboveAndTextsBelow) {
    UITableView* table = makeTable();
    EXPECT_EQ([table rectForHeaderInSection:0], CGRectMake(0, 0, 320, 55.5));
    EXPECT_EQ([table rectForRowAtIndexPath:[NSIndexPath indexPathForRow:1 inSection:0]], CGRectMake(0, 99.5, 320, 44));
    const CGRect footer = [table rectForFooterInSection:0];
    EXPECT_EQ(footer.origin.y, 143.5);
    EXPECT_EQ(footer.size.height, 30);
    EXPECT_EQ([table rectForHeaderInSection:1], CGRectMake(0, 173.5, 320, 17.5));
    EXPECT_EQ([table rectForFooterInSection:1].size.height, 17.5);
    EXPECT_EQ([table contentSize].height, 173.5 + 17.5 + 44 + 17.5);
}

TEST_F(GroupedTable, ALongTextBelowTakesMoreLinesAndFewerInAWiderTable) {
    UITableView* table = makeTable(@"A contact without a picture of its own gets its initials on a colour, unless "
                                   @"there is a linked contact that has one.");
    const CGFloat narrow = [table rectForFooterInSection:0].size.height;
    EXPECT_GT(narrow, 55);
    [table setFrame:CGRectMake(0, 0, 700, 400)];
    [table layoutIfNeeded];
    EXPECT_LT([table rectForFooterInSection:0].size.height, narrow - 10);
}

TEST_F(GroupedTable, LinesReachFromEdgeToEdgeAroundASection) {
    UITableView* table = makeTable();
    UIImage* image = UISnapshotOfView(table);
    EXPECT_EQ(at(image, 2, 10), kBackground);
    EXPECT_EQ(at(image, 2, 55.5), kLine) << "above the first row";
    EXPECT_EQ(at(image, 2, 99), kWhite) << "between two rows, before the inset";
    EXPECT_EQ(at(image, 20, 99), kLine) << "between two rows";
    EXPECT_EQ(at(image, 2, 143), kLine) << "below the last row";
    EXPECT_EQ(at(image, 2, 191), kLine) << "above the only row";
    EXPECT_EQ(at(image, 2, 234.5), kLine) << "below the only row";
}

TEST_F(GroupedTable, ARowKeepsNoLineOfThePlaceItHadBefore) {
    UITableView* table = makeTable();
    GroupSource* source = (GroupSource*)[table dataSource];
    source->below = nil;
    [table reloadData];
    [table layoutIfNeeded];
    UIImage* image = UISnapshotOfView(table);
    EXPECT_EQ(at(image, 2, 99), kWhite);
    EXPECT_EQ(at(image, 2, 99.5), kWhite);
}

}  // namespace
