// The commands that every host carries out, whatever its window shows: settle, shot, watch, objects, info, quit.
#pragma once

#import <Foundation/Foundation.h>

#include <map>
#include <string>
#include <vector>

#import "simulator/hosts/remote/command_result.h"

namespace hosts {

using Libraries = std::vector<std::string>;
using Handler = CommandResult (*)(NSDictionary* command, const Libraries& injectedLibraries);
using Handlers = std::map<std::string, Handler>;

CommandResult done(NSDictionary* values);
CommandResult failed(NSString* error);
// A value of the command (+0); nil when it is missing or not of that class.
NSString* textOf(NSDictionary* command, NSString* key);
NSNumber* numberOf(NSDictionary* command, NSString* key);

// These handlers and the window's; where both have a name, these.
Handlers withWindowHandlers(const Handlers& own);

// Carries out a command by the handler of its name; an exception or an unknown name is a failure. Main thread.
CommandResult carryOutBy(const Handlers& handlers, NSDictionary* command, const Libraries& injectedLibraries);

}  // namespace hosts
