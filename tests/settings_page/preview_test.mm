// The rows that show what the switches do, down to their pixels.
#include <gmock/gmock.h>

#include "tests/settings_page/page.h"
#include "tests/support/pictures.h"
#include "tests/support/property_list.h"

namespace {

using test::near;
using test::pixel;
using zelka::Setting;

constexpr phone::Pixel kNothing{0, 0, 0, 0};
constexpr phone::Pixel kSampleBlue{0x47, 0x85, 0xf2, 255};

class PagePreview : public test::PageTest {
  protected:
    using PageTest::PageTest;
    UIImage* photo() const { return [[cell(row("photoSample")) imageView] image]; }
    UIImage* initials() const { return [[cell(row("initialsSample")) imageView] image]; }
    // The pixel at that many points from the top left.
    static phone::Pixel at(UIImage* picture, CGFloat x, CGFloat y) {
        const CGFloat scale = [picture scale];
        return pixel(picture, static_cast<int>(x * scale), static_cast<int>(y * scale));
    }
    // What shows at four points from both edges: a disc has nothing there, a square has.
    static bool isRound(UIImage* picture) { return near(at(picture, 4, 4), kNothing) && at(picture, 20, 1).a == 255; }
    static bool isSquare(UIImage* picture) { return at(picture, 4, 4).a == 255 && near(at(picture, 0, 0), kNothing); }
    static bool isGrey(phone::Pixel color) { return abs(color.r - color.g) < 12 && abs(color.g - color.b) < 20; }
};

TEST_F(PagePreview, ShowsAContactWithAPhotoAndOneWithInitials) {
    open();
    for (UIImage* picture : {photo(), initials()}) {
        ASSERT_NE(picture, nil);
        EXPECT_EQ([picture size].width, 40);
        EXPECT_EQ([picture size].height, 40);
        EXPECT_EQ([picture scale], 2);
    }
    EXPECT_EQ(std::string([[[cell(row("photoSample")) textLabel] text] UTF8String]), english("photoSample"));
    EXPECT_TRUE(near(at(initials(), 20, 4), kSampleBlue));
    EXPECT_FALSE(isGrey(at(photo(), 20, 39)));
}

// "JM" of "James Miller": white letters of another shape than "J" alone would have.
TEST_F(PagePreview, DrawsTheInitialsOfTheSamplesName) {
    open();
    int left = 40, right = 0;
    for (int x = 0; x < 40; ++x) {
        if (!near(at(initials(), x, 20), {255, 255, 255, 255}, 60)) continue;
        left = std::min(left, x);
        right = std::max(right, x);
    }
    EXPECT_LT(left, 17);
    EXPECT_GT(right, 23);
}

TEST_F(PagePreview, FollowsTheSwitchForRoundPicturesAtOnce) {
    open();
    EXPECT_TRUE(isRound(photo()) && isRound(initials()));
    flip(Setting::roundedPictures);
    EXPECT_TRUE(isSquare(photo()) && isSquare(initials()));
    flip(Setting::roundedPictures);
    EXPECT_TRUE(isRound(photo()) && isRound(initials()));
}

TEST_F(PagePreview, FollowsTheSwitchForInitialsAtOnce) {
    open();
    flip(Setting::monograms);
    EXPECT_TRUE(isGrey(at(initials(), 20, 4)));
    EXPECT_TRUE(isRound(initials()));
    EXPECT_FALSE(isGrey(at(photo(), 20, 39)));
    flip(Setting::monograms);
    EXPECT_TRUE(near(at(initials(), 20, 4), kSampleBlue));
}

TEST_F(PagePreview, HasNoPicturesWhileTheMainSwitchIsOff) {
    open();
    flip(Setting::enabled);
    EXPECT_EQ(photo(), nil);
    EXPECT_EQ(initials(), nil);
    flip(Setting::enabled);
    EXPECT_NE(photo(), nil);
    EXPECT_NE(initials(), nil);
}

TEST_F(PagePreview, ShowsWhatIsStoredWhenThePageOpens) {
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabledRoundedPictures", false}}));
    open();
    EXPECT_TRUE(isSquare(photo()) && isSquare(initials()));
}

class PagePreviewOnALargeScreen : public PagePreview {
  protected:
    PagePreviewOnALargeScreen() : PagePreview("iphone6plus-9.3") {}
};

TEST_F(PagePreviewOnALargeScreen, IsAsLargeInPointsAndFinerInPixels) {
    open();
    EXPECT_EQ([initials() scale], 3);
    EXPECT_EQ([initials() size].width, 40);
    EXPECT_EQ(test::pixelsWide(photo()), 120u);
}

}  // namespace
