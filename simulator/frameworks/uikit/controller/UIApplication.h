#pragma once

#include "simulator/frameworks/uikit/controller/UIWindow.h"

enum UIInterfaceOrientation : NSInteger {
    UIInterfaceOrientationUnknown = 0,
    UIInterfaceOrientationPortrait = 1,
    UIInterfaceOrientationPortraitUpsideDown = 2,
    UIInterfaceOrientationLandscapeRight = 3,
    UIInterfaceOrientationLandscapeLeft = 4,
};

enum UIUserInterfaceLayoutDirection : NSInteger {
    UIUserInterfaceLayoutDirectionLeftToRight,
    UIUserInterfaceLayoutDirectionRightToLeft,
};

@class UIApplication;

@protocol UIApplicationDelegate <NSObject>
@optional
- (void)applicationDidFinishLaunching:(UIApplication*)application;
- (BOOL)application:(UIApplication*)application didFinishLaunchingWithOptions:(NSDictionary*)options;
@end

// The process's one application. The first instance made, of this class or a subclass, is the shared one.
@interface UIApplication : UIResponder {
  @private
    id _delegate;
}

+ (UIApplication*)sharedApplication;  // nil before UIApplicationStart; +0

@property (nonatomic, assign) id<UIApplicationDelegate> delegate;
@property (nonatomic, readonly) NSArray* windows;     // back to front; +0
@property (nonatomic, readonly) UIWindow* keyWindow;  // +0
@property (nonatomic, readonly) UIInterfaceOrientation statusBarOrientation;
@property (nonatomic, readonly) UIUserInterfaceLayoutDirection userInterfaceLayoutDirection;

@end

// What UIApplicationMain does short of running the loop: makes the application (nil: UIApplication) and its delegate
// (nil: the application itself when its class implements the delegate's methods) and tells the delegate that the
// launch finished. Main thread. Returns the application, owned by the process; an unknown class raises.
UIApplication* UIApplicationStart(NSString* principalClassName, NSString* delegateClassName);
