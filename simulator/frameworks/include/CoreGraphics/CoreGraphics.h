#include "simulator/frameworks/core_graphics/core_graphics.h"
