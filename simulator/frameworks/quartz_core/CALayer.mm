#include "simulator/frameworks/quartz_core/CALayer.h"

#include <algorithm>

#include "simulator/frameworks/quartz_core/CALayerOwner.h"

NSString* const kCAGravityResize = @"resize";
NSString* const kCAGravityResizeAspect = @"resizeAspect";
NSString* const kCAGravityResizeAspectFill = @"resizeAspectFill";
NSString* const kCAGravityCenter = @"center";
NSString* const kCAGravityTop = @"top";
NSString* const kCAGravityBottom = @"bottom";
NSString* const kCAGravityLeft = @"left";
NSString* const kCAGravityRight = @"right";
NSString* const kCAGravityTopLeft = @"topLeft";
NSString* const kCAGravityTopRight = @"topRight";
NSString* const kCAGravityBottomLeft = @"bottomLeft";
NSString* const kCAGravityBottomRight = @"bottomRight";

namespace {

// 0 keeps to the near edge, 1/2 centres, 1 keeps to the far one. UIKit turns the vertical names the right way round.
struct Anchor {
    CGFloat x, y;
};

Anchor anchorOf(NSString* gravity) {
    Anchor anchor{0.5, 0.5};
    if ([gravity isEqualToString:kCAGravityLeft]) anchor.x = 0;
    if ([gravity isEqualToString:kCAGravityRight]) anchor.x = 1;
    if ([gravity hasPrefix:kCAGravityTop]) anchor.y = 0;
    if ([gravity hasPrefix:kCAGravityBottom]) anchor.y = 1;
    if ([gravity hasSuffix:@"Left"]) anchor.x = 0;
    if ([gravity hasSuffix:@"Right"]) anchor.x = 1;
    return anchor;
}

CGSize scaledSize(CGSize natural, CGSize room, NSString* gravity) {
    if ([gravity isEqualToString:kCAGravityResize]) return room;
    const CGFloat across = room.width / natural.width;
    const CGFloat down = room.height / natural.height;
    CGFloat factor = 1;
    if ([gravity isEqualToString:kCAGravityResizeAspect]) factor = std::min(across, down);
    if ([gravity isEqualToString:kCAGravityResizeAspectFill]) factor = std::max(across, down);
    return CGSizeMake(natural.width * factor, natural.height * factor);
}

CGRect contentsRect(CGSize natural, CGRect bounds, NSString* gravity) {
    const CGSize size = scaledSize(natural, bounds.size, gravity);
    const Anchor anchor = anchorOf(gravity);
    return CGRectMake(bounds.origin.x + (bounds.size.width - size.width) * anchor.x,
                      bounds.origin.y + (bounds.size.height - size.height) * anchor.y, size.width, size.height);
}

// CoreGraphics draws pictures for a y axis that points up; the layer's points down.
void drawUpright(CGContextRef context, CGRect rect, CGImageRef image) {
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, rect.origin.x, rect.origin.y + rect.size.height);
    CGContextScaleCTM(context, 1, -1);
    CGContextDrawImage(context, CGRectMake(0, 0, rect.size.width, rect.size.height), image);
    CGContextRestoreGState(context);
}

// A radius above half of the shorter side counts as that half.
void addRounded(CGContextRef context, CGRect rect, CGFloat radius) {
    const CGFloat most = std::min(rect.size.width, rect.size.height) / 2;
    if (!(std::min(radius, most) > 0)) {
        CGContextAddRect(context, rect);
        return;
    }
    const CGFloat corner = std::min(radius, most);
    const CGPathRef path = CGPathCreateWithRoundedRect(rect, corner, corner, nullptr);
    CGContextAddPath(context, path);
    CGPathRelease(path);
}

}  // namespace

@implementation CALayer

@synthesize delegate = _delegate;
@synthesize superlayer = _superlayer;
@synthesize frame = _frame;
@synthesize backgroundColor = _backgroundColor;
@synthesize borderColor = _borderColor;
@synthesize borderWidth = _borderWidth;
@synthesize cornerRadius = _cornerRadius;
@synthesize masksToBounds = _masksToBounds;
@synthesize hidden = _hidden;
@synthesize opacity = _opacity;
@synthesize contents = _contents;
@synthesize contentsGravity = _contentsGravity;
@synthesize contentsScale = _contentsScale;

