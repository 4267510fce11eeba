#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

#include <stdio.h>
#include <stdlib.h>

@implementation UIResponder (UIResponderPrivate)

- (void)_requireThread:(SEL)method {
    if ([NSThread isMainThread] || [self _mayChangeOffMainThread]) return;
    // An exception would be swallowed by the operation queue whose thread this most likely is.
    fprintf(stderr, "UIKit: -[%s %s] must be used from the main thread only\n",
            [NSStringFromClass([self class]) UTF8String], [NSStringFromSelector(method) UTF8String]);
    abort();
}

- (BOOL)_mayChangeOffMainThread {
    return NO;
}

@end
