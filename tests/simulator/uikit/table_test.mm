#include "simulator/frameworks/uikit/table/UITableViewParts.h"
#include "tests/simulator/uikit/phone_test.h"
#include "tests/simulator/uikit/table_source.h"

namespace {

using TableTest = PhoneTest;

constexpr CGRect kFrame = {{0, 0}, {320, 220}};

NSArray* numbered(int count) {
    NSMutableArray* names = [NSMutableArray array];
    for (int i = 0; i < count; ++i) [names addObject:[NSString stringWithFormat:@"Name %d", i]];
    return names;
}

NSString* textOf(UITableView* table, NSInteger row) {
    return [[[table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]] textLabel] text];
}

TEST_F(TableTest, OnlyRowsInSightHaveCells) {
    start("iphone6-8.4");
    NameSource* source = sourceOf(numbered(100));
    UITableView* table = makeTable(source, kFrame);
    [table layoutIfNeeded];
    EXPECT_EQ([[table visibleCells] count], 5u);
    EXPECT_EQ(source->made, 5);
    EXPECT_EQ([table contentSize].height, 4400);
    [table setFrame:CGRectMake(0, 0, 480, 220)];
    EXPECT_EQ([table contentSize].width, 480);
    EXPECT_TRUE([textOf(table, 4) isEqual:@"Name 4"]);
    EXPECT_EQ([table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:5 inSection:0]], nil);
}

TEST_F(TableTest, ScrollingHandsCellsOutAgain) {
    start("iphone6-8.4");
    NameSource* source = sourceOf(numbered(100));
    UITableView* table = makeTable(source, kFrame);
    [table layoutIfNeeded];
    for (int y = 0; y <= 2000; y += 10) {
        [table setContentOffset:CGPointMake(0, y)];
        [table layoutIfNeeded];
    }
    EXPECT_EQ(source->made, 6) << "one more than fits, as rows are cut at both edges";
    NSArray* cells = [table visibleCells];
    NSIndexPath* first = [table indexPathForCell:[cells objectAtIndex:0]];
    EXPECT_EQ([first row], 45);
    EXPECT_TRUE([textOf(table, 45) isEqual:@"Name 45"]);
    EXPECT_GT(((CountingCell*)[cells objectAtIndex:0])->reuses, 0);
    EXPECT_EQ([[cells objectAtIndex:0] frame], CGRectMake(0, 1980, 320, 44));
}

TEST_F(TableTest, AReloadReusesTheCellsAndAsksAgain) {
    start("iphone6-8.4");
    NameSource* source = sourceOf(numbered(3));
    UITableView* table = makeTable(source, kFrame);
    [table layoutIfNeeded];
    [source->sections replaceObjectAtIndex:0 withObject:@[ @"Other", @"Another" ]];
    [table reloadData];
    EXPECT_EQ([table numberOfRowsInSection:0], 2);
    [table layoutIfNeeded];
    EXPECT_EQ(source->made, 3);
    EXPECT_TRUE([textOf(table, 0) isEqual:@"Other"]);
    EXPECT_EQ([[table visibleCells] count], 2u);
}

TEST_F(TableTest, SingleRowsCanBeAskedForAgain) {
    start("iphone6-8.4");
    NameSource* source = sourceOf([numbered(3) mutableCopy]);
    UITableView* table = makeTable(source, kFrame);
    [table layoutIfNeeded];
    UITableViewCell* kept = [[table visibleCells] objectAtIndex:0];
    [[source->sections objectAtIndex:0] setArray:@[ @"New 0", @"New 1", @"New 2" ]];
    [table reloadRowsAtIndexPaths:@[ [NSIndexPath indexPathForRow:1 inSection:0] ]
                 withRowAnimation:UITableViewRowAnimationNone];
    [table layoutIfNeeded];
    EXPECT_TRUE([textOf(table, 0) isEqual:@"Name 0"]);
    EXPECT_TRUE([textOf(table, 1) isEqual:@"New 1"]);
    EXPECT_EQ([[table visibleCells] objectAtIndex:0], kept);
}

TEST_F(TableTest, ATableControllerIsItsTablesSource) {
    start("iphone6-8.4");
    UITableViewController* controller =
        [[[UITableViewController alloc] initWithStyle:UITableViewStylePlain] autorelease];
    UITableView* table = [controller tableView];
    EXPECT_EQ((id)[table dataSource], controller);
    EXPECT_EQ((id)[table delegate], controller);
    EXPECT_EQ([controller view], table);
    EXPECT_EQ([table numberOfRowsInSection:0], 0);
    [controller setEditing:YES animated:NO];
    EXPECT_TRUE([table isEditing]);
}

TEST_F(TableTest, EveryPassOfTheTableLaysItsCellsOutOnce) {
    start("iphone6-8.4");
    UITableView* table = makeTable(sourceOf(numbered(2)), kFrame);
    [table layoutIfNeeded];
    CountingCell* cell = [[table visibleCells] objectAtIndex:0];
    EXPECT_EQ(cell->layouts, 1);
    [table layoutIfNeeded];
    EXPECT_EQ(cell->layouts, 1);
    [table setNeedsLayout];
    [table layoutIfNeeded];
    EXPECT_EQ(cell->layouts, 2);
}

