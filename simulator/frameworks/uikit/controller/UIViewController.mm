#include "simulator/frameworks/uikit/controller/UIViewController.h"

#include "simulator/frameworks/uikit/graphics/UIColor.h"
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
    [_view _setViewController:nil];
    [_view release];
    [_title release];
    [super dealloc];
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
    [_view _setViewController:nil];
    [view retain];
    [_view release];
    _view = view;
    [_view _setViewController:self];
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

@implementation UITableViewController

- (instancetype)initWithStyle:(UITableViewStyle)style {
    self = [super initWithNibName:nil bundle:nil];
    if (self) _style = style;
    return self;
}

- (void)dealloc {
    if ([self isViewLoaded]) {
        [[self tableView] setDataSource:nil];
        [[self tableView] setDelegate:nil];
    }
    [super dealloc];
}

- (void)loadView {
    UITableView* table = [[UITableView alloc] initWithFrame:[[UIScreen mainScreen] applicationFrame] style:_style];
    [table setDataSource:self];
    [table setDelegate:self];
    [self setView:table];
    [table release];
}

- (UITableView*)tableView {
    UIView* view = [self view];
    if (![view isKindOfClass:[UITableView class]]) {
        [NSException raise:NSInternalInconsistencyException
                    format:@"-[%@ tableView]: the view is a %@", [self class], [view class]];
    }
    return (UITableView*)view;
}

- (void)setTableView:(UITableView*)table {
    [self setView:table];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
    [super setEditing:editing animated:animated];
    [[self tableView] setEditing:editing animated:animated];
}

- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section {
    return 0;
}

- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    [NSException raise:NSInternalInconsistencyException
                format:@"-[%@ tableView:cellForRowAtIndexPath:] is not implemented", [self class]];
    return nil;
}

@end
