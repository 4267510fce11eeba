#import "tests/simulator/graphics/drawing.h"

UIImage* drawn(CGSize size, CGFloat scale, const std::function<void(CGContextRef)>& draw) {
    UIGraphicsBeginImageContextWithOptions(size, NO, scale);
    draw(UIGraphicsGetCurrentContext());
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

phone::Pixel pixel(UIImage* image, size_t x, size_t y) {
    const auto found = phone::pixelAt([image CGImage], x, y);
    EXPECT_TRUE(found.has_value()) << "no pixel " << x << ' ' << y;
    return found.value_or(clear);
}

static void forEachPixel(UIImage* image, const std::function<void(size_t, size_t, phone::Pixel)>& visit) {
    for (size_t y = 0; y < CGImageGetHeight([image CGImage]); ++y) {
        for (size_t x = 0; x < CGImageGetWidth([image CGImage]); ++x) {
            visit(x, y, *phone::pixelAt([image CGImage], x, y));
        }
    }
}

double coverage(UIImage* image) {
    double sum = 0;
    forEachPixel(image, [&](size_t, size_t, phone::Pixel p) { sum += p.a / 255.0; });
    return sum;
}

CGRect ink(UIImage* image) {
    CGRect box = CGRectNull;
    forEachPixel(image, [&](size_t x, size_t y, phone::Pixel p) {
        if (p.a != 0) {
            box = CGRectUnion(box, CGRectMake(CGFloat(x), CGFloat(y), 1, 1));
        }
    });
    return box;
}
