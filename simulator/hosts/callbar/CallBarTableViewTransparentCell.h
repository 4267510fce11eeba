#pragma once

#include "simulator/frameworks/uikit/uikit.h"

// A row of Recents: name and date on the first line, kind of address and call-type icon on the second.
//
// The name label and the icon stand in the content view. The detail label and the date label stand beside the content
// view: in the cell from system 8 on, in the scrolling view between the two on system 7; before 7 in the content view
// too. In right-to-left layout CallBar mirrors the row itself, on every system: all texts stand in one container that
// reads from the right, and the accessory is at the right.
//
// Before system 7 and in right-to-left layout the row keeps a margin at its leading side.
@interface CallBarTableViewTransparentCell : UITableViewCell {
  @private
    UILabel* _nameLabel;
    UILabel* _kindLabel;
    UIDateLabel* _dateLabel;
    UIImageView* _typeIcon;
    UIView* _mirroredTexts;
    UIView* _deleteControl;
}

@property (nonatomic, readonly) UILabel* nameLabel;      // +0
@property (nonatomic, readonly) UILabel* kindLabel;      // +0
@property (nonatomic, readonly) UIDateLabel* dateLabel;  // +0
@property (nonatomic, readonly) UIImageView* typeIcon;   // hidden for calls that came in; +0

// Points.
+ (CGFloat)rowHeight;

@end