+ (instancetype)layer {
    return [[[self alloc] init] autorelease];
}

- (instancetype)init {
    self = [super init];
    if (self) {
        _sublayers = [[NSMutableArray alloc] init];
        _contentsGravity = [kCAGravityResize copy];
        _contentsScale = 1;
        _opacity = 1;
        const CGFloat opaqueBlack[] = {0, 0, 0, 1};
        CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
        _borderColor = CGColorCreate(space, opaqueBlack);
        CGColorSpaceRelease(space);
    }
    return self;
}

- (void)dealloc {
    for (CALayer* layer in _sublayers) layer->_superlayer = nil;
    [_sublayers release];
    [_contents release];
    [_contentsGravity release];
    CGColorRelease(_backgroundColor);
    CGColorRelease(_borderColor);
    [super dealloc];
}

- (void)_requireThread:(SEL)method {
    if ([_delegate respondsToSelector:@selector(_layer:willBeChangedBy:)])
        [(id<CALayerOwner>)_delegate _layer:self willBeChangedBy:method];
}

- (void)setFrame:(CGRect)frame {
    [self _requireThread:_cmd];
    const CGSize oldSize = _frame.size;
    _frame = CGRectStandardize(frame);
    if (CGSizeEqualToSize(oldSize, _frame.size)) return;
    if ([_delegate respondsToSelector:@selector(_layer:changedSizeFrom:)])
        [(id<CALayerOwner>)_delegate _layer:self changedSizeFrom:oldSize];
}

- (CGRect)bounds {
    return CGRectMake(_boundsOrigin.x, _boundsOrigin.y, _frame.size.width, _frame.size.height);
}

// A new size grows or shrinks the frame about its centre.
- (void)setBounds:(CGRect)bounds {
    [self _requireThread:_cmd];
    _boundsOrigin = bounds.origin;
    const CGSize size = bounds.size;
    if (CGSizeEqualToSize(size, _frame.size)) return;
    const CGPoint centre = [self position];
    [self setFrame:CGRectMake(centre.x - size.width / 2, centre.y - size.height / 2, size.width, size.height)];
}

- (CGPoint)position {
    return CGPointMake(CGRectGetMidX(_frame), CGRectGetMidY(_frame));
}

- (void)setPosition:(CGPoint)position {
    [self _requireThread:_cmd];
    _frame.origin = CGPointMake(position.x - _frame.size.width / 2, position.y - _frame.size.height / 2);
}

- (void)setBackgroundColor:(CGColorRef)color {
    [self _requireThread:_cmd];
    CGColorRetain(color);
    CGColorRelease(_backgroundColor);
    _backgroundColor = color;
}

- (void)setBorderColor:(CGColorRef)color {
    [self _requireThread:_cmd];
    CGColorRetain(color);
    CGColorRelease(_borderColor);
    _borderColor = color;
}

- (void)setBorderWidth:(CGFloat)width {
    [self _requireThread:_cmd];
    _borderWidth = width;
}

- (void)setCornerRadius:(CGFloat)radius {
    [self _requireThread:_cmd];
    _cornerRadius = radius;
}

- (void)setMasksToBounds:(BOOL)masks {
    [self _requireThread:_cmd];
    _masksToBounds = masks;
}

- (void)setHidden:(BOOL)hidden {
    [self _requireThread:_cmd];
    _hidden = hidden;
}

- (void)setOpacity:(float)opacity {
    [self _requireThread:_cmd];
    _opacity = std::clamp(opacity, 0.0f, 1.0f);
}

- (void)setContents:(id)contents {
    [self _requireThread:_cmd];
    ASSIGN(_contents, contents);
}

- (NSArray*)sublayers {
    return [NSArray arrayWithArray:_sublayers];
}

- (void)addSublayer:(CALayer*)layer {
    [self insertSublayer:layer atIndex:(unsigned)[_sublayers count]];
}

