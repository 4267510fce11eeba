// The small views that a table is put together from.
#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

@class UILabel;

// Holds the cells on systems 7 to 10.
@interface UITableViewWrapperView : UIView
@end

typedef NS_ENUM(NSInteger, UITableViewTitleKind) {
    UITableViewTitleOnBar,      // of a plain table's section, on a grey bar
    UITableViewTitleOfGroup,    // small grey capitals, at the bottom
    UITableViewTextBelowGroup,  // small grey text of as many lines as it takes, at the top
};

// What is written above or below a section.
@interface UITableViewHeaderFooterView : UIView {
  @private
    UITableViewTitleKind _kind;
    UILabel* _textLabel;
    CGFloat _inset;
}
@property (nonatomic, readonly) UILabel* textLabel;
- (instancetype)initWithTitle:(NSString*)title kind:(UITableViewTitleKind)kind inset:(CGFloat)inset;
@end

// The column of section titles at the table's trailing edge.
@interface UITableViewIndex : UIView {
  @private
    NSArray* _titles;
}
@property (nonatomic, copy) NSArray* titles;
@end
