#import "simulator/hosts/remote/commands.h"

#include <map>

#import "simulator/hosts/callbar/CallBarABViewController.h"
#import "simulator/hosts/callbar/CallBarScreen.h"
#import "simulator/hosts/remote/row_report.h"
#import "simulator/hosts/remote/screen_watch.h"
#include "simulator/runtime/process/pending_work.h"
#include "simulator/runtime/process/process.h"

// Declared by Foundation in debug builds alone, but always there.
extern "C" int GSDebugAllocationCount(Class cls);  // NOLINT(readability-redundant-declaration)

namespace hosts {
namespace {

// How long a person looks at a list before going to the next, in seconds, if its pictures are still coming.
constexpr double kPatience = 2;

using Libraries = std::vector<std::string>;
using CommandResult = phone::Result<Reply>;
using Handler = CommandResult (*)(NSDictionary*, const Libraries&);

CommandResult done(NSDictionary* values) { return Reply{values, false}; }

// A text that a command held may be no Unicode.
CommandResult failed(NSString* error) {
    NSData* utf8 = [error dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
    return phone::failure(std::string(static_cast<const char*>([utf8 bytes]), [utf8 length]));
}

// nil when it is missing or no text.
NSString* textOf(NSDictionary* command, NSString* key) {
    id value = [command objectForKey:key];
    return [value isKindOfClass:[NSString class]] ? value : nil;
}

// nil when it is missing or no number.
NSNumber* numberOf(NSDictionary* command, NSString* key) {
    id value = [command objectForKey:key];
    return [value isKindOfClass:[NSNumber class]] ? value : nil;
}

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

CommandResult settle(NSDictionary* command, const Libraries&) {
    const double timeout = [numberOf(command, @"timeout") doubleValue];
    if (timeout <= 0) return failed(@"settle needs a \"timeout\" above 0, in seconds");
    if (!phone::settle(timeout)) {
        return failed([NSString
            stringWithFormat:@"still waiting after %g s for %ld pieces of queued work", timeout, phone::pendingWork()]);
    }
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

CommandResult shot(NSDictionary* command, const Libraries&) {
    NSString* out = textOf(command, @"out");
    if (![out isAbsolutePath]) return failed(@"shot needs \"out\", the absolute path of the picture to write");
    NSError* problem = nil;
    if (!UIWriteSnapshotOfView(CallBarWindow(), out, &problem)) return failed([problem localizedDescription]);
    const CGSize size = [CallBarWindow() bounds].size;
    const CGFloat scale = [[UIScreen mainScreen] scale];
    return done(@{
        @"width" : [NSNumber numberWithDouble:size.width * scale],
        @"height" : [NSNumber numberWithDouble:size.height * scale]
    });
}

CommandResult watch(NSDictionary* command, const Libraries&) {
    NSString* out = textOf(command, @"out");
    const double interval = [numberOf(command, @"interval") doubleValue];
    if (![out isAbsolutePath])
        return failed(@"watch needs \"out\", the absolute path of the picture to keep up to date");
    if (interval <= 0) return failed(@"watch needs an \"interval\" above 0, in seconds");
    return screenWatch().start(out, interval).map([] {
        return Reply { @{}, false };
    });
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

CommandResult info(NSDictionary*, const Libraries& libraries) {
    NSMutableArray* paths = [NSMutableArray array];
    for (const std::string& path : libraries) [paths addObject:[NSString stringWithUTF8String:path.c_str()]];
    NSString* identifier = [[NSBundle mainBundle] bundleIdentifier];
    return done(@{
        @"bundleIdentifier" : identifier != nil ? (id)identifier : (id)[NSNull null],
        @"libraries" : paths,
        @"windows" : [NSNumber numberWithUnsignedInteger:[[[UIApplication sharedApplication] windows] count]],
        @"pendingWork" : [NSNumber numberWithLong:phone::pendingWork()]
    });
}

CommandResult objects(NSDictionary* command, const Libraries&) {
    NSMutableDictionary* counts = [NSMutableDictionary dictionary];
    for (NSString* name in [command objectForKey:@"classes"]) {
        const int count = GSDebugAllocationCount(NSClassFromString(name));
        [counts setObject:[NSNumber numberWithInt:count] forKey:name];
    }
    return done(@{@"counts" : counts});
}

CommandResult quit(NSDictionary*, const Libraries&) {
    return Reply { @{}, true };
}

const std::map<std::string, Handler>& handlers() {
    static const std::map<std::string, Handler> table{
        {"show", show}, {"settle", settle},       {"layout", layout}, {"reload", reload}, {"scroll", scroll},
        {"rows", rows}, {"favorites", favorites}, {"shot", shot},     {"toggle", toggle}, {"monogram", monogram},
        {"info", info}, {"objects", objects},     {"watch", watch},   {"quit", quit}};
    return table;
}

}  // namespace

phone::Result<Reply> carryOut(NSDictionary* command, const Libraries& injectedLibraries) {
    NSString* name = textOf(command, @"do");
    if (name == nil) return failed(@"a command names what to do: {\"do\": \"info\"}");
    const auto handler = handlers().find([name UTF8String]);
    if (handler == handlers().end()) return failed([NSString stringWithFormat:@"no command \"%@\"", name]);
    @try {
        return handler->second(command, injectedLibraries);
    } @catch (NSException* exception) {
        return failed([NSString stringWithFormat:@"%@: %@", [exception name], [exception reason]]);
    }
}

}  // namespace hosts
