// What a layer expects of the view that it belongs to, beyond CALayerDelegate. A layer looks at its delegate for each.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/geometry.h"

@class CALayer;

@protocol CALayerOwner <NSObject>
@optional
// Sent before the layer is changed by `method`, the layer's own selector: ends the process when this thread may not.
- (void)_layer:(CALayer*)layer willBeChangedBy:(SEL)method;
// Sent after the size of the layer's bounds changed.
- (void)_layer:(CALayer*)layer changedSizeFrom:(CGSize)oldSize;
@end
