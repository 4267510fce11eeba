#include "simulator/frameworks/uikit/view/UIResponder+Private.h"
#include "simulator/frameworks/uikit/view/UIView.h"

namespace {

void tellWindowChange(UIView* view) {
    [view didMoveToWindow];
    for (UIView* subview in [view subviews]) tellWindowChange(subview);
}

}  // namespace

@implementation UIView (UIViewHierarchy)

- (UIView*)superview {
    return _superview;
}

- (NSArray*)subviews {
    return [NSArray arrayWithArray:_subviews];
}

// A window overrides it, and so ends the search.
- (UIWindow*)window {
    return [_superview window];
}

- (void)addSubview:(UIView*)view {
    [self insertSubview:view atIndex:(NSInteger)[_subviews count]];
}

- (void)insertSubview:(UIView*)view atIndex:(NSInteger)index {
    [self _requireThread:_cmd];
    if (!view) return;
    [view _requireThread:_cmd];
    if ([self isDescendantOfView:view]) {
        [NSException raise:NSInvalidArgumentException format:@"Can't add %@ below itself", view];
    }
    [view retain];
    UIWindow* oldWindow = [view window];
    if (view->_superview == self) {
        // UIKit moves a view within its superview without telling anybody.
        [_subviews removeObjectIdenticalTo:view];
        [view->_layer removeFromSuperlayer];
        [self _placeSubview:view atIndex:index];
    } else {
        [view willMoveToSuperview:self];
        [view _leaveSuperview];
        [self _placeSubview:view atIndex:index];
        [view didMoveToSuperview];
        [self didAddSubview:view];
        if ([view window] != oldWindow) tellWindowChange(view);
    }
    [view setNeedsLayout];
    [self setNeedsLayout];
    [view release];
}

- (void)_placeSubview:(UIView*)view atIndex:(NSInteger)index {
    const NSUInteger place = MIN((NSUInteger)MAX(index, 0), [_subviews count]);
    [_subviews insertObject:view atIndex:place];
    [_layer insertSublayer:view->_layer atIndex:(unsigned)place];
    view->_superview = self;
}

// The layers of subviews come first in the layer's sublayers, in the same order.
- (void)_leaveSuperview {
    UIView* superview = _superview;
    if (!superview) return;
    [superview willRemoveSubview:self];
    [_layer removeFromSuperlayer];
    _superview = nil;
    [superview->_subviews removeObjectIdenticalTo:self];
    [superview setNeedsLayout];
}

- (void)insertSubview:(UIView*)view aboveSubview:(UIView*)sibling {
    [self _insert:view beside:sibling offset:1];
}

- (void)insertSubview:(UIView*)view belowSubview:(UIView*)sibling {
    [self _insert:view beside:sibling offset:0];
}

- (void)_insert:(UIView*)view beside:(UIView*)sibling offset:(NSInteger)offset {
    if (view == sibling) return;
    if (sibling->_superview != self) {
        [NSException raise:NSInvalidArgumentException format:@"%@ is no subview of %@", sibling, self];
    }
    NSInteger place = (NSInteger)[_subviews indexOfObjectIdenticalTo:sibling] + offset;
    const NSUInteger old = [_subviews indexOfObjectIdenticalTo:view];
    if (old != NSNotFound && (NSInteger)old < place) --place;
    [self insertSubview:view atIndex:place];
}

- (void)bringSubviewToFront:(UIView*)view {
    if (view->_superview == self) [self insertSubview:view atIndex:(NSInteger)[_subviews count]];
}

- (void)sendSubviewToBack:(UIView*)view {
    if (view->_superview == self) [self insertSubview:view atIndex:0];
}

- (void)removeFromSuperview {
    [self _requireThread:_cmd];
    if (!_superview) return;
    UIWindow* oldWindow = [self window];
    [self retain];
    [self willMoveToSuperview:nil];
    [self _leaveSuperview];
    [self didMoveToSuperview];
    if (oldWindow) tellWindowChange(self);
    [self release];
}

- (BOOL)isDescendantOfView:(UIView*)view {
    for (UIView* each = self; each; each = each->_superview) {
        if (each == view) return YES;
    }
    return NO;
}

- (UIView*)viewWithTag:(NSInteger)tag {
    // Through the getter: a subclass may return another tag.
    if ([self tag] == tag) return self;
    for (UIView* view in _subviews) {
        UIView* found = [view viewWithTag:tag];
        if (found) return found;
    }
    return nil;
}

- (void)didAddSubview:(UIView*)subview {
}

- (void)willRemoveSubview:(UIView*)subview {
}

- (void)willMoveToSuperview:(UIView*)newSuperview {
}

- (void)didMoveToSuperview {
}

- (void)didMoveToWindow {
}

@end
