#include "simulator/frameworks/uikit/controller/UIViewController.h"

#include "simulator/frameworks/uikit/graphics/UIScreen.h"
#include "simulator/frameworks/uikit/view/UIView+Private.h"

@implementation UIViewController

@synthesize title = _title;
@synthesize parentViewController = _parentViewController;
@synthesize editing = _editing;

- (instancetype)init {
    return [self initWithNibName:nil bundle:nil];
}

- (instancetype)initWithNibName:(NSString*)nibName bundle:(NSBundle*)bundle {
    if (nibName) {
        [NSException
             raise:NSInvalidArgumentException
            format:@"-[%@ initWithNibName:bundle:]: the stand-in phone reads no nibs (%@)", [self class], nibName];
    }
    self = [super init];
    if (self) _childViewControllers = [[NSMutableArray alloc] init];
    return self;
}

- (void)dealloc {
    for (UIViewController* child in _childViewControllers) child->_parentViewController = nil;
    [_childViewControllers release];
    [_view _setViewDelegate:nil];
    [_view release];
    [_title release];
    [_navigationItem release];
    [super dealloc];
}

- (void)setTitle:(NSString*)title {
    ASSIGNCOPY(_title, title);
    [_navigationItem setTitle:title];
}

- (UINavigationItem*)navigationItem {
    if (!_navigationItem) _navigationItem = [[UINavigationItem alloc] initWithTitle:_title];
    return _navigationItem;
}

- (UIResponder*)nextResponder {
    return [_view superview];
}

- (UIView*)view {
    if (!_view) {
        [self loadView];
        if (!_view) {
            [NSException raise:NSInternalInconsistencyException
                        format:@"-[%@ loadView] left the controller without a view", [self class]];
        }
        [self viewDidLoad];
    }
    return _view;
}

- (void)setView:(UIView*)view {
    [_view _setViewDelegate:nil];
    ASSIGN(_view, view);
    [_view _setViewDelegate:self];
}

- (BOOL)isViewLoaded {
    return _view != nil;
}

- (void)loadView {
    UIView* view = [[UIView alloc] initWithFrame:[[UIScreen mainScreen] applicationFrame]];
    [self setView:view];
    [view release];
}

- (void)viewDidLoad {
}

- (void)viewWillAppear:(BOOL)animated {
}

- (void)viewDidAppear:(BOOL)animated {
}

- (void)viewWillDisappear:(BOOL)animated {
}

- (void)viewDidDisappear:(BOOL)animated {
}

- (void)viewWillLayoutSubviews {
}

- (void)viewDidLayoutSubviews {
}

- (void)setEditing:(BOOL)editing {
    [self setEditing:editing animated:NO];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
    _editing = editing;
}

- (void)beginAppearanceTransition:(BOOL)isAppearing animated:(BOOL)animated {
    if (_appearance == UIViewAppearing || _appearance == UIViewDisappearing) {
        [NSException raise:NSInternalInconsistencyException
                    format:@"Unbalanced calls to begin/end appearance transitions for %@", self];
    }
    if (isAppearing == (_appearance == UIViewAppeared)) return;
    _transitionAnimated = animated;
    _appearance = isAppearing ? UIViewAppearing : UIViewDisappearing;
    isAppearing ? [self viewWillAppear:animated] : [self viewWillDisappear:animated];
}

- (void)endAppearanceTransition {
    if (_appearance == UIViewAppearing) {
        _appearance = UIViewAppeared;
        [self viewDidAppear:_transitionAnimated];
    } else if (_appearance == UIViewDisappearing) {
        _appearance = UIViewDisappeared;
        [self viewDidDisappear:_transitionAnimated];
    }
}

- (NSArray*)childViewControllers {
    return [NSArray arrayWithArray:_childViewControllers];
}

- (void)addChildViewController:(UIViewController*)child {
    if (child->_parentViewController == self) return;
    [child retain];
    [child willMoveToParentViewController:self];
    UIViewController* oldParent = child->_parentViewController;
    if (oldParent) [oldParent->_childViewControllers removeObjectIdenticalTo:child];
    [_childViewControllers addObject:child];
    child->_parentViewController = self;
    [child release];
}

- (void)removeFromParentViewController {
    if (!_parentViewController) return;
    [self retain];
    [_parentViewController->_childViewControllers removeObjectIdenticalTo:self];
    _parentViewController = nil;
    [self didMoveToParentViewController:nil];
    [self release];
}

- (void)willMoveToParentViewController:(UIViewController*)parent {
}

- (void)didMoveToParentViewController:(UIViewController*)parent {
}

@end
