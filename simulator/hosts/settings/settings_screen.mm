#include "simulator/hosts/settings/settings_screen.h"

#include "simulator/hosts/settings/SettingsRootController.h"

UIWindow* SettingsWindow(void) {
    static UIWindow* window = nil;
    if (window == nil) {
        window = [[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]];
        SettingsRootController* root = [[[SettingsRootController alloc] init] autorelease];
        [window setRootViewController:[[[UINavigationController alloc] initWithRootViewController:root] autorelease]];
        [window makeKeyAndVisible];
    }
    return window;
}

UINavigationController* SettingsPages(void) { return (UINavigationController*)[SettingsWindow() rootViewController]; }

PSListController* SettingsShownList(void) {
    UIViewController* shown = [SettingsPages() topViewController];
    return [shown isKindOfClass:[PSListController class]] ? (PSListController*)shown : nil;
}
