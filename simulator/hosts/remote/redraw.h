// What a list shows right after a notification: whether it was redrawn with it, or later.
#pragma once

#import <Foundation/Foundation.h>

#include <string>

#include "simulator/runtime/result.h"

namespace hosts {

// Everything below runs on the main thread.

// Looks out for the Darwin notification's next delivery to this process. The observers that were registered before are
// called first; at the end of the run loop's turn that called them, after its layout pass, the list is looked at.
void expectNotification(NSString* name);

// Runs the main run loop until that look has been taken, for `seconds` at the most. Returns (+0) {"rows": as of the
// command "rows", without sources, "buttons": as of "favorites", "seconds": from the delivery to the look}. Fails when
// nothing was expected, and when it did not come.
phone::Result<NSDictionary*> awaitRedraw(double seconds);

}  // namespace hosts
