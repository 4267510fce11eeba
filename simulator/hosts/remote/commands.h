// What the remote control can ask a host to do.
#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <vector>

namespace hosts {

struct CommandResult {
    NSDictionary* answer = nil;  // +0; nil when it failed
    NSString* error = nil;       // +0; what went wrong, when it failed
    bool quit = false;
};

// Carries out one command ({"do": name, ...}). Never raises: an exception is answered as an error. Main thread.
CommandResult carryOut(NSDictionary* command, const std::vector<std::string>& injectedLibraries);

}  // namespace hosts
