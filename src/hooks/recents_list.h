// CallBar's Recents list: a picture in every row, the cached one at once, any other a moment later.
#pragma once

#include "src/platform/hook.h"
#include "src/platform/uikit.h"

struct CallBarABViewController : UIResponder {};

namespace hooks {

void recentsViewDidLoad(CallBarABViewController self, SEL command);
using RecentsViewDidLoad = Hook<"CallBarABViewController", "viewDidLoad", &recentsViewDidLoad>;

void recentsDealloc(CallBarABViewController self, SEL command);
using RecentsDealloc = Hook<"CallBarABViewController", "dealloc", &recentsDealloc>;

UITableViewCell recentsCell(CallBarABViewController self, SEL command, UITableView table, NSIndexPath indexPath);
using RecentsCell = Hook<"CallBarABViewController", "tableView:cellForRowAtIndexPath:", &recentsCell>;

}  // namespace hooks
