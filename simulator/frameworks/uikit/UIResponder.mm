#include "simulator/frameworks/uikit/UIResponder.h"

@implementation UIResponder

- (UIResponder*)nextResponder {
    return nil;
}

@end
