// Views. Lengths are in points. A view made on the main thread, or standing in a window, may be changed on the main
// thread only; breaking that stops the process with a message that names the method. A view made on another thread
// may be changed there until it enters a window, which UIKit tolerates too.
#pragma once

#include "simulator/frameworks/quartz_core/CALayer.h"
#include "simulator/frameworks/uikit/graphics/UIGeometry.h"
#include "simulator/frameworks/uikit/view/UIResponder.h"

@class UIColor, UIWindow;
@protocol UIViewDelegate;

typedef NS_ENUM(NSInteger, UIViewContentMode) {
    UIViewContentModeScaleToFill,
    UIViewContentModeScaleAspectFit,
    UIViewContentModeScaleAspectFill,
    UIViewContentModeRedraw,
    UIViewContentModeCenter,
    UIViewContentModeTop,
    UIViewContentModeBottom,
    UIViewContentModeLeft,
    UIViewContentModeRight,
    UIViewContentModeTopLeft,
    UIViewContentModeTopRight,
    UIViewContentModeBottomLeft,
    UIViewContentModeBottomRight,
};

typedef NS_OPTIONS(NSUInteger, UIViewAutoresizing) {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleLeftMargin = 1 << 0,
    UIViewAutoresizingFlexibleWidth = 1 << 1,
    UIViewAutoresizingFlexibleRightMargin = 1 << 2,
    UIViewAutoresizingFlexibleTopMargin = 1 << 3,
    UIViewAutoresizingFlexibleHeight = 1 << 4,
    UIViewAutoresizingFlexibleBottomMargin = 1 << 5,
};

@interface UIView : UIResponder <CALayerDelegate> {
  @private
    CALayer* _layer;
    UIView* _superview;
    NSMutableArray* _subviews;
    UIColor* _backgroundColor;
    UIColor* _tintColor;
    UIResponder<UIViewDelegate>* _viewDelegate;  // the controller whose view this is; unowned
    NSInteger _tag;
    UIViewContentMode _contentMode;
    UIViewAutoresizing _autoresizingMask;
    BOOL _needsLayout;
    BOOL _userInteractionEnabled;
    BOOL _madeOffMainThread;
}

// +0; the class whose instance -layer returns.
+ (Class)layerClass;

- (instancetype)initWithFrame:(CGRect)frame;

@property (nonatomic, readonly) CALayer* layer;  // +0
@property (nonatomic) CGRect frame;
@property (nonatomic) CGRect bounds;
@property (nonatomic) CGPoint center;
@property (nonatomic) CGFloat alpha;
@property (nonatomic, getter=isHidden) BOOL hidden;
@property (nonatomic) BOOL clipsToBounds;
@property (nonatomic, retain) UIColor* backgroundColor;  // nil shows what lies behind
@property (nonatomic, retain) UIColor* tintColor;        // the superview's unless set; the system's blue at the root
@property (nonatomic) NSInteger tag;
@property (nonatomic) UIViewContentMode contentMode;
@property (nonatomic) UIViewAutoresizing autoresizingMask;
@property (nonatomic, getter=isUserInteractionEnabled) BOOL userInteractionEnabled;

// Drawing. -drawRect: draws nothing here; a subclass that overrides it is drawn through it, clipped to its bounds.
- (void)drawRect:(CGRect)rect;
// Nothing is kept from one snapshot to the next, so a view is always drawn afresh; kept for subclasses to extend.
- (void)setNeedsDisplay;

@end

@interface UIView (UIViewHierarchy)

@property (nonatomic, readonly) UIView* superview;  // unowned
@property (nonatomic, readonly) NSArray* subviews;  // back to front; a copy, +0
@property (nonatomic, readonly) UIWindow* window;   // unowned; nil outside a window

- (void)addSubview:(UIView*)view;
- (void)insertSubview:(UIView*)view atIndex:(NSInteger)index;
- (void)insertSubview:(UIView*)view aboveSubview:(UIView*)sibling;
- (void)insertSubview:(UIView*)view belowSubview:(UIView*)sibling;
- (void)bringSubviewToFront:(UIView*)view;
- (void)sendSubviewToBack:(UIView*)view;
- (void)removeFromSuperview;
- (BOOL)isDescendantOfView:(UIView*)view;
// The receiver or its first descendant, depth first, with the tag; nil when none has it. Unowned.
- (UIView*)viewWithTag:(NSInteger)tag;

// For subclasses to override; they do nothing here.
- (void)didAddSubview:(UIView*)subview;
- (void)willRemoveSubview:(UIView*)subview;
- (void)willMoveToSuperview:(UIView*)newSuperview;
- (void)didMoveToSuperview;
- (void)didMoveToWindow;

@end

@interface UIView (UIViewLayout)

// Asks for -layoutSubviews in the next pass: the end of the run loop's turn for a view in a window, else the next
// -layoutIfNeeded. A change of size and a change of subviews ask by themselves.
- (void)setNeedsLayout;
// Runs the pass now for the receiver and everything below it.
- (void)layoutIfNeeded;
// For subclasses to override; does nothing here.
- (void)layoutSubviews;

// The size that suits the contents; the current one here.
- (CGSize)sizeThatFits:(CGSize)size;
- (void)sizeToFit;

- (CGPoint)convertPoint:(CGPoint)point toView:(UIView*)view;  // a nil view means the root of the receiver's tree
- (CGPoint)convertPoint:(CGPoint)point fromView:(UIView*)view;
- (CGRect)convertRect:(CGRect)rect toView:(UIView*)view;
- (CGRect)convertRect:(CGRect)rect fromView:(UIView*)view;

@end
