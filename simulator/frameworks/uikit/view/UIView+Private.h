// What UIKit's own classes ask of views.
#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

@interface UIView (UIViewPrivate)

// Ends the process with a message that names the class and `method`, the caller's own selector, unless the view may be
// changed on this thread (UIView.h).
- (void)_requireThread:(SEL)method;

// The controller whose view this is; unowned.
- (UIViewController*)_viewController;
- (void)_setViewController:(UIViewController*)controller;

@end

@interface UIView (UIViewPrivateLayout)

// Told by the layer that its bounds' size changed.
- (void)_layer:(CALayer*)layer changedSizeFrom:(CGSize)oldSize;

// Before system 9 UIKit mirrored no view; from 9 on it mirrors all when the layout direction is right-to-left.
+ (BOOL)_mirrorsLayout;

@end
