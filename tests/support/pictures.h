// Encoded pictures made byte by byte, and a look at the pixels of those that the library makes.
#pragma once

#include <string>

#include "simulator/frameworks/uikit/graphics/pixels.h"
#include "simulator/frameworks/uikit/uikit.h"

namespace test {

struct Rgb {
    unsigned char r, g, b;
};

constexpr Rgb kRed{255, 0, 0}, kGreen{0, 255, 0}, kBlue{0, 0, 255}, kYellow{255, 255, 0};

// A BMP of that many pixels; `colorAt` counts from the top left.
std::string bmp(int width, int height, Rgb (*colorAt)(int x, int y));
std::string bmp(int width, int height, Rgb color);
// The header of a BMP of that many pixels, and nothing after it.
std::string bmpHeader(int width, int height);
// A GIF of one pixel and two frames, red and then blue.
std::string animatedGif();

NSData* data(const std::string& bytes);

// A drawn picture of `width` x `height` points at that scale, red everywhere.
UIImage* redPicture(CGFloat width, CGFloat height, CGFloat scale);

// The picture's pixel (premultiplied), counted from the top left; all zero outside of it.
phone::Pixel pixel(UIImage* picture, int x, int y);
size_t pixelsWide(UIImage* picture);
size_t pixelsHigh(UIImage* picture);
// Whether the two colours differ by no more than `tolerance` in each component.
bool near(phone::Pixel a, phone::Pixel b, int tolerance = 2);
bool isTransparent(UIImage* picture);
// Whether the two pictures have the same pixels, give or take one step in a component.
bool samePixels(UIImage* a, UIImage* b);

}  // namespace test
