#pragma once

#include "simulator/frameworks/uikit/control/UIControl.h"

// On or off, in the look of systems from 7 on. Its size is its own: 51 by 31 points. From system 9 on it is mirrored
// where the interface reads from the right.
@interface UISwitch : UIControl {
  @private
    UIColor* _onTintColor;
    BOOL _on;
}

@property (nonatomic, getter=isOn) BOOL on;
@property (nonatomic, retain) UIColor* onTintColor;  // nil: the system's green

// Sends no event: only a finger does, which flips and then sends UIControlEventValueChanged.
- (void)setOn:(BOOL)on animated:(BOOL)animated;

@end
