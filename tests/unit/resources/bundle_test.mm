// The preference bundle as it is built, and the injection filter: what the library and the injectors read.
#import <Foundation/Foundation.h>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gtest/gtest.h>

#include <string>

#include "simulator/runtime/glib_pointers.h"
#include "tests/support/parameter_name.h"

namespace {

using Picture = phone::GObjectPointer<GdkPixbuf>;

Picture load(const std::string& name, int scale) {
    const std::string suffix = scale == 1 ? "" : "@" + std::to_string(scale) + "x";
    return Picture(gdk_pixbuf_new_from_file((ZELKA_BUNDLE "/" + name + suffix + ".png").c_str(), nullptr));
}

int alpha(const Picture& picture, int x, int y) {
    if (!gdk_pixbuf_get_has_alpha(picture.get())) return 255;
    const int stride = gdk_pixbuf_get_rowstride(picture.get());
    return gdk_pixbuf_read_pixels(picture.get())[y * stride + x * 4 + 3];
}

class PictureAtScale : public testing::TestWithParam<int> {
  protected:
    static constexpr int silhouetteSide = 40;
    static constexpr int defaultSide = 80;
};

TEST_P(PictureAtScale, HasItsSizeInPoints) {
    const struct {
        const char* name;
        int side;
    } expected[] = {
        {"user_monogram_round", silhouetteSide}, {"user_monogram", silhouetteSide}, {"recent", defaultSide}};
    for (const auto& [name, side] : expected) {
        const Picture picture = load(name, GetParam());
        ASSERT_TRUE(picture) << name;
        EXPECT_EQ(side * GetParam(), gdk_pixbuf_get_width(picture.get())) << name;
        EXPECT_EQ(side * GetParam(), gdk_pixbuf_get_height(picture.get())) << name;
    }
}

TEST_P(PictureAtScale, SilhouetteLetsTheColourShineThroughAroundTheFigure) {
    for (const char* name : {"user_monogram_round", "user_monogram"}) {
        const Picture picture = load(name, GetParam());
        ASSERT_TRUE(picture) << name;
        const int middle = gdk_pixbuf_get_width(picture.get()) / 2;
        EXPECT_LT(alpha(picture, middle, 2 * GetParam()), 64) << name;
        EXPECT_EQ(255, alpha(picture, middle, 15 * GetParam())) << name;
        EXPECT_EQ(255, alpha(picture, middle, 30 * GetParam())) << name;
    }
}

TEST_P(PictureAtScale, SilhouetteLeavesTheCornersFree) {
    for (const char* name : {"user_monogram_round", "user_monogram"}) {
        const Picture picture = load(name, GetParam());
        ASSERT_TRUE(picture) << name;
        const int last = gdk_pixbuf_get_width(picture.get()) - 1;
        for (const auto& [x, y] : {std::pair{0, 0}, {last, 0}, {0, last}, {last, last}})
            EXPECT_EQ(0, alpha(picture, x, y)) << name << " at " << x << ", " << y;
    }
}

TEST_P(PictureAtScale, DefaultPictureFillsItsSquare) {
    const Picture picture = load("recent", GetParam());
    ASSERT_TRUE(picture);
    const int side = gdk_pixbuf_get_width(picture.get());
    for (int y = 0; y < side; y++)
        for (int x = 0; x < side; x++) ASSERT_EQ(255, alpha(picture, x, y)) << x << ", " << y;
}

INSTANTIATE_TEST_SUITE_P(AllScales, PictureAtScale, testing::Values(1, 2, 3), test::ParameterName());

TEST(Bundle, NamesTheProductAndItsVersion) {
    @autoreleasepool {
        NSDictionary* list = [NSDictionary dictionaryWithContentsOfFile:@ZELKA_BUNDLE "/ZelkaCB.plist"];
        EXPECT_STREQ("ZelkaCB", [[list objectForKey:@"Name"] UTF8String]);
        EXPECT_STREQ(ZELKA_VERSION, [[list objectForKey:@"Version"] UTF8String]);
    }
}

TEST(Filter, NamesTheTwoServedProcessesAndNothingElse) {
    @autoreleasepool {
        NSDictionary* expected =
            @{@"Filter" : @{@"Bundles" : @[ @"com.apple.springboard", @"net.vantrel.callbarviewservice" ]}};
        EXPECT_TRUE([expected isEqual:[NSDictionary dictionaryWithContentsOfFile:@ZELKA_FILTER]]);
    }
}

}  // namespace
