// A Recents list of the tests' own making, whose calls may have every shape that CallBar's may.
#pragma once

#include "simulator/runtime/process/pending_work.h"
#include "tests/unit/hooks/hook_test.h"

// Call objects of every shape that CallBar's may have.
@interface UidCall : NSObject {
  @public
    NSInteger identifier;
}
- (NSInteger)uid;
@end

@interface RecordCall : NSObject {
  @public
    NSNumber* number;
}
- (NSNumber*)addressBookRecordId;
@end

@interface BothCall : UidCall
- (NSNumber*)addressBookRecordId;
@end

@interface NamedCall : UidCall {
  @public
    NSString* name;
}
- (NSString*)callerName;
@end

// Somebody flips a switch just then.
@interface FlippingUidCall : NamedCall {
  @public
    NSString* flip;  // the setting that goes off
}
@end

@interface FlippingNameCall : NamedCall
@end

namespace test {

class RecentsList : public HookTest {
  protected:
    using HookTest::HookTest;

    void startWithList(const char* bundleIdentifier = "com.apple.springboard") {
        start(bundleIdentifier);
        controller_ = [[CallBarABViewController alloc] init];
        controller_->cell = newCell();
    }

    CallBarTableViewTransparentCell* newCell() {
        return [[CallBarTableViewTransparentCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                      reuseIdentifier:@"row"];
    }
    UITableViewCell* cell() { return controller_->cell; }
    UIImageView* picture() { return pictureOf(cell()); }

    static NSDictionary* entry(id call, NSString* address = @"none") {
        return @{@"calls" : call != nil ? @[ call ] : @[], @"address" : address};
    }
    static id uidCall(NSInteger identifier) {
        UidCall* call = [[[UidCall alloc] init] autorelease];
        call->identifier = identifier;
        return call;
    }
    template <class Call>
    static Call* namedCall(NSInteger identifier, NSString* name) {
        Call* call = [[[Call alloc] init] autorelease];
        call->identifier = identifier;
        call->name = name;
        return call;
    }

    // Asks the list for a row, and answers the cell.
    UITableViewCell* ask(NSInteger row = 0) {
        return [controller_ tableView:nil cellForRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]];
    }
    void show(NSArray* entries) { controller_->_allEntries = [entries retain]; }
    // Shows a list of one row and asks for it.
    void showRow(id call, NSString* address = @"none") {
        show(@[ entry(call, address) ]);
        ask();
    }

    // How many statements a row of the call takes before its picture is loaded.
    int statementsFor(id call) {
        const int before = sqliteCalls().prepared;
        showRow(call);
        return sqliteCalls().prepared - before;
    }
    // Asks for a row of the call with monograms on and off: the address book is asked for initials the first time only.
    // While pictures are not cached, the queue has to be suspended.
    void expectInitialsAskedByTheSettingAlone(id call) {
        for (const BOOL monograms : {YES, NO}) {
            [settings() setIsMonogramEnabled:monograms];
            EXPECT_EQ(statementsFor(call), monograms ? 1 : 0);
        }
    }

    CallBarABViewController* controller_ = nil;
};

}  // namespace test
