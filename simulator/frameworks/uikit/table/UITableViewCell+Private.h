// What a table asks of its cells.
#pragma once

#include "simulator/frameworks/uikit/table/UITableViewCell.h"

// Where in its section a row of a grouped table stands: lines reach from edge to edge there.
typedef NS_OPTIONS(NSUInteger, UITableViewCellSectionEdges) {
    UITableViewCellInSection = 0,
    UITableViewCellFirstOfSection = 1 << 0,
    UITableViewCellLastOfSection = 1 << 1,
};

@interface UITableViewCell (UITableViewCellPrivate)

- (void)_setEditingStyle:(UITableViewCellEditingStyle)style;
// A nil colour: no separator.
- (void)_setSeparatorColor:(UIColor*)color;
- (void)_setSectionEdges:(UITableViewCellSectionEdges)edges;
// Holds unless the cell has been given one of its own.
- (void)_setTableSeparatorInset:(UIEdgeInsets)inset;
// Points kept free at the trailing edge for the table's index.
- (void)_setIndexWidth:(CGFloat)width;

@end
