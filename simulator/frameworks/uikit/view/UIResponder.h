// The root of everything that can stand in the chain of responders.
#pragma once

#import <Foundation/Foundation.h>

@interface UIResponder : NSObject

// Who is asked next; nil here, the superview for a view, the application for a window. Unowned.
- (UIResponder*)nextResponder;

@end
