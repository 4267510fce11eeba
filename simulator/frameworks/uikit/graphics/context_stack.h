// This thread's stack of drawing contexts, on which UIKit's current context is the last.
#pragma once

#include "simulator/frameworks/core_graphics/context.h"

namespace uikit {

struct StackedContext {
    CGContextRef context;  // +1 held by the stack; NULL when it was begun for a picture without area
    bool isImageContext;
    CGFloat scale;  // pixels a point, of an image context
};

// Takes over one reference to the context.
void pushContext(const StackedContext& adopted);
// The last one; null when there is none. Valid until the stack changes.
const StackedContext* topContext();
// Takes off the last one if it is of the kind asked for.
void popContext(bool imageContext);

// The last one's context, +0; NULL when there is none.
CGContextRef currentContext();

}  // namespace uikit
