#pragma once

#include "simulator/frameworks/uikit/controller/UIWindow.h"

typedef NS_ENUM(NSInteger, UIInterfaceOrientation) {
    UIInterfaceOrientationUnknown = 0,
    UIInterfaceOrientationPortrait = 1,
    UIInterfaceOrientationPortraitUpsideDown = 2,
    UIInterfaceOrientationLandscapeRight = 3,
    UIInterfaceOrientationLandscapeLeft = 4,
};

typedef NS_ENUM(NSInteger, UIUserInterfaceLayoutDirection) {
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
CG_EXTERN UIApplication* UIApplicationStart(NSString* principalClassName, NSString* delegateClassName);

// The life of an application's process: boots in the phone root that the command line names, has the phone's injector
// load its libraries, launches the application as UIApplicationStart does, and serves the remote control until it is
// asked to quit; then the process ends. Returns 2 for a wrong command line only. A part of the library that hosts link
// (simulator/hosts/own), for on a phone the process is one before its main runs. Main thread.
//
//   PROGRAM --root ROOT [--without-extension] [--bundle-identifier ID]
//
// Without an identifier the process has the program's name for one.
CG_EXTERN int UIApplicationMain(int argc, char* argv[], NSString* principalClassName, NSString* delegateClassName);
