// Where an image's bytes come from.
#pragma once

#include "simulator/frameworks/core_foundation/core_foundation.h"
#include "simulator/frameworks/core_graphics/image.h"

CG_EXTERN_BEGIN
/// +0, lives as long as the image; NULL for NULL.
CGDataProviderRef CGImageGetDataProvider(CGImageRef image);
CGDataProviderRef CGDataProviderRetain(CGDataProviderRef provider);
void CGDataProviderRelease(CGDataProviderRef provider);
/// +1: the image's pixels, top row first, CGImageGetBytesPerRow bytes a row, laid out as CGImageGetBitmapInfo says;
/// NULL for NULL.
CFDataRef CGDataProviderCopyData(CGDataProviderRef provider);
CG_EXTERN_END
