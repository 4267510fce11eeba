#include "simulator/frameworks/uikit/view/UIView+Private.h"

@implementation UIView (UIViewPrivate)

- (void)_setViewDelegate:(UIResponder<UIViewDelegate>*)delegate {
    _viewDelegate = delegate;
}

- (void)_descendantNeedsLayout {
    [_superview _descendantNeedsLayout];
}

@end
