// The process that shows CallBar's screen while a call is on: it launches with nothing on the screen, and the window
// comes when it is asked for.
#include "simulator/frameworks/uikit/uikit.h"
#include "simulator/hosts/program/host_main.h"

@interface CallBarViewServiceDelegate : NSObject <UIApplicationDelegate>
@end

@implementation CallBarViewServiceDelegate
@end

int main(int argc, char** argv) {
    return hosts::runHost(argc, argv, {"net.vantrel.callbarviewservice", nil, @"CallBarViewServiceDelegate"});
}
