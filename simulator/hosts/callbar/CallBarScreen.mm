#import "simulator/hosts/callbar/CallBarScreen.h"

UIWindow* CallBarWindow(void) {
    static UIWindow* window = nil;
    if (window == nil) {
        window = [[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]];
        [window setRootViewController:[[[CallBarControllerModern alloc] init] autorelease]];
        [window makeKeyAndVisible];
    }
    return window;
}

CallBarControllerModern* CallBarController(void) {
    return (CallBarControllerModern*)[CallBarWindow() rootViewController];
}
