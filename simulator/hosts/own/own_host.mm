// What makes a host of any program that calls UIApplicationMain.
#include <cstring>

#include "simulator/frameworks/uikit/uikit.h"
#import "simulator/hosts/program/host_main.h"
#import "simulator/hosts/remote/commands.h"
#import "simulator/hosts/remote/screen_window.h"
#import "simulator/hosts/remote/window_commands.h"

int UIApplicationMain(int argc, char* argv[], NSString* principalClassName, NSString* delegateClassName) {
    const char* slash = std::strrchr(argv[0], '/');
    const char* programName = slash != nullptr ? slash + 1 : argv[0];
    return hosts::runHost(argc, argv, {programName, principalClassName, delegateClassName});
}

namespace hosts {

UIWindow* screenWindow() { return [[UIApplication sharedApplication] keyWindow]; }

CommandResult carryOut(NSDictionary* command, const Libraries& injectedLibraries) {
    static const Handlers handlers = withWindowHandlers({});
    return carryOutBy(handlers, command, injectedLibraries);
}

}  // namespace hosts
