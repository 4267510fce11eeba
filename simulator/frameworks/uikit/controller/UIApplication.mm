#include "simulator/frameworks/uikit/controller/UIApplication.h"

#include "simulator/frameworks/uikit/controller/window_list.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/runtime/process/device.h"

namespace {

UIApplication* shared = nil;

Class classNamed(NSString* name) {
    Class found = NSClassFromString(name);
    if (!found) [NSException raise:NSInvalidArgumentException format:@"UIApplicationStart: no class named %@", name];
    return found;
}

id makeDelegate(UIApplication* application, NSString* className) {
    if (className) return [[classNamed(className) alloc] init];
    const BOOL isOwnDelegate = [application respondsToSelector:@selector(applicationDidFinishLaunching:)] ||
                               [application respondsToSelector:@selector(application:didFinishLaunchingWithOptions:)];
    return isOwnDelegate ? application : nil;
}

}  // namespace

@implementation UIApplication

@synthesize delegate = _delegate;

+ (UIApplication*)sharedApplication {
    return shared;
}

- (instancetype)init {
    if (shared) {
        [NSException raise:NSInternalInconsistencyException format:@"There can only be one UIApplication instance."];
    }
    self = [super init];
    shared = self;
    uikit::setResponderBehindWindows(self);
    return self;
}

- (NSArray*)windows {
    return uikit::allWindows();
}

- (UIWindow*)keyWindow {
    return uikit::keyWindow();
}

- (UIInterfaceOrientation)statusBarOrientation {
    return static_cast<UIInterfaceOrientation>(phone::device().orientation);
}

- (UIUserInterfaceLayoutDirection)userInterfaceLayoutDirection {
    return uikit::rightToLeft() ? UIUserInterfaceLayoutDirectionRightToLeft : UIUserInterfaceLayoutDirectionLeftToRight;
}

@end

UIApplication* UIApplicationStart(NSString* principalClassName, NSString* delegateClassName) {
    UIApplication* application = [[classNamed(principalClassName ?: @"UIApplication") alloc] init];
    id delegate = makeDelegate(application, delegateClassName);
    [application setDelegate:delegate];
    if ([delegate respondsToSelector:@selector(application:didFinishLaunchingWithOptions:)]) {
        [delegate application:application didFinishLaunchingWithOptions:nil];
    } else if ([delegate respondsToSelector:@selector(applicationDidFinishLaunching:)]) {
        [delegate applicationDidFinishLaunching:application];
    }
    return application;
}
