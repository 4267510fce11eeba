// The small views that a table is put together from.
#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

@class UILabel;

// Holds the cells on systems 7 to 10.
@interface UITableViewWrapperView : UIView
@end

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
