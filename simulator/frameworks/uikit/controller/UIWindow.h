#pragma once

#include "simulator/frameworks/uikit/controller/UIViewController.h"

// The root of what is on the screen.
@interface UIWindow : UIView {
  @private
    UIViewController* _rootViewController;
}

@property (nonatomic, retain) UIViewController* rootViewController;  // its view fills the window
@property (nonatomic, readonly, getter=isKeyWindow) BOOL keyWindow;

// Shows the window and the root view controller's view, which appears the first time.
- (void)makeKeyAndVisible;

@end
