#pragma once

#include "simulator/frameworks/uikit/control/UINavigationItem.h"
#include "simulator/frameworks/uikit/view/UIView.h"
#include "simulator/frameworks/uikit/view/UIViewDelegate.h"

typedef NS_ENUM(NSInteger, UIViewAppearance) {
    UIViewDisappeared,
    UIViewAppearing,
    UIViewAppeared,
    UIViewDisappearing,
};

// A view and its life: loaded on first use, then notified when it appears and disappears.
@interface UIViewController : UIResponder <UIViewDelegate> {
  @private
    UIView* _view;
    NSString* _title;
    UINavigationItem* _navigationItem;
    NSMutableArray* _childViewControllers;
    UIViewController* _parentViewController;
    UIViewAppearance _appearance;
    BOOL _transitionAnimated;
    BOOL _editing;
}

- (instancetype)initWithNibName:(NSString*)nibName bundle:(NSBundle*)bundle;  // the phone has no nib to give: both nil

@property (nonatomic, retain) UIView* view;                              // loads on first use
@property (nonatomic, copy) NSString* title;                             // the navigation item's, too
@property (nonatomic, readonly) UINavigationItem* navigationItem;        // made on first use; +0
@property (nonatomic, readonly) UIViewController* parentViewController;  // unowned
@property (nonatomic, readonly) NSArray* childViewControllers;           // +0
@property (nonatomic, getter=isEditing) BOOL editing;

- (BOOL)isViewLoaded;
// Sets an empty view of the screen's application frame; for subclasses to override.
- (void)loadView;

// For subclasses to override.
- (void)viewDidLoad;
- (void)viewWillAppear:(BOOL)animated;
- (void)viewDidAppear:(BOOL)animated;
- (void)viewWillDisappear:(BOOL)animated;
- (void)viewDidDisappear:(BOOL)animated;
- (void)viewWillLayoutSubviews;
- (void)viewDidLayoutSubviews;
- (void)setEditing:(BOOL)editing animated:(BOOL)animated;

// What a container sends its children: these send viewWillAppear: or viewWillDisappear:, and the did form at the end.
- (void)beginAppearanceTransition:(BOOL)isAppearing animated:(BOOL)animated;
- (void)endAppearanceTransition;

- (void)addChildViewController:(UIViewController*)child;
- (void)removeFromParentViewController;
- (void)willMoveToParentViewController:(UIViewController*)parent;
- (void)didMoveToParentViewController:(UIViewController*)parent;

@end
