// What the files that implement a table ask of one another. Each adopts the protocol for UITableView in a category.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/uikit/table/UITableViewRowMap.h"

@class UITableViewCell;

@protocol UITableViewInternals

// The rows, asked of the data source again when stale.
- (UITableViewRowMap&)_rowMap;
// Marks the rows stale without touching the cells.
- (void)_forgetRows;
- (const UITableViewRowMap::Section&)_section:(NSInteger)section;
// As the data source has it now.
- (NSInteger)_sectionCount;
// What the section's title or the delegate asks for; 0 for none.
- (CGFloat)_headerHeightOf:(NSInteger)section;
- (CGFloat)_footerHeightOf:(NSInteger)section;
// Gives the headers and footers in sight their views.
- (void)_askForHeaders;
- (void)_forgetHeaders;
// Gives every row in sight a cell and takes the others' away.
- (void)_updateCells;
- (void)_recycleAllCells;
- (void)_recycleCellAt:(NSIndexPath*)indexPath;
- (void)_applyEditingTo:(UITableViewCell*)cell at:(NSIndexPath*)indexPath;

@end
