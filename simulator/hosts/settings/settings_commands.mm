// What the remote control can ask the Settings app to do (see remote/host_process.h).
#include "simulator/frameworks/preferences/preference_values.h"
#import "simulator/hosts/remote/commands.h"
#import "simulator/hosts/remote/screen_window.h"
#import "simulator/hosts/remote/window_commands.h"
#include "simulator/hosts/settings/page_report.h"
#include "simulator/hosts/settings/settings_screen.h"

namespace hosts {
namespace {

CommandResult failedOf(NSString* what, NSString* name) {
    return failed([NSString stringWithFormat:@"%@ \"%@\"", what, name != nil ? name : @""]);
}

// nil when the first page has no such row; letters' case makes no difference, so that a screen is easy to type.
NSIndexPath* entryNamed(PSListController* root, NSString* name) {
    for (PSSpecifier* entry in [root specifiers]) {
        if ([[entry name] caseInsensitiveCompare:name] == NSOrderedSame) return [root indexPathForSpecifier:entry];
    }
    return nil;
}

void tapRow(PSListController* list, NSIndexPath* path) {
    [[list table] selectRowAtIndexPath:path animated:NO scrollPosition:UITableViewScrollPositionNone];
    [list tableView:[list table] didSelectRowAtIndexPath:path];
    [SettingsWindow() layoutIfNeeded];
}

CommandResult show(NSDictionary* command, const Libraries&) {
    NSString* screen = textOf(command, @"screen");
    NSArray* parts = [screen pathComponents];
    if ([parts count] == 0 || [parts count] > 2 || ![[parts objectAtIndex:0] isEqual:@"settings"])
        return failedOf(@"the screens are settings and settings/ENTRY, and there is no screen", screen);
    while ([SettingsPages() popViewControllerAnimated:NO] != nil) continue;
    [SettingsWindow() layoutIfNeeded];
    if ([parts count] == 1) return done(@{});
    NSIndexPath* path = entryNamed(SettingsShownList(), [parts objectAtIndex:1]);
    if (path == nil) return failedOf(@"the Settings app has no entry", [parts objectAtIndex:1]);
    tapRow(SettingsShownList(), path);
    return done(@{});
}

CommandResult rows(NSDictionary*, const Libraries&) {
    UINavigationBar* bar = [SettingsPages() navigationBar];
    if (SettingsShownList() == nil) return failedOf(@"no list of rows is the page", [[bar topItem] title]);
    NSString* title = [[bar topItem] title];
    NSString* back = [[bar backItem] title];
    return done(@{
        @"title" : title != nil ? (id)title : (id)[NSNull null],
        @"back" : back != nil ? (id)back : (id)[NSNull null],
        @"rows" : rowReportsOf(SettingsShownList()),
        @"alert" : alertReport()
    });
}

// The row that a command names, for a finger to reach: nothing is behind an alert.
CommandResult withRow(NSDictionary* command, CommandResult (*act)(PSListController* list, NSIndexPath* path)) {
    if ([UIAlertView _frontmost] != nil) return failedOf(@"in front is the alert", [[UIAlertView _frontmost] title]);
    NSString* label = textOf(command, @"label");
    NSIndexPath* path = label != nil ? rowLabelled(SettingsShownList(), label) : nil;
    if (path == nil) return failedOf(@"the page has no row", label);
    return act(SettingsShownList(), path);
}

CommandResult flipAt(PSListController* list, NSIndexPath* path) {
    UIView* control = [[[list table] cellForRowAtIndexPath:path] accessoryView];
    if (![control isKindOfClass:[UISwitch class]]) return failed(@"the row has no switch");
    UISwitch* flipped = (UISwitch*)control;
    if (![flipped isEnabled]) return failed(@"the switch is disabled");
    [flipped setOn:![flipped isOn] animated:YES];
    [flipped sendActionsForControlEvents:UIControlEventValueChanged];
    [SettingsWindow() layoutIfNeeded];
    return done(@{@"on" : [NSNumber numberWithBool:[flipped isOn]]});
}

CommandResult tapAt(PSListController* list, NSIndexPath* path) {
    if (![(PSTableCell*)[[list table] cellForRowAtIndexPath:path] cellEnabled]) return failed(@"the row is disabled");
    tapRow(list, path);
    return done(@{});
}

CommandResult flip(NSDictionary* command, const Libraries&) { return withRow(command, flipAt); }

CommandResult tap(NSDictionary* command, const Libraries&) { return withRow(command, tapAt); }

CommandResult back(NSDictionary*, const Libraries&) {
    UIButton* button = [[SettingsPages() navigationBar] _backButton];
    if ([button isHidden]) return failed(@"the first page has nothing to go back to");
    [button sendActionsForControlEvents:UIControlEventTouchUpInside];
    [SettingsWindow() layoutIfNeeded];
    return done(@{});
}

CommandResult press(NSDictionary* command, const Libraries&) {
    UIAlertView* alert = [UIAlertView _frontmost];
    if (alert == nil) return failed(@"there is no alert");
    NSString* title = textOf(command, @"button");
    for (NSInteger index = 0; index < [alert numberOfButtons]; ++index) {
        if (![[alert buttonTitleAtIndex:index] isEqual:title]) continue;
        [alert _pressButtonAtIndex:index];
        [SettingsWindow() layoutIfNeeded];
        return done(@{});
    }
    return failedOf(@"the alert has no button", title);
}

CommandResult scroll(NSDictionary* command, const Libraries&) {
    UITableView* table = [SettingsShownList() table];
    const CGFloat lowest = MAX(0, [table contentSize].height - [table bounds].size.height);
    [table setContentOffset:CGPointMake(0, MAX(0, MIN(lowest, [numberOf(command, @"offset") doubleValue])))];
    [SettingsWindow() layoutIfNeeded];
    return done(@{@"offset" : [NSNumber numberWithDouble:[table contentOffset].y]});
}

CommandResult layout(NSDictionary*, const Libraries&) {
    for (UIView* cell in [[SettingsShownList() table] visibleCells]) [cell setNeedsLayout];
    [SettingsWindow() layoutIfNeeded];
    return done(@{});
}

CommandResult synchronize(NSDictionary*, const Libraries&) {
    preferences::writeLateValues();
    return done(@{});
}

// The service outlives the app.
CommandResult quit(NSDictionary*, const Libraries&) {
    preferences::writeLateValues();
    return Reply { @{}, true };
}

}  // namespace

UIWindow* screenWindow() { return SettingsWindow(); }

CommandResult carryOut(NSDictionary* command, const Libraries& injectedLibraries) {
    static const Handlers handlers = withWindowHandlers({{"show", show},
                                                         {"rows", rows},
                                                         {"flip", flip},
                                                         {"tap", tap},
                                                         {"back", back},
                                                         {"press", press},
                                                         {"scroll", scroll},
                                                         {"layout", layout},
                                                         {"synchronize", synchronize},
                                                         {"quit", quit}});
    return carryOutBy(handlers, command, injectedLibraries);
}

}  // namespace hosts
