// A layer: geometry, background, contents and sublayers, drawn by software. Lengths are in points.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/core_graphics.h"

@class CALayer;

extern NSString* const kCAGravityResize;
extern NSString* const kCAGravityResizeAspect;
extern NSString* const kCAGravityResizeAspectFill;
extern NSString* const kCAGravityCenter;
extern NSString* const kCAGravityTop;
extern NSString* const kCAGravityBottom;
extern NSString* const kCAGravityLeft;
extern NSString* const kCAGravityRight;
extern NSString* const kCAGravityTopLeft;
extern NSString* const kCAGravityTopRight;
extern NSString* const kCAGravityBottomLeft;
extern NSString* const kCAGravityBottomRight;

@protocol CALayerDelegate <NSObject>
@optional
// Draws what the layer shows into a context whose origin is the layer's and whose y axis points down.
- (void)drawLayer:(CALayer*)layer inContext:(CGContextRef)context;
@end

@interface CALayer : NSObject {
  @private
    id<CALayerDelegate> _delegate;
    CALayer* _superlayer;
    NSMutableArray* _sublayers;
    CGRect _frame;
    CGPoint _boundsOrigin;
    CGColorRef _backgroundColor;
    CGColorRef _borderColor;
    id _contents;
    NSString* _contentsGravity;
    CGFloat _contentsScale;
    CGFloat _cornerRadius;
    CGFloat _borderWidth;
    float _opacity;
    BOOL _masksToBounds;
    BOOL _hidden;
}

// +0.
+ (instancetype)layer;

@property (nonatomic, assign) id<CALayerDelegate> delegate;
@property (nonatomic, readonly) CALayer* superlayer;
@property (nonatomic, readonly) NSArray* sublayers;  // back to front; +0
@property (nonatomic) CGRect frame;                  // in the superlayer's coordinates
@property (nonatomic) CGRect bounds;                 // in the layer's own
@property (nonatomic) CGPoint position;              // the frame's centre
@property (nonatomic) CGColorRef backgroundColor;    // retained
@property (nonatomic) CGColorRef borderColor;        // retained; opaque black at first
@property (nonatomic) CGFloat borderWidth;
@property (nonatomic) CGFloat cornerRadius;  // rounds background and border; contents only together with masksToBounds
@property (nonatomic) BOOL masksToBounds;
@property (nonatomic, getter=isHidden) BOOL hidden;
@property (nonatomic) float opacity;
@property (nonatomic, retain) id contents;  // a CGImageRef
@property (nonatomic, copy) NSString* contentsGravity;
@property (nonatomic) CGFloat contentsScale;

- (void)addSublayer:(CALayer*)layer;
- (void)insertSublayer:(CALayer*)layer atIndex:(unsigned)index;
- (void)removeFromSuperlayer;

// Draws the layer and everything below it, in the layer's own coordinate space, into a context whose y axis points
// down. The layer's own frame origin plays no part. Safe on any thread for a tree that no other thread uses.
- (void)renderInContext:(CGContextRef)context;

@end
