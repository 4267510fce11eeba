// Encoded pictures made for a test.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// RGBA, top row first.
struct RawPicture {
    int width, height;
    std::vector<uint8_t> rgba;
};

/// Quarters: red, green above; blue, half-transparent white below.
RawPicture quarters(int width, int height);

/// The bytes in gdk-pixbuf's format "png", "jpeg", "tiff" or "bmp"; empty when that fails.
std::string encode(const RawPicture& picture, const char* format);

/// A JPEG with a camera's note that it is to be turned: 1 to 8.
std::string withOrientation(const std::string& jpeg, int orientation);

/// A GIF of frames that are each one colour of the table red, green, blue, black.
std::string encodeGif(int width, int height, const std::vector<int>& frameColors);

/// A PNG that declares a size but holds only `rows` white rows.
std::string pngWithRows(uint32_t width, uint32_t height, uint32_t rows);
