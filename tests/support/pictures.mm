#include "tests/support/pictures.h"

#include <stdlib.h>

namespace test {
namespace {

void append(std::string& bytes, unsigned value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

// One 1 x 1 frame of the given entry of a two-colour table, shown for a tenth of a second.
std::string gifFrame(bool second) {
    std::string frame("\x21\xF9\x04\x00\x0A\x00\x00\x00", 8);
    frame += std::string("\x2C\x00\x00\x00\x00\x01\x00\x01\x00\x00", 10);
    // LZW of least code size 2: clear, the pixel, end.
    frame += std::string("\x02\x02", 2);
    frame += second ? std::string("\x4C\x01", 2) : std::string("\x44\x01", 2);
    frame += '\0';
    return frame;
}

}  // namespace

std::string bmpHeader(int width, int height) {
    const unsigned stride = (static_cast<unsigned>(width) * 3 + 3) / 4 * 4;
    std::string bytes = "BM";
    append(bytes, 54 + stride * static_cast<unsigned>(height), 4);
    append(bytes, 0, 4);
    append(bytes, 54, 4);
    append(bytes, 40, 4);
    append(bytes, static_cast<unsigned>(width), 4);
    append(bytes, static_cast<unsigned>(height), 4);
    append(bytes, 1, 2);
    append(bytes, 24, 2);
    append(bytes, 0, 4);
    append(bytes, stride * static_cast<unsigned>(height), 4);
    append(bytes, 2835, 4);
    append(bytes, 2835, 4);
    append(bytes, 0, 4);
    append(bytes, 0, 4);
    return bytes;
}

std::string bmp(int width, int height, Rgb (*colorAt)(int x, int y)) {
    std::string bytes = bmpHeader(width, height);
    for (int y = height - 1; y >= 0; --y) {
        for (int x = 0; x < width; ++x) {
            const Rgb color = colorAt(x, y);
            bytes += static_cast<char>(color.b);
            bytes += static_cast<char>(color.g);
            bytes += static_cast<char>(color.r);
        }
        while ((bytes.size() - 54) % 4 != 0) bytes += '\0';
    }
    return bytes;
}

std::string bmp(int width, int height, Rgb color) {
    std::string bytes = bmpHeader(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            bytes += static_cast<char>(color.b);
            bytes += static_cast<char>(color.g);
            bytes += static_cast<char>(color.r);
        }
        while ((bytes.size() - 54) % 4 != 0) bytes += '\0';
    }
    return bytes;
}

std::string animatedGif() {
    std::string bytes("GIF89a\x01\x00\x01\x00\x80\x00\x00", 13);
    bytes += std::string("\xFF\x00\x00\x00\x00\xFF", 6);
    return bytes + gifFrame(false) + gifFrame(true) + ";";
}

NSData* data(const std::string& bytes) { return [NSData dataWithBytes:bytes.data() length:bytes.size()]; }

UIImage* redPicture(CGFloat width, CGFloat height, CGFloat scale) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(width, height), NO, scale);
    [[UIColor redColor] setFill];
    UIRectFill(CGRectMake(0, 0, width, height));
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return picture;
}

phone::Pixel pixel(UIImage* picture, int x, int y) {
    if (x < 0 || y < 0) return {};
    return phone::pixelAt([picture CGImage], static_cast<size_t>(x), static_cast<size_t>(y)).value_or(phone::Pixel{});
}

size_t pixelsWide(UIImage* picture) { return CGImageGetWidth([picture CGImage]); }
size_t pixelsHigh(UIImage* picture) { return CGImageGetHeight([picture CGImage]); }

bool near(phone::Pixel a, phone::Pixel b, int tolerance) {
    return abs(a.r - b.r) <= tolerance && abs(a.g - b.g) <= tolerance && abs(a.b - b.b) <= tolerance &&
           abs(a.a - b.a) <= tolerance;
}

bool isTransparent(UIImage* picture) {
    for (size_t y = 0; y < pixelsHigh(picture); ++y)
        for (size_t x = 0; x < pixelsWide(picture); ++x)
            if (!(pixel(picture, static_cast<int>(x), static_cast<int>(y)) == phone::Pixel{})) return false;
    return true;
}

bool samePixels(UIImage* a, UIImage* b) {
    if (test::pixelsWide(a) != test::pixelsWide(b) || test::pixelsHigh(a) != test::pixelsHigh(b)) return false;
    for (int y = 0; y < static_cast<int>(test::pixelsHigh(a)); ++y)
        for (int x = 0; x < static_cast<int>(test::pixelsWide(a)); ++x)
            if (!near(pixel(a, x, y), pixel(b, x, y), 1)) return false;
    return true;
}

}  // namespace test
