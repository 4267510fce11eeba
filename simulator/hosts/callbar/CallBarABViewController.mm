#import "simulator/hosts/callbar/CallBarABViewController.h"

#import "simulator/hosts/callbar/CallBarCall.h"
#import "simulator/hosts/callbar/CallBarDrawing.h"
#import "simulator/hosts/callbar/CallBarTableViewTransparentCell.h"

namespace {

NSString* const kCellIdentifier = @"CallBarRecent";

// "mobile", with the number of calls that the row stands for when there are several.
NSString* kindText(NSArray* calls) {
    NSString* kind = [[calls objectAtIndex:0] addressKind];
    return [calls count] > 1 ? [NSString stringWithFormat:@"%@ (%u)", kind, (unsigned)[calls count]] : kind;
}

// The stand-in's own name for "another process has added to the call history".
NSString* const kCallsChanged = @"phonesim.callHistoryChanged";

void callsChanged(CFNotificationCenterRef, void* observer, CFStringRef, const void*, CFDictionaryRef) {
    [(CallBarABViewController*)observer performSelectorOnMainThread:@selector(readEntriesAndReload)
                                                         withObject:nil
                                                      waitUntilDone:NO];
}

}  // namespace

@implementation CallBarABViewController

- (void)dealloc {
    CFNotificationCenterRemoveEveryObserver(CFNotificationCenterGetDarwinNotifyCenter(), self);
    [_missedEntries release];
    [_allEntries release];
    [super dealloc];
}

- (void)viewDidLoad {
    [super viewDidLoad];
    UITableView* table = [self tableView];
    [table setRowHeight:[CallBarTableViewTransparentCell rowHeight]];
    [table setSeparatorInset:UIEdgeInsetsMake(0, 15, 0, 0)];
    CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), self, callsChanged, kCallsChanged,
                                    nullptr, CFNotificationSuspensionBehaviorDeliverImmediately);
}

- (void)viewWillAppear:(BOOL)animated {
    [super viewWillAppear:animated];
    [self readEntriesAndReload];
}

- (void)readEntriesAndReload {
    [self readEntries];
    [[self tableView] reloadData];
}

- (void)readEntries {
    NSArray* calls = CallBarReadCalls();
    [_allEntries release];
    _allEntries = [CallBarEntriesOfCalls(calls) retain];
    [_missedEntries release];
    _missedEntries = [CallBarEntriesOfCalls(CallBarMissedCalls(calls)) retain];
}

- (void)setOnlyMissed:(BOOL)missed {
    if (missed == onlyMissed) return;
    onlyMissed = missed;
    [[self tableView] reloadData];
}

- (BOOL)onlyMissed {
    return onlyMissed;
}

- (NSArray*)shownEntries {
    return onlyMissed ? _missedEntries : _allEntries;
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
    [super setEditing:editing animated:animated];
    [[self tableView] setEditing:editing animated:animated];
}

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    return (NSInteger)[[self shownEntries] count];
}

// The rows bring their own delete control, at their end.
- (UITableViewCellEditingStyle)tableView:(UITableView*)tableView editingStyleForRowAtIndexPath:(NSIndexPath*)indexPath {
    return UITableViewCellEditingStyleNone;
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    CallBarTableViewTransparentCell* cell = [tableView dequeueReusableCellWithIdentifier:kCellIdentifier];
    if (cell == nil) {
        cell = [[[CallBarTableViewTransparentCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                       reuseIdentifier:kCellIdentifier] autorelease];
    }
    NSArray* calls = [[[self shownEntries] objectAtIndex:(NSUInteger)[indexPath row]] objectForKey:@"calls"];
    CallBarCall* call = [calls objectAtIndex:0];
    [[cell nameLabel] setText:[call displayName]];
    [[cell nameLabel] setTextColor:[call isMissed] ? CallBarMissedColor() : [UIColor blackColor]];
    [[cell kindLabel] setText:kindText(calls)];
    [[cell dateLabel] setDate:[call date]];
    [[cell typeIcon] setHidden:![call isOutgoing]];
    [cell setNeedsLayout];
    return cell;
}

@end
