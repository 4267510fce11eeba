// What the remote control can ask a host to do.
#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <vector>

#include "simulator/runtime/result.h"

namespace hosts {

struct Reply {
    NSDictionary* values = nil;  // +0
    bool quit = false;           // whether the host is to end
};

// Carries out one command ({"do": name, ...}). Never raises: an exception is a failure. Main thread.
phone::Result<Reply> carryOut(NSDictionary* command, const std::vector<std::string>& injectedLibraries);

}  // namespace hosts
