// What came of a command.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/runtime/result.h"

namespace hosts {

struct Reply {
    NSDictionary* values = nil;  // +0
    bool quit = false;           // whether the host is to end
};

using CommandResult = phone::Result<Reply>;

}  // namespace hosts
