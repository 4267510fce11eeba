// Pictures as bytes, for looking at them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

@class UIImage;

namespace hosts {

struct Pixels {
    size_t width = 0;
    size_t height = 0;
    std::vector<uint8_t> rgba;  // alpha premultiplied, top row first

    bool empty() const { return rgba.empty(); }
    const uint8_t* at(size_t x, size_t y) const { return rgba.data() + 4 * (y * width + x); }
};

// The picture's own pixels; empty for nil.
Pixels pixelsOf(UIImage* image);
// The picture stretched to a square of `side` pixels; empty for nil.
Pixels pixelsStretched(UIImage* image, size_t side);

// Sixteen hexadecimal digits that differ for pictures of other pixels or sizes.
std::string contentHash(const Pixels& pixels);

// Two hexadecimal digits for the mean red, green and blue of each of 16 x 16 squares, top row first: pictures that
// differ by what antialiasing rounds differ by a step or two here. Of a picture of 16 pixels a side at least.
std::string coarseLook(const Pixels& pixels);

}  // namespace hosts
