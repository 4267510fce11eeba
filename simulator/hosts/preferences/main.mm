// The Settings app.
#include "simulator/frameworks/uikit/uikit.h"
#include "simulator/hosts/program/host_main.h"
#include "simulator/hosts/settings/settings_screen.h"

@interface PreferencesAppController : UIApplication <UIApplicationDelegate>
@end

@implementation PreferencesAppController

- (void)applicationDidFinishLaunching:(UIApplication*)application {
    SettingsWindow();
}

@end

int main(int argc, char** argv) {
    return hosts::runHost(argc, argv, {"com.apple.Preferences", @"PreferencesAppController", nil});
}
