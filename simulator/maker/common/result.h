// The simulator's errors by value, as the maker's own names.
#pragma once

#include "simulator/runtime/result.h"

namespace maker {

using phone::failure;
using phone::problemOf;
using phone::Result;
using phone::Status;

}  // namespace maker
