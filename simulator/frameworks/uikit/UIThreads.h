// Who may change a view, checked.
#pragma once

#import <Foundation/Foundation.h>

// Ends the process with a message that names the class and the method unless the caller is on the main thread or
// `madeElsewhere` (the object was made on another thread) and not `shown` (it is not in a window).
void UIRequireThread(id object, SEL method, BOOL madeElsewhere, BOOL shown);
