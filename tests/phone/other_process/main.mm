// A process of the phone that is none of CallBar's: the system's own Contacts list and a monogram generator of its own.
// It shows its list and takes the commands rows and monogram besides those that every host does.
#include "simulator/frameworks/contacts_ui/contacts_ui.h"
#include "simulator/hosts/program/host_main.h"
#include "simulator/hosts/remote/commands.h"
#include "simulator/hosts/remote/pixels.h"
#include "simulator/hosts/remote/screen_window.h"
#include "simulator/hosts/remote/window_commands.h"
#include "simulator/runtime/process/process.h"

namespace {

UIWindow* window;
ABMembersViewController* members;

NSString* hashOf(UIImage* image) {
    return [NSString stringWithUTF8String:hosts::contentHash(hosts::pixelsOf(image)).c_str()];
}

int imageViewsIn(UIView* view) {
    int found = [view isKindOfClass:[UIImageView class]] ? 1 : 0;
    for (UIView* child in [view subviews]) found += imageViewsIn(child);
    return found;
}

NSString* frameOf(UIView* view) {
    const CGRect frame = [view frame];
    return
        [NSString stringWithFormat:@"%g %g %g %g", frame.origin.x, frame.origin.y, frame.size.width, frame.size.height];
}

NSArray* rows() {
    NSMutableArray* reports = [NSMutableArray array];
    [window layoutIfNeeded];
    for (ABMemberCell* cell in [[members tableView] visibleCells]) {
        [reports addObject:@{
            @"name" : [cell name],
            @"contact" : [NSNumber numberWithInt:[[cell person] recordID]],
            @"hasPictureView" : [NSNumber numberWithBool:[cell viewWithTag:3232] != nil],
            @"imageViews" : [NSNumber numberWithInt:imageViewsIn(cell)],
            @"nameFrame" : frameOf([cell nameCanvas].superview)
        }];
    }
    return reports;
}

NSDictionary* monogram(int contact) {
    ABMonogrammer* generator = [[[ABMonogrammer alloc] initWithDiameter:60] autorelease];
    ABUIPerson* person = [ABUIPerson personWithRecordID:contact];
    BOOL isPersonImage = NO;
    UIImage* picture = [[generator monogramForPerson:[person record] isPersonImage:&isPersonImage] autorelease];
    UIImage* initials = [[generator _copyMonogramWithInitials:@"AB"] autorelease];
    return @{@"person" : hashOf(picture), @"initials" : hashOf(initials)};
}

}  // namespace

@interface OtherDelegate : NSObject <UIApplicationDelegate>
@end

@implementation OtherDelegate
- (void)applicationDidFinishLaunching:(UIApplication*)application {
    window = [[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]];
    members = [[ABMembersViewController alloc] init];
    [window setRootViewController:members];
    [window makeKeyAndVisible];
}
@end

namespace hosts {

UIWindow* screenWindow() { return window; }

namespace {

CommandResult rowsOfMembers(NSDictionary*, const Libraries&) { return done(@{@"rows" : rows()}); }

CommandResult monogramOf(NSDictionary* command, const Libraries&) {
    return done(monogram([numberOf(command, @"contact") intValue]));
}

}  // namespace

CommandResult carryOut(NSDictionary* command, const Libraries& injectedLibraries) {
    static const Handlers table = withWindowHandlers({{"rows", rowsOfMembers}, {"monogram", monogramOf}});
    return carryOutBy(table, command, injectedLibraries);
}

}  // namespace hosts

int main(int argc, char** argv) {
    return hosts::runHost(argc, argv, {"com.apple.MobileAddressBook", nil, @"OtherDelegate"});
}
