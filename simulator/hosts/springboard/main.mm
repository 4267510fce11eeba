// SpringBoard, the system's shell: its application is its own delegate, and CallBar's screen is there from the launch
// on.
#include "simulator/hosts/callbar/CallBarScreen.h"
#include "simulator/hosts/program/host_main.h"

@interface SpringBoard : UIApplication <UIApplicationDelegate>
@end

@implementation SpringBoard

- (void)applicationDidFinishLaunching:(UIApplication*)application {
    CallBarWindow();
}

@end

int main(int argc, char** argv) { return hosts::runHost(argc, argv, {"com.apple.springboard", @"SpringBoard", nil}); }
