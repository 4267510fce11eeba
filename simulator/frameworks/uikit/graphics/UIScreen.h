#pragma once

#include "simulator/frameworks/uikit/graphics/UIGeometry.h"

@class CADisplayLink;

// The phone's screen. Before system 8 the bounds are always those of the upright phone; from 8 on they follow the
// interface.
@interface UIScreen : NSObject

+ (UIScreen*)mainScreen;  // +0
+ (NSArray*)screens;      // +0

@property (nonatomic, readonly) CGRect bounds;            // points
@property (nonatomic, readonly) CGRect applicationFrame;  // points; the bounds less the status bar before system 7
@property (nonatomic, readonly) CGFloat scale;            // pixels per point as drawn

// There since system 3.1 and asked for only to learn whether the screen knows scales: the stand-in has no display to
// follow and raises.
- (CADisplayLink*)displayLinkWithTarget:(id)target selector:(SEL)selector;

@end

// The screen has these methods from system 8 on only.
@interface UIScreen (NativeResolution)

@property (nonatomic, readonly) CGRect nativeBounds;  // pixels of the panel, upright
@property (nonatomic, readonly) CGFloat nativeScale;  // panel pixels per point

@end
