#pragma once

#include "simulator/frameworks/uikit/uikit.h"

// Recents: one row for each entry (see CallBarCall.h) of the phone's call history.
@interface CallBarABViewController : UITableViewController {
  @protected
    BOOL onlyMissed;
    NSArray* _missedEntries;
    NSArray* _allEntries;
}

// Shows missed calls only, or all; a change reloads the table.
- (void)setOnlyMissed:(BOOL)missed;
- (BOOL)onlyMissed;

// The entries shown now. +0.
- (NSArray*)shownEntries;

@end
