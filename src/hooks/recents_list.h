// CallBar's Recents list: a picture in every row, the cached one at once, any other a moment later.
#pragma once

#include "src/hooks/host_classes.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/hook.h"
#include "src/platform/uikit/UITableView.h"

namespace zelka {

void recentsViewDidLoad(CallBarABViewController self, SEL command);
using RecentsViewDidLoad = Hook<"CallBarABViewController", "viewDidLoad", &recentsViewDidLoad>;

void recentsDealloc(CallBarABViewController self, SEL command);
using RecentsDealloc = Hook<"CallBarABViewController", "dealloc", &recentsDealloc>;

// Reloads the list.
void recentsSettingsChanged(CallBarABViewController self, SEL command, NSObject notification);
using RecentsSettingsChanged =
    AddedMethod<"CallBarABViewController", "zelkaCBSettingsChanged:", "v@:@@", &recentsSettingsChanged>;

UITableViewCell recentsCell(CallBarABViewController self, SEL command, UITableView table, NSIndexPath indexPath);
using RecentsCell = Hook<"CallBarABViewController", "tableView:cellForRowAtIndexPath:", &recentsCell>;

}  // namespace zelka
