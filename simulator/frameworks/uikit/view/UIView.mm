#include "simulator/frameworks/uikit/view/UIView.h"

#import <objc/runtime.h>

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/UIGraphics.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

NSString* gravityOf(UIViewContentMode mode) {
    switch (mode) {
        case UIViewContentModeScaleToFill:
        case UIViewContentModeRedraw:
            return kCAGravityResize;
        case UIViewContentModeScaleAspectFit:
            return kCAGravityResizeAspect;
        case UIViewContentModeScaleAspectFill:
            return kCAGravityResizeAspectFill;
        case UIViewContentModeCenter:
            return kCAGravityCenter;
        case UIViewContentModeTop:
            return kCAGravityTop;
        case UIViewContentModeBottom:
            return kCAGravityBottom;
        case UIViewContentModeLeft:
            return kCAGravityLeft;
        case UIViewContentModeRight:
            return kCAGravityRight;
        case UIViewContentModeTopLeft:
            return kCAGravityTopLeft;
        case UIViewContentModeTopRight:
            return kCAGravityTopRight;
        case UIViewContentModeBottomLeft:
            return kCAGravityBottomLeft;
        case UIViewContentModeBottomRight:
            return kCAGravityBottomRight;
    }
    [NSException raise:NSInvalidArgumentException format:@"UIView: unknown content mode %ld", (long)mode];
    return nil;
}

}  // namespace

@implementation UIView

@synthesize layer = _layer;
@synthesize tag = _tag;
@synthesize contentMode = _contentMode;
@synthesize autoresizingMask = _autoresizingMask;
@synthesize userInteractionEnabled = _userInteractionEnabled;

+ (Class)layerClass {
    return [CALayer class];
}

- (instancetype)init {
    return [self initWithFrame:CGRectMake(0, 0, 0, 0)];
}

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super init];
    if (self) {
        _madeOffMainThread = ![NSThread isMainThread];
        _subviews = [[NSMutableArray alloc] init];
        _userInteractionEnabled = YES;
        _needsLayout = YES;
        _layer = [[[[self class] layerClass] alloc] init];
        [_layer setDelegate:self];
        [_layer setFrame:frame];
    }
    return self;
}

- (void)dealloc {
    for (UIView* view in _subviews) view->_superview = nil;
    [_subviews release];
    [_layer setDelegate:nil];
    [_layer release];
    [_backgroundColor release];
    [_tintColor release];
    [super dealloc];
}

- (NSString*)description {
    return [NSString stringWithFormat:@"<%@: %p; frame = %@; tag = %ld>", NSStringFromClass([self class]), self,
                                      NSStringFromCGRect([self frame]), (long)_tag];
}

- (UIResponder*)nextResponder {
    return _viewDelegate ? _viewDelegate : (UIResponder*)_superview;
}

- (void)setTag:(NSInteger)tag {
    [self _requireThread:_cmd];
    _tag = tag;
}

- (CGRect)frame {
    return [_layer frame];
}

- (void)setFrame:(CGRect)frame {
    [self _requireThread:_cmd];
    [_layer setFrame:frame];
}

- (CGRect)bounds {
    return [_layer bounds];
}

- (void)setBounds:(CGRect)bounds {
    [self _requireThread:_cmd];
    [_layer setBounds:bounds];
}

- (CGPoint)center {
    return [_layer position];
}

- (void)setCenter:(CGPoint)center {
    [self _requireThread:_cmd];
    [_layer setPosition:center];
}

- (CGFloat)alpha {
    return [_layer opacity];
}

- (void)setAlpha:(CGFloat)alpha {
    [self _requireThread:_cmd];
    [_layer setOpacity:static_cast<float>(alpha)];
}

- (BOOL)isHidden {
    return [_layer isHidden];
}

- (void)setHidden:(BOOL)hidden {
    [self _requireThread:_cmd];
    [_layer setHidden:hidden];
}

- (BOOL)clipsToBounds {
    return [_layer masksToBounds];
}

- (void)setClipsToBounds:(BOOL)clips {
    [self _requireThread:_cmd];
    [_layer setMasksToBounds:clips];
}

- (UIColor*)backgroundColor {
    return _backgroundColor;
}

- (void)setBackgroundColor:(UIColor*)color {
    [self _requireThread:_cmd];
    ASSIGN(_backgroundColor, color);
    [_layer setBackgroundColor:[color CGColor]];
}

- (UIColor*)tintColor {
    if (_tintColor) return _tintColor;
    if (_superview) return [_superview tintColor];
    return [UIColor colorWithRed:0 green:122 / 255.0 blue:1 alpha:1];
}

- (void)setTintColor:(UIColor*)color {
    [self _requireThread:_cmd];
    ASSIGN(_tintColor, color);
}

- (void)setContentMode:(UIViewContentMode)mode {
    [self _requireThread:_cmd];
    _contentMode = mode;
    [_layer setContentsGravity:gravityOf(mode)];
}

- (void)drawRect:(CGRect)rect {
}

- (void)setNeedsDisplay {
    [self _requireThread:_cmd];
}

- (void)drawLayer:(CALayer*)layer inContext:(CGContextRef)context {
    const IMP nothing = class_getMethodImplementation([UIView class], @selector(drawRect:));
    if (class_getMethodImplementation([self class], @selector(drawRect:)) == nothing) return;
    const CGRect bounds = [layer bounds];
    CGContextClipToRect(context, bounds);
    UIGraphicsPushContext(context);
    [self drawRect:bounds];
    UIGraphicsPopContext();
}

- (BOOL)_mayChangeOffMainThread {
    return _madeOffMainThread && ![self window];
}

@end
