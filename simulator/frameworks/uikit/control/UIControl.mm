#include "simulator/frameworks/uikit/control/UIControl.h"

#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

// One registration of -addTarget:action:forControlEvents:.
@interface UIControlAction : NSObject {
  @public
    id target;  // unowned
    SEL action;
    UIControlEvents events;
}
@end

@implementation UIControlAction
@end

@implementation UIControl

@synthesize selected = _selected;
@synthesize highlighted = _highlighted;
@synthesize enabled = _enabled;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        _actions = [[NSMutableArray alloc] init];
        _enabled = YES;
    }
    return self;
}

- (void)dealloc {
    [_actions release];
    [super dealloc];
}

- (void)setSelected:(BOOL)selected {
    [self _requireThread:_cmd];
    _selected = selected;
    [self setNeedsLayout];
}

- (void)setHighlighted:(BOOL)highlighted {
    [self _requireThread:_cmd];
    _highlighted = highlighted;
    [self setNeedsLayout];
}

- (void)setEnabled:(BOOL)enabled {
    [self _requireThread:_cmd];
    _enabled = enabled;
    [self setNeedsLayout];
}

- (UIControlState)state {
    return (_highlighted ? UIControlStateHighlighted : 0) | (_enabled ? 0 : UIControlStateDisabled) |
           (_selected ? UIControlStateSelected : 0);
}

- (void)addTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events {
    UIControlAction* entry = [[UIControlAction alloc] init];
    entry->target = target;
    entry->action = action;
    entry->events = events;
    [_actions addObject:entry];
    [entry release];
}

- (void)removeTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events {
    for (UIControlAction* entry in [NSArray arrayWithArray:_actions]) {
        if (target && entry->target != target) continue;
        if (action && !sel_isEqual(entry->action, action)) continue;
        entry->events &= ~events;
        if (entry->events == 0) [_actions removeObjectIdenticalTo:entry];
    }
}

- (void)sendActionsForControlEvents:(UIControlEvents)events {
    for (UIControlAction* entry in [NSArray arrayWithArray:_actions]) {
        if (entry->events & events) [entry->target performSelector:entry->action withObject:self];
    }
}

@end
