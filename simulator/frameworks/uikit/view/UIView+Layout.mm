#include <algorithm>
#include <cmath>

#include "simulator/frameworks/uikit/view/UIResponder+Private.h"
#include "simulator/frameworks/uikit/view/UIView+Private.h"
#include "simulator/frameworks/uikit/view/UIViewDelegate.h"

namespace {

// One axis of autoresizing: the change is shared evenly among what may give way.
void resizeAxis(CGFloat& origin, CGFloat& length, CGFloat change, bool before, bool inside, bool after) {
    const int shares = int(before) + int(inside) + int(after);
    if (shares == 0) return;
    const CGFloat share = change / shares;
    if (before) origin += share;
    if (inside) length = std::max<CGFloat>(0, length + share);
}

CGRect resized(CGRect frame, UIViewAutoresizing mask, CGFloat widthChange, CGFloat heightChange) {
    resizeAxis(frame.origin.x, frame.size.width, widthChange, mask & UIViewAutoresizingFlexibleLeftMargin,
               mask & UIViewAutoresizingFlexibleWidth, mask & UIViewAutoresizingFlexibleRightMargin);
    resizeAxis(frame.origin.y, frame.size.height, heightChange, mask & UIViewAutoresizingFlexibleTopMargin,
               mask & UIViewAutoresizingFlexibleHeight, mask & UIViewAutoresizingFlexibleBottomMargin);
    return frame;
}

// From the view's coordinates to those of the root of its tree.
CGPoint offsetToRoot(UIView* view) {
    CGPoint offset = CGPointMake(0, 0);
    for (UIView* each = view;[each superview]; each = [each superview]) {
        const CGPoint origin = [each frame].origin;
        const CGPoint start = [each bounds].origin;
        offset.x += origin.x - start.x;
        offset.y += origin.y - start.y;
    }
    return offset;
}

}  // namespace

@implementation UIView (UIViewLayout)

- (void)setNeedsLayout {
    [self _requireThread:_cmd];
    _needsLayout = YES;
    [self _descendantNeedsLayout];
}

- (void)layoutIfNeeded {
    [self _requireThread:_cmd];
    if (_needsLayout) {
        [_viewDelegate viewWillLayoutSubviews];
        [self layoutSubviews];
        [_viewDelegate viewDidLayoutSubviews];
        // What the view did to its own subviews just now is no reason for another pass.
        _needsLayout = NO;
    }
    for (UIView* view in [self subviews]) [view layoutIfNeeded];
}

- (void)layoutSubviews {
}

- (CGSize)sizeThatFits:(CGSize)size {
    return [self bounds].size;
}

- (void)sizeToFit {
    CGRect frame = [self frame];
    frame.size = [self sizeThatFits:frame.size];
    [self setFrame:frame];
}

- (CGPoint)convertPoint:(CGPoint)point toView:(UIView*)view {
    const CGPoint from = offsetToRoot(self);
    const CGPoint to = offsetToRoot(view);
    return CGPointMake(point.x + from.x - to.x, point.y + from.y - to.y);
}

- (CGPoint)convertPoint:(CGPoint)point fromView:(UIView*)view {
    const CGPoint from = offsetToRoot(view);
    const CGPoint to = offsetToRoot(self);
    return CGPointMake(point.x + from.x - to.x, point.y + from.y - to.y);
}

- (CGRect)convertRect:(CGRect)rect toView:(UIView*)view {
    rect.origin = [self convertPoint:rect.origin toView:view];
    return rect;
}

- (CGRect)convertRect:(CGRect)rect fromView:(UIView*)view {
    rect.origin = [self convertPoint:rect.origin fromView:view];
    return rect;
}

@end

@implementation UIView (UIViewLayerOwner)

- (void)_layer:(CALayer*)layer willBeChangedBy:(SEL)method {
    [self _requireThread:method];
}

- (void)_layer:(CALayer*)layer changedSizeFrom:(CGSize)oldSize {
    const CGSize size = [layer bounds].size;
    for (UIView* view in _subviews) {
        const UIViewAutoresizing mask = [view autoresizingMask];
        if (mask == UIViewAutoresizingNone) continue;
        [view setFrame:resized([view frame], mask, size.width - oldSize.width, size.height - oldSize.height)];
    }
    [self setNeedsLayout];
}

@end
