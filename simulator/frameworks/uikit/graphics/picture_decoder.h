// Encoded pictures into pixels. Any thread; several at once.
#pragma once

#include <cairo.h>

#include <cstddef>

namespace uikit {

struct DecodedPicture {
    cairo_surface_t* surface = nullptr;  // the caller's; null when the bytes are not a whole picture
    int exifOrientation = 1;             // 1 to 8, as a camera recorded it
};

/// PNG, JPEG, GIF (its first frame), TIFF and BMP. A declared size beyond 64 million pixels, or beyond 32767 on a side,
/// is refused before any memory is spent on it.
DecodedPicture decodePicture(const void* bytes, size_t length);

}  // namespace uikit
