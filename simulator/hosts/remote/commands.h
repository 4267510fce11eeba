// What the remote control can ask a host to do.
#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <vector>

#import "simulator/hosts/remote/command_result.h"

namespace hosts {

// Carries out one command ({"do": name, ...}). Never raises: an exception is a failure. Main thread.
CommandResult carryOut(NSDictionary* command, const std::vector<std::string>& injectedLibraries);

}  // namespace hosts
