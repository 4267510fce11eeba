// The rule about threads that views, controllers and windows keep.
#pragma once

#include "simulator/frameworks/uikit/view/UIResponder.h"

@interface UIResponder (UIResponderPrivate)

// Ends the process with a message that names the class and `method`, the caller's own selector, unless the responder
// may be changed on this thread.
- (void)_requireThread:(SEL)method;

// Whether another thread than the main one may change it; NO here.
- (BOOL)_mayChangeOffMainThread;

@end
