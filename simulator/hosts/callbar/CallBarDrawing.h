// What CallBar draws itself.
#pragma once

#include "simulator/frameworks/uikit/uikit.h"

UIColor* CallBarSecondaryTextColor(void);  // +0
UIColor* CallBarMissedColor(void);         // +0
UIColor* CallBarTintColor(void);           // +0

// A handset with an arrow leaving it, 12 x 10 points at the screen's scale. +0.
UIImage* CallBarOutgoingIcon(void);

// The red disc with a bar that stands at the end of a row while its list is edited.
@interface CallBarDeleteControl : UIView
@end
