// What the library adds to every object and to every table cell.
#include "tests/unit/hooks/hook_test.h"

// Stands between a table and its cell.
@interface BetweenView : UIView
@end
@implementation BetweenView
@end

namespace {

class Categories : public test::HookTest {
  protected:
    static UITableViewCell* newCell() {
        return [[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"];
    }
};

TEST_F(Categories, OutsideOfATableThereIsNoParentTableView) {
    boot();
    UITableViewCell* cell = newCell();
    EXPECT_EQ([cell parentTableView], nil);
    UIView* elsewhere = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
    [elsewhere addSubview:cell];
    EXPECT_EQ([cell parentTableView], nil);
}

TEST_F(Categories, TheParentTableViewIsFoundBehindAViewBetween) {
    boot();
    UITableViewCell* cell = newCell();
    UITableView* table = [[[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 480)
                                                       style:UITableViewStylePlain] autorelease];
    BetweenView* between = [[[BetweenView alloc] initWithFrame:CGRectMake(0, 0, 320, 480)] autorelease];
    [table addSubview:between];
    [between addSubview:cell];
    EXPECT_EQ([cell parentTableView], table);
    NotedTable* inner = [[[NotedTable alloc] initWithFrame:CGRectMake(0, 0, 320, 480)] autorelease];
    [between addSubview:inner];
    [inner addSubview:cell];
    EXPECT_EQ([cell parentTableView], inner);
}

TEST_F(Categories, AnyObjectKeepsAContactId) {
    boot();
    NSObject* object = [[[NSObject alloc] init] autorelease];
    EXPECT_EQ([object ZelkaCB_contactID], 0);
    [object setZelkaCB_contactID:-5];
    EXPECT_EQ([object ZelkaCB_contactID], -5);
    [object setZelkaCB_contactID:NSIntegerMax];
    EXPECT_EQ([object ZelkaCB_contactID], NSIntegerMax);
    EXPECT_EQ([[[[NSObject alloc] init] autorelease] ZelkaCB_contactID], 0);
}

TEST_F(Categories, TheContactIdIsADynamicNonatomicPropertyOfEveryObject) {
    boot();
    objc_property_t property = class_getProperty([NSObject class], "ZelkaCB_contactID");
    ASSERT_NE(property, nullptr);
    EXPECT_EQ(property_getAttributes(property), "T" + std::string(@encode(NSInteger)) + ",D,N");
    EXPECT_EQ(class_getProperty([UIView class], "ZelkaCB_contactID"), property);
}

TEST_F(Categories, AContactIdIsKeptUntilAnotherReplacesIt) {
    boot();
    NSObject* object = [[[NSObject alloc] init] autorelease];
    Method make = class_getClassMethod([NSNumber class], @selector(numberWithInteger:));
    const IMP before = method_setImplementation(
        make, (IMP) + [](id, SEL, NSInteger) -> id { return [[[FreedWitness alloc] init] autorelease]; });
    @autoreleasepool {
        [object setZelkaCB_contactID:1];
    }
    EXPECT_EQ(happened(), "");
    @autoreleasepool {
        [object setZelkaCB_contactID:2];
    }
    EXPECT_EQ(happened(), "freed ");
    method_setImplementation(make, before);
}

}  // namespace
