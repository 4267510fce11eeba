#include "simulator/frameworks/uikit/uikit.h"
