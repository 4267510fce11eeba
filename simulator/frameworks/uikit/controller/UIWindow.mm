#include "simulator/frameworks/uikit/controller/UIWindow.h"

#include "simulator/frameworks/uikit/controller/window_list.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"
#include "simulator/frameworks/uikit/view/UIView+Private.h"
#include "simulator/runtime/process/pending_work.h"

namespace {

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
        uikit::addWindow(self);
        [self setHidden:YES];
    }
    return self;
}

- (void)dealloc {
    uikit::removeWindow(self);
    [_rootViewController release];
    [super dealloc];
}

- (UIResponder*)nextResponder {
    return uikit::responderBehindWindows();
}

- (UIViewController*)rootViewController {
    return _rootViewController;
}

- (void)setRootViewController:(UIViewController*)controller {
    [self _requireThread:_cmd];
    if (controller == _rootViewController) return;
    [self _removeRootView];
    ASSIGN(_rootViewController, controller);
    if (![self isHidden]) [self _showRootView];
}

- (BOOL)isKeyWindow {
    return uikit::keyWindow() == self;
}

- (void)makeKeyAndVisible {
    [self _requireThread:_cmd];
    uikit::setKeyWindow(self);
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

- (UIWindow*)window {
    return self;
}

// Has every window laid out at the end of the run loop's current turn; counted as pending work until then.
- (void)_descendantNeedsLayout {
    if (layoutScheduled) return;
    layoutScheduled = YES;
    [[NSRunLoop mainRunLoop] performSelector:@selector(_runLayoutPass)
                                      target:[UIWindow class]
                                    argument:nil
                                       order:NSUIntegerMax
                                       modes:[NSArray arrayWithObject:NSDefaultRunLoopMode]];
}

+ (void)_runLayoutPass {
    layoutScheduled = NO;
    for (UIWindow* window in uikit::allWindows()) [window layoutIfNeeded];
}

@end
