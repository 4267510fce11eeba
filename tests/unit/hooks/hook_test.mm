#include "tests/unit/hooks/hook_test.h"

#include "simulator/runtime/process/process.h"

namespace test {

std::string frameOf(UIView* view) {
    const CGRect frame = [view frame];
    char buffer[96];
    snprintf(buffer, sizeof buffer, "%g %g %g %g", frame.origin.x, frame.origin.y, frame.size.width, frame.size.height);
    return buffer;
}

void HookTest::settle() { EXPECT_TRUE(phone::settle(20)) << "still waiting for queued work"; }

int HookTest::addWithPhoto(Rgb color, const char* first, const char* last) {
    const int contact = addNamed(first, last);
    setThumbnail(contact, bmp(8, 8, color));
    return contact;
}

void HookTest::replaceBundlePicture(const char* name, Rgb color) {
    const std::string stem = std::string("/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/") + name;
    for (const char* suffix : {".png", "@2x.png", "@3x.png"}) root.write(stem + suffix, bmp(8, 8, color));
}

phone::Pixel HookTest::middle(UIImage* picture) {
    return pixel(picture, static_cast<int>(pixelsWide(picture) / 2), static_cast<int>(pixelsHigh(picture) / 2));
}

bool HookTest::shows(UIView* cell, Rgb color) {
    return near(middle([pictureOf(cell) image]), {color.r, color.g, color.b, 255}, 3);
}

}  // namespace test
