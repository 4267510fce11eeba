// Bitmap images. An image is immutable and may be drawn on several threads at once.
#pragma once

#include "simulator/frameworks/core_graphics/geometry.h"

CG_EXTERN_BEGIN
/// +1: the part of the image inside `rect` (pixels from the top-left corner, made integral); NULL when they do not
/// meet.
CGImageRef CGImageCreateWithImageInRect(CGImageRef image, CGRect rect);
CGImageRef CGImageRetain(CGImageRef image);
void CGImageRelease(CGImageRef image);
/// Pixels; 0 for NULL.
size_t CGImageGetWidth(CGImageRef image);
size_t CGImageGetHeight(CGImageRef image);
size_t CGImageGetBitsPerComponent(CGImageRef image);
size_t CGImageGetBitsPerPixel(CGImageRef image);
size_t CGImageGetBytesPerRow(CGImageRef image);
CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef image);
/// The order of a pixel's bytes in what the image's provider copies (see data_provider.h), and where alpha is; 0 for
/// NULL.
CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image);
CG_EXTERN_END