TEST_F(TableTest, ATableInAWindowComesToRest) {
    start("iphone6-9.3");
    UIWindow* window = [[[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]] autorelease];
    NameSource* source = sourceOf(numbered(50));
    [source->titles addObject:@"A"];
    source->indexed = YES;
    UITableView* table = makeTable(source, [window bounds]);
    [window addSubview:table];
    EXPECT_TRUE(phone::settle(5));
    CountingCell* cell = [[table visibleCells] objectAtIndex:0];
    EXPECT_EQ(cell->layouts, 1);
    [table reloadData];
    EXPECT_TRUE(phone::settle(5));
    EXPECT_EQ([[table visibleCells] count], 15u);
}

TEST_F(TableTest, SectionsHaveHeadersThatStayInSight) {
    start("iphone6-8.4");
    NameSource* source = sourceOf(numbered(10));
    [source->sections addObject:numbered(10)];
    [source->titles setArray:@[ @"A", @"B" ]];
    UITableView* table = makeTable(source, kFrame);
    [table setContentOffset:CGPointMake(0, 100)];
    [table layoutIfNeeded];
    EXPECT_EQ([table rectForHeaderInSection:1], CGRectMake(0, 468, 320, 28));
    EXPECT_EQ([table rectForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:1]], CGRectMake(0, 496, 320, 44));
    BOOL stuck = NO;
    for (UIView* view in [table subviews]) stuck |= [view frame] == CGRectMake(0, 100, 320, 28);
    EXPECT_TRUE(stuck);
    EXPECT_EQ([[table indexPathForRowAtPoint:CGPointMake(5, 500)] section], 1);
    EXPECT_EQ([table indexPathForRowAtPoint:CGPointMake(5, 480)], nil) << "a header's place";
    EXPECT_TRUE(raises([&] { [table rectForHeaderInSection:2]; }));
}

TEST_F(TableTest, ScrollingToARowStopsAtTheContentsEnds) {
    start("iphone6-8.4");
    UITableView* table = makeTable(sourceOf(numbered(20)), kFrame);
    NSIndexPath* tenth = [NSIndexPath indexPathForRow:10 inSection:0];
    [table scrollToRowAtIndexPath:tenth atScrollPosition:UITableViewScrollPositionTop animated:NO];
    EXPECT_EQ([table contentOffset].y, 440);
    [table scrollToRowAtIndexPath:tenth atScrollPosition:UITableViewScrollPositionMiddle animated:NO];
    EXPECT_EQ([table contentOffset].y, 352);
    [table scrollToRowAtIndexPath:tenth atScrollPosition:UITableViewScrollPositionBottom animated:NO];
    EXPECT_EQ([table contentOffset].y, 264);
    [table scrollToRowAtIndexPath:[NSIndexPath indexPathForRow:19 inSection:0]
                 atScrollPosition:UITableViewScrollPositionTop
                         animated:NO];
    EXPECT_EQ([table contentOffset].y, 660);
    [table scrollToRowAtIndexPath:tenth atScrollPosition:UITableViewScrollPositionNone animated:NO];
    EXPECT_EQ([table contentOffset].y, 440);
}

TEST_F(TableTest, EditingReachesCellsInSightAndThoseToCome) {
    start("iphone6-8.4");
    UITableView* table = makeTable(sourceOf(numbered(50)), kFrame);
    [table layoutIfNeeded];
    [table setEditing:YES animated:NO];
    [table layoutIfNeeded];
    UITableViewCell* cell = [[table visibleCells] objectAtIndex:0];
    EXPECT_TRUE([cell isEditing]);
    EXPECT_EQ([cell editingStyle], UITableViewCellEditingStyleDelete);
    EXPECT_EQ([[cell contentView] frame].origin.x, 38);
    [table setContentOffset:CGPointMake(0, 800)];
    [table layoutIfNeeded];
    for (UITableViewCell* each in [table visibleCells]) EXPECT_TRUE([each isEditing]);
    [table setEditing:NO animated:NO];
    [table layoutIfNeeded];
    EXPECT_EQ([[[[table visibleCells] objectAtIndex:0] contentView] frame].origin.x, 0);
}

TEST_F(TableTest, ARegisteredClassIsMadeWhenThePoolIsEmpty) {
    start("iphone6-8.4");
    UITableView* table = makeTable(nil, kFrame);
    EXPECT_TRUE(raises([&] { [table dequeueReusableCellWithIdentifier:@"x" forIndexPath:nil]; }));
    [table registerClass:[CountingCell class] forCellReuseIdentifier:@"x"];
    UITableViewCell* cell = [table dequeueReusableCellWithIdentifier:@"x" forIndexPath:nil];
    EXPECT_TRUE([cell isKindOfClass:[CountingCell class]]);
    EXPECT_TRUE([[cell reuseIdentifier] isEqual:@"x"]);
}

// Where the cells stand in the table, by system.
Class parentOfCells(UITableView* table) {
    [table layoutIfNeeded];
    return [[[[table visibleCells] objectAtIndex:0] superview] class];
}

TEST_F(TableTest, System6PutsCellsIntoTheTable) {
    start("iphone4s-6.1");
    EXPECT_EQ(parentOfCells(makeTable(sourceOf(numbered(3)), kFrame)), [UITableView class]);
}

TEST_F(TableTest, System8PutsCellsIntoAWrapper) {
    start("iphone6-8.4");
    EXPECT_EQ(parentOfCells(makeTable(sourceOf(numbered(3)), kFrame)), [UITableViewWrapperView class]);
}

}  // namespace
