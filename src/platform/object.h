// Ownership and handles under the older header's name, for files that are not converted yet.
#pragma once

#include "src/platform/owned.h"
#include "src/platform/transition.h"
