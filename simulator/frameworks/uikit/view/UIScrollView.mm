#include "simulator/frameworks/uikit/view/UIScrollView.h"

#include <algorithm>

#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

@implementation UIScrollView

@synthesize delegate = _delegate;
@synthesize contentSize = _contentSize;
@synthesize contentInset = _contentInset;
@synthesize scrollIndicatorInsets = _scrollIndicatorInsets;
@synthesize scrollEnabled = _scrollEnabled;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        _scrollEnabled = YES;
        [self setClipsToBounds:YES];
    }
    return self;
}

- (void)setContentSize:(CGSize)size {
    [self _requireThread:_cmd];
    _contentSize = size;
}

// Content that rested at the old inset rests at the new one.
- (void)setContentInset:(UIEdgeInsets)inset {
    [self _requireThread:_cmd];
    const CGPoint offset = [self contentOffset];
    const BOOL atTop = offset.y == -_contentInset.top;
    _contentInset = inset;
    if (atTop) [self setContentOffset:CGPointMake(offset.x, -inset.top)];
}

- (CGPoint)contentOffset {
    return [self bounds].origin;
}

- (void)setContentOffset:(CGPoint)offset {
    [self _requireThread:_cmd];
    CGRect bounds = [self bounds];
    if (CGPointEqualToPoint(bounds.origin, offset)) return;
    bounds.origin = offset;
    [self setBounds:bounds];
    [self setNeedsLayout];
    if ([_delegate respondsToSelector:@selector(scrollViewDidScroll:)]) [_delegate scrollViewDidScroll:self];
}

- (void)setContentOffset:(CGPoint)offset animated:(BOOL)animated {
    [self setContentOffset:offset];
}

- (void)scrollRectToVisible:(CGRect)rect animated:(BOOL)animated {
    const CGRect bounds = [self bounds];
    const CGFloat top = bounds.origin.y + _contentInset.top;
    const CGFloat bottom = CGRectGetMaxY(bounds) - _contentInset.bottom;
    CGPoint offset = bounds.origin;
    if (CGRectGetMinY(rect) < top) {
        offset.y -= top - CGRectGetMinY(rect);
    } else if (CGRectGetMaxY(rect) > bottom) {
        offset.y += std::min(CGRectGetMaxY(rect) - bottom, CGRectGetMinY(rect) - top);
    }
    [self setContentOffset:offset];
}

@end
