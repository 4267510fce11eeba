#include "simulator/frameworks/uikit/view/UIResponder.h"

@implementation UIResponder

- (UIResponder*)nextResponder {
    return nil;
}

@end
