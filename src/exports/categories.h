// Methods that the library adds to every object and to every table cell, under names of its own.
#pragma once

#include <span>

#include "src/platform/class_builder.h"
#include "src/platform/uikit.h"

namespace hooks {

// NSObject (ZelkaCB1): the ZelkaCB_contactID property, a number kept beside any object.
std::span<const MethodRow> objectMethods();

// UITableViewCell (ZelkaCB1): parentTableView.
std::span<const MethodRow> tableViewCellMethods();

}  // namespace hooks
