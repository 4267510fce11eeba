// Looking at pictures from C++: for hosts that save what they show, and for tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "simulator/frameworks/core_graphics/image.h"
#include "simulator/runtime/result.h"

namespace phone {

/// Premultiplied, as stored.
struct Pixel {
    uint8_t r, g, b, a;
    friend bool operator==(const Pixel&, const Pixel&) = default;
};

/// The pixel `x` from the left and `y` from the top; nothing outside the image or for NULL.
std::optional<Pixel> pixelAt(CGImageRef image, size_t x, size_t y);

/// Writes the image to a host path as PNG, whole or not at all. A failure names the path.
Status writePng(CGImageRef image, const std::string& hostPath);

}  // namespace phone
