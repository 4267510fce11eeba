#pragma once

#include "simulator/frameworks/uikit/control/UIButton.h"
#include "simulator/frameworks/uikit/control/UINavigationItem.h"

// The bar above a controller's view: the top item's title, and a button with the title of the item below it. It reaches
// behind the status bar. From system 9 on it is mirrored where the interface reads from the right.
@interface UINavigationBar : UIView {
  @private
    NSArray* _items;
    UILabel* _titleLabel;
    UIButton* _backButton;
    UIView* _line;
}

@property (nonatomic, copy) NSArray* items;                  // UINavigationItems; the last is shown
@property (nonatomic, readonly) UINavigationItem* topItem;   // +0
@property (nonatomic, readonly) UINavigationItem* backItem;  // nil for the first; +0

// Goes back, once somebody has given it a target; hidden while there is nowhere to go back to. +0.
- (UIButton*)_backButton;

@end
