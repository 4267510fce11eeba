#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

@class UIScrollView;

@protocol UIScrollViewDelegate <NSObject>
@optional
- (void)scrollViewDidScroll:(UIScrollView*)scrollView;
@end

// Shows a part of a larger content; the offset is the bounds' origin. Moves are immediate, animated or not.
@interface UIScrollView : UIView {
  @private
    id _delegate;
    CGSize _contentSize;
    UIEdgeInsets _contentInset;
    UIEdgeInsets _scrollIndicatorInsets;
    BOOL _scrollEnabled;
}

@property (nonatomic, assign) id<UIScrollViewDelegate> delegate;
@property (nonatomic) CGPoint contentOffset;
@property (nonatomic) CGSize contentSize;
@property (nonatomic) UIEdgeInsets contentInset;
@property (nonatomic) UIEdgeInsets scrollIndicatorInsets;
@property (nonatomic, getter=isScrollEnabled) BOOL scrollEnabled;

- (void)setContentOffset:(CGPoint)contentOffset animated:(BOOL)animated;
- (void)scrollRectToVisible:(CGRect)rect animated:(BOOL)animated;

@end
