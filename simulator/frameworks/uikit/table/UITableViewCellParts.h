// The small views that a cell is put together from.
#pragma once

#include "simulator/frameworks/uikit/control/UIControl.h"
#include "simulator/frameworks/uikit/table/UITableViewCellTypes.h"

@interface UITableViewCellContentView : UIView
@end

// Between the cell and its content view on system 7.
@interface UITableViewCellScrollView : UIView
@end

// The red circle with a white bar, or the green one with a plus.
@interface UITableViewCellEditControl : UIControl {
  @private
    UITableViewCellEditingStyle _style;
}
@property (nonatomic) UITableViewCellEditingStyle style;
@end

// The chevron or the tick.
@interface UITableViewCellAccessoryMark : UIView {
  @private
    UITableViewCellAccessoryType _type;
}
- (instancetype)initWithType:(UITableViewCellAccessoryType)type;
@end

// A view of the right size and look for the type; nil for none. +0.
CG_EXTERN UIView* UITableViewMakeAccessory(UITableViewCellAccessoryType type);
