// CoreGraphics, as far as the frameworks above it and their hosts use it.
#pragma once

#include "simulator/frameworks/core_graphics/color.h"
#include "simulator/frameworks/core_graphics/context.h"
#include "simulator/frameworks/core_graphics/data_provider.h"
#include "simulator/frameworks/core_graphics/geometry.h"
#include "simulator/frameworks/core_graphics/image.h"
#include "simulator/frameworks/core_graphics/path.h"
