// What a table asks of its cells.
#pragma once

#include "simulator/frameworks/uikit/table/UITableViewCell.h"

@interface UITableViewCell (UITableViewCellPrivate)

- (void)_setEditingStyle:(UITableViewCellEditingStyle)style;
// A nil colour: no separator.
- (void)_setSeparatorColor:(UIColor*)color;
// Holds unless the cell has been given one of its own.
- (void)_setTableSeparatorInset:(UIEdgeInsets)inset;
// Points kept free at the trailing edge for the table's index.
- (void)_setIndexWidth:(CGFloat)width;

@end
