#include "simulator/frameworks/quartz_core/quartz_core.h"
