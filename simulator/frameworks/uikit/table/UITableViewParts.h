// The small views that a table and its cells are put together from.
#pragma once

#include "simulator/frameworks/uikit/control/UIControl.h"
#include "simulator/frameworks/uikit/table/UITableViewCell.h"

@class UILabel;

@interface UITableViewCellContentView : UIView
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
UIView* UITableViewMakeAccessory(UITableViewCellAccessoryType type);

// A section's title on a grey bar.
@interface UITableViewHeaderFooterView : UIView {
  @private
    UILabel* _textLabel;
    CGFloat _inset;
}
@property (nonatomic, readonly) UILabel* textLabel;
- (instancetype)initWithTitle:(NSString*)title grouped:(BOOL)grouped inset:(CGFloat)inset;
@end

// The column of section titles at the table's trailing edge.
@interface UITableViewIndex : UIView {
  @private
    NSArray* _titles;
}
@property (nonatomic, copy) NSArray* titles;
@end
