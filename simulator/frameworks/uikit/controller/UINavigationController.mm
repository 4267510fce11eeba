#include "simulator/frameworks/uikit/controller/UINavigationController.h"

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"

namespace {

// Behind the status bar, too, from system 7 on.
CGFloat barHeight() { return uikit::systemMajorVersion() >= 7 ? 64 : 44; }

}  // namespace

@implementation UINavigationController

- (instancetype)initWithRootViewController:(UIViewController*)root {
    self = [super initWithNibName:nil bundle:nil];
    if (self) {
        _navigationBar = [[UINavigationBar alloc] initWithFrame:CGRectZero];
        [[_navigationBar _backButton] addTarget:self
                                         action:@selector(_goBack)
                               forControlEvents:UIControlEventTouchUpInside];
        [self pushViewController:root animated:NO];
    }
    return self;
}

- (void)dealloc {
    [_navigationBar release];
    [super dealloc];
}

- (UINavigationBar*)navigationBar {
    return _navigationBar;
}

- (NSArray*)viewControllers {
    return [self childViewControllers];
}

- (UIViewController*)topViewController {
    return [[self childViewControllers] lastObject];
}

- (void)viewDidLoad {
    [super viewDidLoad];
    [[self view] setBackgroundColor:[UIColor whiteColor]];
    [[self view] addSubview:_navigationBar];
    [self _show:[self topViewController] insteadOf:nil];
}

- (void)viewWillLayoutSubviews {
    [super viewWillLayoutSubviews];
    const CGSize size = [[self view] bounds].size;
    [_navigationBar setFrame:CGRectMake(0, 0, size.width, barHeight())];
    [[[self topViewController] view] setFrame:CGRectMake(0, barHeight(), size.width, size.height - barHeight())];
}

- (void)_show:(UIViewController*)next insteadOf:(UIViewController*)before {
    NSMutableArray* items = [NSMutableArray array];
    for (UIViewController* controller in [self childViewControllers]) [items addObject:[controller navigationItem]];
    [_navigationBar setItems:items];
    if (![self isViewLoaded]) return;
    [before beginAppearanceTransition:NO animated:NO];
    [next beginAppearanceTransition:YES animated:NO];
    if ([before isViewLoaded]) [[before view] removeFromSuperview];
    [[self view] insertSubview:[next view] atIndex:0];
    [[self view] setNeedsLayout];
    [[self view] layoutIfNeeded];
    [before endAppearanceTransition];
    [next endAppearanceTransition];
}

- (void)pushViewController:(UIViewController*)controller animated:(BOOL)animated {
    UIViewController* before = [self topViewController];
    [self addChildViewController:controller];
    [self _show:controller insteadOf:before];
    [controller didMoveToParentViewController:self];
}

- (UIViewController*)popViewControllerAnimated:(BOOL)animated {
    NSArray* stack = [self childViewControllers];
    if ([stack count] < 2) return nil;
    UIViewController* leaving = [[[stack lastObject] retain] autorelease];
    [leaving willMoveToParentViewController:nil];
    [leaving removeFromParentViewController];
    [self _show:[self topViewController] insteadOf:leaving];
    return leaving;
}

- (void)_goBack {
    [self popViewControllerAnimated:YES];
}

@end

@implementation UIViewController (UINavigationController)

- (UINavigationController*)navigationController {
    UIViewController* parent = [self parentViewController];
    while (parent && ![parent isKindOfClass:[UINavigationController class]]) parent = [parent parentViewController];
    return (UINavigationController*)parent;
}

@end
