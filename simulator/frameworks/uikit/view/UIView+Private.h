// What UIKit's own classes ask of views.
#pragma once

#include "simulator/frameworks/quartz_core/CALayerOwner.h"
#include "simulator/frameworks/uikit/view/UIView.h"

@interface UIView (UIViewPrivate)

// The controller whose view this is; unowned.
- (void)_setViewDelegate:(UIResponder<UIViewDelegate>*)delegate;

// Sent up from a view that needs layout, through its superviews; a window has the layout pass run.
- (void)_descendantNeedsLayout;

@end

@interface UIView (UIViewLayerOwner) <CALayerOwner>
@end
