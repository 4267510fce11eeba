#pragma once

#include "simulator/frameworks/uikit/control/UINavigationBar.h"
#include "simulator/frameworks/uikit/controller/UIViewController.h"

// A stack of controllers, of which the last is shown below a bar. Changes are there at once, animated or not.
@interface UINavigationController : UIViewController {
  @private
    UINavigationBar* _navigationBar;
}

- (instancetype)initWithRootViewController:(UIViewController*)root;

@property (nonatomic, readonly) UINavigationBar* navigationBar;       // +0
@property (nonatomic, readonly) NSArray* viewControllers;             // from the root up; +0
@property (nonatomic, readonly) UIViewController* topViewController;  // +0

- (void)pushViewController:(UIViewController*)controller animated:(BOOL)animated;
// The controller that was shown, +0; nil for the root, which stays.
- (UIViewController*)popViewControllerAnimated:(BOOL)animated;

@end

@interface UIViewController (UINavigationController)

@property (nonatomic, readonly) UINavigationController* navigationController;  // whose stack it is in, or nil; unowned

@end
