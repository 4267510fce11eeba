#include "src/hooks/parent_table.h"

#include "src/platform/uikit/UIView.h"

namespace zelka {

UITableView parentTableView(UITableViewCell cell) {
    UIView view = cell.superview();
    while (view && !dynamicCast<UITableView>(view)) view = view.superview();
    return as<UITableView>(view);
}

}  // namespace zelka
