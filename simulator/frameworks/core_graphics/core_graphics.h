#pragma once

#include "simulator/frameworks/core_graphics/color.h"
#include "simulator/frameworks/core_graphics/context.h"
#include "simulator/frameworks/core_graphics/geometry.h"
#include "simulator/frameworks/core_graphics/image.h"
#include "simulator/frameworks/core_graphics/path.h"
