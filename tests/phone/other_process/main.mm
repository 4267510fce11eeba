// A process of the phone that is none of CallBar's: the system's own Contacts list and a monogram generator of its own.
// It shows its list and answers the same remote control as the hosts do, with these commands: rows, monogram, settle,
// info, quit.
#include "simulator/frameworks/contacts_ui/contacts_ui.h"
#include "simulator/hosts/callbar/CallBarScreen.h"
#include "simulator/hosts/program/host_main.h"
#include "simulator/hosts/remote/commands.h"
#include "simulator/hosts/remote/pixels.h"
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

// What the remote control takes for the window on the screen.
UIWindow* CallBarWindow(void) { return window; }

namespace hosts {

phone::Result<Reply> carryOut(NSDictionary* command, const std::vector<std::string>& injectedLibraries) {
    NSString* name = [command objectForKey:@"do"];
    if ([name isEqualToString:@"rows"]) return Reply {
            @{@"rows" : rows()}
        };
    if ([name isEqualToString:@"monogram"]) return Reply{monogram([[command objectForKey:@"contact"] intValue])};
    if ([name isEqualToString:@"settle"]) {
        if (phone::settle([[command objectForKey:@"timeout"] doubleValue])) return Reply {
                @{}
            };
        return phone::failure("still waiting");
    }
    if ([name isEqualToString:@"info"]) {
        return Reply {
            @{@"libraries" : [NSNumber numberWithUnsignedLong:injectedLibraries.size()]}
        };
    }
    if ([name isEqualToString:@"quit"]) return Reply {
            @{}, true
        };
    return phone::failure(std::string("no command \"") + [name UTF8String] + "\"");
}

}  // namespace hosts

int main(int argc, char** argv) {
    return hosts::runHost(argc, argv, {"com.apple.MobileAddressBook", nil, @"OtherDelegate"});
}
