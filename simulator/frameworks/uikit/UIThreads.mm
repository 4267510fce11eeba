#include "simulator/frameworks/uikit/UIThreads.h"

#include <stdio.h>
#include <stdlib.h>

void UIRequireThread(id object, SEL method, BOOL madeElsewhere, BOOL shown) {
    if ([NSThread isMainThread] || (madeElsewhere && !shown)) return;
    // An exception would be swallowed by the operation queue whose thread this most likely is.
    fprintf(stderr, "UIKit: -[%s %s] must be used from the main thread only\n",
            [NSStringFromClass([object class]) UTF8String], [NSStringFromSelector(method) UTF8String]);
    abort();
}
