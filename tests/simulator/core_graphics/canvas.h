// A bitmap context over memory of the test's own, so that every byte can be looked at. Rows count from the top.
#pragma once

#include <cstdint>
#include <ostream>
#include <vector>

#include "simulator/frameworks/core_graphics/core_graphics.h"

struct Rgba {
    int r, g, b, a;
    friend bool operator==(const Rgba&, const Rgba&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Rgba& p) {
        return out << '(' << p.r << ' ' << p.g << ' ' << p.b << ' ' << p.a << ')';
    }
};

inline constexpr Rgba clear{0, 0, 0, 0}, black{0, 0, 0, 255}, white{255, 255, 255, 255}, red{255, 0, 0, 255},
    green{0, 255, 0, 255}, blue{0, 0, 255, 255};

class Canvas {
  public:
    Canvas(size_t width, size_t height) : width_(width), height_(height), bytes_(width * height * 4) {
        const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
        context_ = CGBitmapContextCreate(bytes_.data(), width, height, 8, width * 4, space,
                                         kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big);
        CGColorSpaceRelease(space);
    }
    ~Canvas() { CGContextRelease(context_); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    operator CGContextRef() const { return context_; }
    Rgba at(size_t x, size_t y) const {
        const uint8_t* p = bytes_.data() + (y * width_ + x) * 4;
        return {p[0], p[1], p[2], p[3]};
    }
    uint8_t* bytes() { return bytes_.data(); }
    /// The sum of coverage, in pixels.
    double area() const {
        double sum = 0;
        for (size_t i = 3; i < bytes_.size(); i += 4) {
            sum += bytes_[i] / 255.0;
        }
        return sum;
    }
    /// Makes y point down, as in an image context of UIKit's.
    void flip() const {
        CGContextTranslateCTM(context_, 0, CGFloat(height_));
        CGContextScaleCTM(context_, 1, -1);
    }
    void fill(Rgba color) const {
        CGContextSetRGBFillColor(context_, color.r / 255.0, color.g / 255.0, color.b / 255.0, color.a / 255.0);
    }
    void fillRect(Rgba color, CGRect rect) const {
        fill(color);
        CGContextFillRect(context_, rect);
    }

  private:
    size_t width_, height_;
    std::vector<uint8_t> bytes_;
    CGContextRef context_;
};
