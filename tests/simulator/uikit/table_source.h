#pragma once

#include "simulator/frameworks/uikit/uikit.h"

// Counts what happens to it.
@interface CountingCell : UITableViewCell {
  @public
    int layouts, reuses;
}
@end

// A plain list of names, for tests of tables.
@interface NameSource : NSObject <UITableViewDataSource, UITableViewDelegate> {
  @public
    NSMutableArray* sections;  // arrays of names
    NSMutableArray* titles;    // one for each section, or empty
    UITableViewCellStyle style;
    UITableViewCellAccessoryType accessory;
    int made;
    BOOL indexed;
}
@end

// A table of `names` in one section. +0.
UITableView* makeTable(NameSource* source, CGRect frame);
NameSource* sourceOf(NSArray* names);
