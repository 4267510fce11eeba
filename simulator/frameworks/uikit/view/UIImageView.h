#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

@class UIImage;

// Shows a picture, laid into the bounds by the content mode.
@interface UIImageView : UIView {
  @private
    UIImage* _image;
    UIImage* _highlightedImage;
    BOOL _highlighted;
}

// A view of the picture's size, in points.
- (instancetype)initWithImage:(UIImage*)image;

@property (nonatomic, retain) UIImage* image;
@property (nonatomic, retain) UIImage* highlightedImage;
@property (nonatomic, getter=isHighlighted) BOOL highlighted;

@end
