#include "src/hooks/parent_table.h"

namespace zelka {

UITableView parentTableView(UITableViewCell cell) {
    Class tableViewClass = platformClass<"UITableView">();
    UIView view = cell.superview();
    while (view && !isKindOf(view, tableViewClass)) view = view.superview();
    return as<UITableView>(view);
}

}  // namespace zelka