- (void)insertSublayer:(CALayer*)layer atIndex:(unsigned)index {
    [self _requireThread:_cmd];
    [layer retain];
    [layer removeFromSuperlayer];
    [_sublayers insertObject:layer atIndex:MIN((NSUInteger)index, [_sublayers count])];
    layer->_superlayer = self;
    [layer release];
}

- (void)removeFromSuperlayer {
    [self _requireThread:_cmd];
    if (!_superlayer) return;
    CALayer* superlayer = _superlayer;
    _superlayer = nil;
    [superlayer->_sublayers removeObjectIdenticalTo:self];
}

- (void)renderInContext:(CGContextRef)context {
    if (_hidden || _opacity <= 0) return;
    const BOOL cutsCorners = _masksToBounds && _cornerRadius > 0;
    const BOOL composed = cutsCorners || _opacity < 1;
    CGContextSaveGState(context);
    if (_masksToBounds) CGContextClipToRect(context, [self bounds]);
    if (composed) {
        CGContextSetAlpha(context, _opacity);
        CGContextBeginTransparencyLayer(context, nullptr);
    }
    [self _drawBackgroundInContext:context radius:cutsCorners ? 0 : _cornerRadius];
    [self _drawContentsInContext:context];
    [self _drawSublayersInContext:context];
    [self _drawBorderInContext:context];
    if (cutsCorners) [self _cutCornersInContext:context];
    if (composed) CGContextEndTransparencyLayer(context);
    CGContextRestoreGState(context);
}

- (void)_drawBackgroundInContext:(CGContextRef)context radius:(CGFloat)radius {
    if (!_backgroundColor) return;
    CGContextSetFillColorWithColor(context, _backgroundColor);
    CGContextBeginPath(context);
    addRounded(context, [self bounds], radius);
    CGContextFillPath(context);
}

- (void)_drawContentsInContext:(CGContextRef)context {
    CGImageRef image = (CGImageRef)_contents;
    if (image && CGImageGetWidth(image) > 0 && CGImageGetHeight(image) > 0) {
        const CGSize natural = CGSizeMake(static_cast<CGFloat>(CGImageGetWidth(image)) / _contentsScale,
                                          static_cast<CGFloat>(CGImageGetHeight(image)) / _contentsScale);
        drawUpright(context, contentsRect(natural, [self bounds], _contentsGravity), image);
    }
    if (![_delegate respondsToSelector:@selector(drawLayer:inContext:)]) return;
    CGContextSaveGState(context);
    [_delegate drawLayer:self inContext:context];
    CGContextRestoreGState(context);
}

- (void)_drawSublayersInContext:(CGContextRef)context {
    for (CALayer* layer in _sublayers) {
        CGContextSaveGState(context);
        CGContextTranslateCTM(context, layer->_frame.origin.x - layer->_boundsOrigin.x,
                              layer->_frame.origin.y - layer->_boundsOrigin.y);
        [layer renderInContext:context];
        CGContextRestoreGState(context);
    }
}

// The border lies inside the bounds, above the contents.
- (void)_drawBorderInContext:(CGContextRef)context {
    if (_borderWidth <= 0 || !_borderColor) return;
    CGContextSetStrokeColorWithColor(context, _borderColor);
    CGContextSetLineWidth(context, _borderWidth);
    CGContextBeginPath(context);
    addRounded(context, CGRectInset([self bounds], _borderWidth / 2, _borderWidth / 2),
               std::max<CGFloat>(0, _cornerRadius - _borderWidth / 2));
    CGContextStrokePath(context);
}

// Erasing what was drawn outside the corners, once and last, keeps their edges free of fringes: clipping each drawing
// would let the background shine through the half-covered pixels of the contents.
- (void)_cutCornersInContext:(CGContextRef)context {
    CGContextSetBlendMode(context, kCGBlendModeClear);
    CGContextBeginPath(context);
    CGContextAddRect(context, CGRectInset([self bounds], -1, -1));
    addRounded(context, [self bounds], _cornerRadius);
    CGContextEOFillPath(context);
}

@end
