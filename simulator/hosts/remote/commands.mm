#import "simulator/hosts/remote/commands.h"

#import "simulator/hosts/callbar/CallBarABViewController.h"
#import "simulator/hosts/callbar/CallBarScreen.h"
#import "simulator/hosts/remote/redraw.h"
#import "simulator/hosts/remote/row_report.h"
#import "simulator/hosts/remote/screen_window.h"
#import "simulator/hosts/remote/window_commands.h"
#include "simulator/runtime/process/process.h"

namespace hosts {
namespace {

// How long a person looks at a list before going to the next, in seconds, if its pictures are still coming.
constexpr double kPatience = 2;

UITableView* shownTable() {
    CallBarControllerModern* controller = CallBarController();
    UIViewController* shown = [controller shownController];
    return [shown respondsToSelector:@selector(tableView)] ? [(CallBarABViewController*)shown tableView] : nil;
}

void tap(UIButton* button) { [button sendActionsForControlEvents:UIControlEventTouchUpInside]; }

// Whether there is such a screen; a search needs a text.
bool showScreen(NSString* screen, NSString* text) {
    CallBarControllerModern* controller = CallBarController();
    if ([screen isEqualToString:@"recents"] || [screen isEqualToString:@"missed"]) {
        tap([controller recentsButton]);
        [[controller recentsController] setOnlyMissed:[screen isEqualToString:@"missed"]];
    } else if ([screen isEqualToString:@"contacts"] || [screen isEqualToString:@"search"]) {
        tap([controller contactsButton]);
        [[controller membersController] setSearchText:text];
    } else if ([screen isEqualToString:@"favorites"]) {
        tap([controller favoritesButton]);
    } else {
        return false;
    }
    return true;
}

CommandResult show(NSDictionary* command, const Libraries&) {
    NSString* screen = textOf(command, @"screen");
    NSString* text = textOf(command, @"text");
    const bool searching = [screen isEqualToString:@"search"];
    if (searching && [text length] == 0) return failed(@"a search needs a \"text\"");
    CallBarControllerModern* controller = CallBarController();
    // Whether it came to rest in that time makes no difference to what is shown next.
    phone::settle(kPatience);
    if (NSNumber* nameViews = numberOf(command, @"nameViews"))
        [[controller membersController] setGivesNameViews:[nameViews boolValue]];
    if (!showScreen(screen, searching ? text : nil)) {
        return failed([NSString stringWithFormat:@"no screen \"%@\": recents, missed, favorites, contacts or search",
                                                 screen != nil ? screen : @""]);
    }
    [[controller shownController] setEditing:[numberOf(command, @"editing") boolValue] animated:NO];
    [controller updateTitle];
    [shownTable() setContentOffset:CGPointMake(0, 0)];
    [CallBarWindow() layoutIfNeeded];
    return done(@{});
}

CommandResult layout(NSDictionary*, const Libraries&) {
    for (UIView* cell in [shownTable() visibleCells]) [cell setNeedsLayout];
    [[CallBarController() view] setNeedsLayout];
    [CallBarWindow() layoutIfNeeded];
    return done(@{});
}

CommandResult reload(NSDictionary*, const Libraries&) {
    if (shownTable() == nil) return failed(@"favorites is not a table: nothing to reload");
    [shownTable() reloadData];
    [CallBarWindow() layoutIfNeeded];
    return done(@{});
}

// The path of the row that is the nth of the whole table; nil when there are not so many.
NSIndexPath* pathOfRow(UITableView* table, NSInteger row) {
    for (NSInteger section = 0; row >= 0 && section < [table numberOfSections]; ++section) {
        const NSInteger count = [table numberOfRowsInSection:section];
        if (row < count) return [NSIndexPath indexPathForRow:row inSection:section];
        row -= count;
    }
    return nil;
}

CommandResult scroll(NSDictionary* command, const Libraries&) {
    UITableView* table = shownTable();
    if (table == nil) return failed(@"favorites does not scroll");
    if (NSNumber* offset = numberOf(command, @"offset")) {
        const CGFloat lowest = [table contentSize].height - [table bounds].size.height;
        [table setContentOffset:CGPointMake(0, MAX(0, MIN(lowest, [offset doubleValue])))];
    } else {
        NSNumber* row = numberOf(command, @"row");
        NSIndexPath* path = row != nil ? pathOfRow(table, [row integerValue]) : nil;
        if (path == nil) return failed(@"scroll needs an \"offset\" in points, or a \"row\" that the list has");
        [table scrollToRowAtIndexPath:path atScrollPosition:UITableViewScrollPositionTop animated:NO];
    }
    [CallBarWindow() layoutIfNeeded];
    return done(@{@"offset" : [NSNumber numberWithDouble:[table contentOffset].y]});
}

// Whether the reply says where pictures come from, which takes a while.
bool wantsSources(NSDictionary* command) {
    NSNumber* wanted = numberOf(command, @"sources");
    return wanted == nil || [wanted boolValue];
}

CommandResult rows(NSDictionary* command, const Libraries&) {
    return done(@{@"rows" : rowReports(CallBarController(), wantsSources(command))});
}

CommandResult favorites(NSDictionary* command, const Libraries&) {
    [CallBarWindow() layoutIfNeeded];
    return done(@{@"buttons" : favoriteReports(CallBarController(), wantsSources(command))});
}

CommandResult toggle(NSDictionary* command, const Libraries&) {
    CallBarControllerModern* controller = CallBarController();
    NSDictionary* buttons = @{
        @"favorites" : [controller favoritesButton],
        @"recents" : [controller recentsButton],
        @"contacts" : [controller contactsButton]
    };
    NSString* list = textOf(command, @"list");
    UIButton* button = list != nil ? [buttons objectForKey:list] : nil;
    if (button == nil) return failed(@"toggle needs a \"list\": favorites, recents or contacts");
    tap(button);
    [CallBarWindow() layoutIfNeeded];
    NSMutableArray* selected = [NSMutableArray array];
    for (NSString* name in @[ @"favorites", @"recents", @"contacts" ])
        if ([(UIButton*)[buttons objectForKey:name] isSelected]) [selected addObject:name];
    return done(@{@"selected" : selected});
}

// The system's screens have a generator of their own beside CallBar's.
ABMonogrammer* systemGenerator() {
    static ABMonogrammer* generator = [[ABMonogrammer alloc] initWithDiameter:60];
    return generator;
}

CommandResult monogram(NSDictionary* command, const Libraries&) {
    NSString* which = textOf(command, @"generator");
    const bool callBars = [which isEqualToString:@"callbar"];
    if (!callBars && ![which isEqualToString:@"system"])
        return failed(@"monogram needs a \"generator\": callbar or system");
    ABMonogrammer* generator = callBars ? [CallBarController() monogrammer] : systemGenerator();
    NSNumber* contact = numberOf(command, @"contact");
    NSString* photo = textOf(command, @"photo");
    UIImage* picture = nil;
    BOOL isPersonImage = NO;
    if (contact != nil) {
        ABUIPerson* person = [ABUIPerson personWithRecordID:[contact intValue]];
        picture = [generator monogramForPerson:[person record] isPersonImage:&isPersonImage];
    } else if (photo != nil) {
        picture = [generator _copyMonogramWithImageData:[NSData dataWithContentsOfFile:photo]];
    } else {
        picture = [generator _copyMonogramWithInitials:textOf(command, @"initials")];
    }
    [picture autorelease];
    return done(@{
        @"picture" : pictureReport(picture, [contact intValue]),
        @"isPersonImage" : [NSNumber numberWithBool:isPersonImage]
    });
}

CommandResult expect(NSDictionary* command, const Libraries&) {
    NSString* name = textOf(command, @"notification");
    if (name == nil) return failed(@"expect needs the name of a \"notification\"");
    expectNotification(name);
    return done(@{});
}

CommandResult await(NSDictionary* command, const Libraries&) {
    return awaitRedraw([numberOf(command, @"timeout") doubleValue]).map([](NSDictionary* look) {
        return Reply{look, false};
    });
}

const Handlers& handlers() {
    static const Handlers table = withWindowHandlers({{"show", show},
                                                      {"layout", layout},
                                                      {"reload", reload},
                                                      {"scroll", scroll},
                                                      {"rows", rows},
                                                      {"favorites", favorites},
                                                      {"toggle", toggle},
                                                      {"monogram", monogram},
                                                      {"expect", expect},
                                                      {"await", await}});
    return table;
}

}  // namespace

UIWindow* screenWindow() { return CallBarWindow(); }

CommandResult carryOut(NSDictionary* command, const Libraries& injectedLibraries) {
    return carryOutBy(handlers(), command, injectedLibraries);
}

}  // namespace hosts
