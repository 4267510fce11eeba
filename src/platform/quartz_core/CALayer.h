// The layer that a view draws through. Main thread.
#pragma once

#include "src/platform/core_graphics.h"
#include "src/platform/foundation/NSObject.h"

struct CALayer : NSObject {
    // In points.
    void setCornerRadius(CGFloat radius) const { zelka::send<void, "setCornerRadius:">(*this, radius); }
    // Draws the layer and those above it, in its own coordinates.
    void renderIn(CGContextRef context) const { zelka::send<void, "renderInContext:">(*this, context); }
};
