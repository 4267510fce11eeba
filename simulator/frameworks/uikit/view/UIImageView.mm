#include "simulator/frameworks/uikit/view/UIImageView.h"

#include "simulator/frameworks/uikit/graphics/UIGraphics.h"
#include "simulator/frameworks/uikit/graphics/UIImage.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

// The stored pixels turned the way the picture is seen. +0.
CGImageRef uprightPixels(UIImage* image) {
    if (!image || [image imageOrientation] == UIImageOrientationUp) return [image CGImage];
    UIGraphicsBeginImageContextWithOptions([image size], NO, [image scale]);
    [image drawAtPoint:CGPointZero];
    UIImage* upright = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return [upright CGImage];
}

}  // namespace

@implementation UIImageView

@synthesize image = _image;
@synthesize highlightedImage = _highlightedImage;
@synthesize highlighted = _highlighted;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) [self setUserInteractionEnabled:NO];
    return self;
}

- (instancetype)initWithImage:(UIImage*)image {
    const CGSize size = image ? [image size] : CGSizeZero;
    self = [self initWithFrame:CGRectMake(0, 0, size.width, size.height)];
    if (self) [self setImage:image];
    return self;
}

- (void)dealloc {
    [_image release];
    [_highlightedImage release];
    [super dealloc];
}

- (void)setImage:(UIImage*)image {
    [self _requireThread:_cmd];
    ASSIGN(_image, image);
    [self _showImage];
}

- (void)setHighlightedImage:(UIImage*)image {
    [self _requireThread:_cmd];
    ASSIGN(_highlightedImage, image);
    [self _showImage];
}

- (void)setHighlighted:(BOOL)highlighted {
    [self _requireThread:_cmd];
    _highlighted = highlighted;
    [self _showImage];
}

- (void)_showImage {
    UIImage* shown = _highlighted && _highlightedImage ? _highlightedImage : _image;
    [[self layer] setContents:(id)uprightPixels(shown)];
    [[self layer] setContentsScale:shown ? [shown scale] : 1];
}

- (CGSize)sizeThatFits:(CGSize)size {
    return _image ? [_image size] : CGSizeZero;
}

@end
