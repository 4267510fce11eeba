#include "simulator/frameworks/uikit/controller/UIWindow.h"

#include <vector>

#include "simulator/frameworks/uikit/controller/UIApplication.h"
#include "simulator/frameworks/uikit/controller/UIWindow+Private.h"
#include "simulator/frameworks/uikit/view/UIView+Private.h"
#include "simulator/runtime/process/pending_work.h"

namespace {

// Windows are owned by whoever made them.
std::vector<UIWindow*>& allWindows() {
    static std::vector<UIWindow*> windows;
    return windows;
}

UIWindow* currentKeyWindow = nil;
BOOL layoutScheduled = NO;

long scheduledPasses() { return layoutScheduled ? 1 : 0; }

}  // namespace

@implementation UIWindow

+ (void)load {
    phone::addWorkSource(scheduledPasses);
}

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        allWindows().push_back(self);
        [self setHidden:YES];
    }
    return self;
}

- (void)dealloc {
    std::erase(allWindows(), self);
    if (currentKeyWindow == self) currentKeyWindow = nil;
    [_rootViewController release];
    [super dealloc];
}

- (UIResponder*)nextResponder {
    return [UIApplication sharedApplication];
}

- (UIViewController*)rootViewController {
    return _rootViewController;
}

- (void)setRootViewController:(UIViewController*)controller {
    [self _requireThread:_cmd];
    if (controller == _rootViewController) return;
    [self _removeRootView];
    [controller retain];
    [_rootViewController release];
    _rootViewController = controller;
    if (![self isHidden]) [self _showRootView];
}

- (BOOL)isKeyWindow {
    return currentKeyWindow == self;
}

- (void)makeKeyAndVisible {
    [self _requireThread:_cmd];
    currentKeyWindow = self;
    if (![self isHidden]) return;
    [self setHidden:NO];
    [self _showRootView];
}

- (void)_showRootView {
    if (!_rootViewController) return;
    UIView* view = [_rootViewController view];
    [_rootViewController beginAppearanceTransition:YES animated:NO];
    [view setFrame:[self bounds]];
    [view setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
    [self addSubview:view];
    [self layoutIfNeeded];
    [_rootViewController endAppearanceTransition];
}

- (void)_removeRootView {
    if (![_rootViewController isViewLoaded] || [[_rootViewController view] window] != self) return;
    [_rootViewController beginAppearanceTransition:NO animated:NO];
    [[_rootViewController view] removeFromSuperview];
    [_rootViewController endAppearanceTransition];
}

@end

@implementation UIWindow (UIWindowPrivate)

+ (void)_scheduleLayoutPass {
    if (layoutScheduled) return;
    layoutScheduled = YES;
    [[NSRunLoop mainRunLoop] performSelector:@selector(_runLayoutPass)
                                      target:self
                                    argument:nil
                                       order:NSUIntegerMax
                                       modes:[NSArray arrayWithObject:NSDefaultRunLoopMode]];
}

+ (void)_runLayoutPass {
    layoutScheduled = NO;
    for (UIWindow* window in [self _windows]) [window layoutIfNeeded];
}

+ (NSArray*)_windows {
    return [NSArray arrayWithObjects:allWindows().data() count:allWindows().size()];
}

+ (UIWindow*)_keyWindow {
    return currentKeyWindow;
}

@end
