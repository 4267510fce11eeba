// What came of a command.
#pragma once

#import <Foundation/Foundation.h>

namespace hosts {

struct CommandResult {
    NSDictionary* answer = nil;  // +0; nil when it failed
    NSString* error = nil;       // +0; what went wrong, when it failed
    bool quit = false;
};

}  // namespace hosts
