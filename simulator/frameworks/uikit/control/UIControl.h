#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

typedef NS_OPTIONS(NSUInteger, UIControlEvents) {
    UIControlEventTouchDown = 1 << 0,
    UIControlEventTouchUpInside = 1 << 6,
    UIControlEventValueChanged = 1 << 12,
    UIControlEventAllEvents = 0xFFFFFFFF,
};

typedef NS_OPTIONS(NSUInteger, UIControlState) {
    UIControlStateNormal = 0,
    UIControlStateHighlighted = 1 << 0,
    UIControlStateDisabled = 1 << 1,
    UIControlStateSelected = 1 << 2,
};

@interface UIControl : UIView {
  @private
    NSMutableArray* _actions;
    BOOL _selected;
    BOOL _highlighted;
    BOOL _enabled;
}

@property (nonatomic, getter=isSelected) BOOL selected;
@property (nonatomic, getter=isHighlighted) BOOL highlighted;
@property (nonatomic, getter=isEnabled) BOOL enabled;
@property (nonatomic, readonly) UIControlState state;

// The target is not retained; the action takes no argument or the sender.
- (void)addTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events;
- (void)removeTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events;
// Sends every action registered for one of the events, in the order of registration.
- (void)sendActionsForControlEvents:(UIControlEvents)events;

@end
