// From a cell to the table view around it.
#pragma once

#include "src/platform/uikit/UITableView.h"

namespace zelka {

// The table view that the cell lives in, however many views stand between (+0); nil outside of a table. Main thread.
UITableView parentTableView(UITableViewCell cell);

}  // namespace zelka
