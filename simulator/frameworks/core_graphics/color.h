// Colour spaces and colours. Every object is immutable and may be used from any thread. Create and Copy functions
// return +1; Retain functions return their argument; NULL is allowed wherever an object is, and then NULL or 0 is
// returned.
#pragma once

#include <stdbool.h>

#include "simulator/frameworks/core_graphics/base.h"

CG_EXTERN_BEGIN
CGColorSpaceRef CGColorSpaceCreateDeviceRGB(void);
CGColorSpaceRef CGColorSpaceCreateDeviceGray(void);
CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space);
void CGColorSpaceRelease(CGColorSpaceRef space);
CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space);
/// Without alpha: 3 for RGB, 1 for gray.
size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space);

/// `components`: the space's components and then alpha, each 0 to 1. NULL when either argument is.
CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat components[]);
CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha);
CGColorRef CGColorRetain(CGColorRef color);
void CGColorRelease(CGColorRef color);
/// With alpha: 4 for RGB, 2 for gray.
size_t CGColorGetNumberOfComponents(CGColorRef color);
/// The colour's own array, alpha last; lives as long as the colour.
const CGFloat* CGColorGetComponents(CGColorRef color);
CGFloat CGColorGetAlpha(CGColorRef color);
/// +0.
CGColorSpaceRef CGColorGetColorSpace(CGColorRef color);
bool CGColorEqualToColor(CGColorRef a, CGColorRef b);
CG_EXTERN_END
