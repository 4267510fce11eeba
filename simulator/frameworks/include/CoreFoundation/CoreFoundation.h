#include "simulator/frameworks/core_foundation/core_foundation.h"
