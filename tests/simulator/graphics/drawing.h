// Pictures drawn for a test, and what can be seen on them.
#pragma once

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#import "simulator/frameworks/uikit/graphics/NSString+Drawing.h"
#import "simulator/frameworks/uikit/graphics/UIBezierPath.h"
#import "simulator/frameworks/uikit/graphics/UIColor.h"
#import "simulator/frameworks/uikit/graphics/UIGraphics.h"
#import "simulator/frameworks/uikit/graphics/UIImage.h"
#include "simulator/frameworks/uikit/graphics/pixels.h"

namespace phone {
inline std::ostream& operator<<(std::ostream& out, const Pixel& p) {
    return out << '(' << int(p.r) << ' ' << int(p.g) << ' ' << int(p.b) << ' ' << int(p.a) << ')';
}
}  // namespace phone

inline constexpr phone::Pixel clear{0, 0, 0, 0}, white{255, 255, 255, 255}, red{255, 0, 0, 255}, green{0, 255, 0, 255},
    blue{0, 0, 255, 255};

/// Each test runs inside a pool, as code on a phone does.
class DrawingTest : public testing::Test {
  protected:
    ~DrawingTest() override { [pool_ drain]; }

  private:
    NSAutoreleasePool* pool_ = [[NSAutoreleasePool alloc] init];
};

/// Autoreleased: what `draw` draws into an image context of `size` points.
UIImage* drawn(CGSize size, CGFloat scale, const std::function<void(CGContextRef)>& draw);

phone::Pixel pixel(UIImage* image, size_t x, size_t y);

/// The sum of coverage, in pixels.
double coverage(UIImage* image);

/// The smallest rectangle, in pixels, around everything that is not clear; CGRectNull when all is.
CGRect ink(UIImage* image);
