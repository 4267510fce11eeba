// QuartzCore, as far as UIKit and its hosts use it: the layer, drawn by software.
#pragma once

#include "simulator/frameworks/core_graphics/core_graphics.h"
#include "simulator/frameworks/quartz_core/CALayer.h"
