#import "simulator/hosts/remote/picture_source.h"

#include "tests/support/extension.h"
#include "tests/support/pictures.h"

namespace {

using hosts::sourceOfPicture;

// Every shade of the web's safe palette, and the pale violet whose silhouette resembles the default picture most.
std::vector<UIColor*> manyColours() {
    std::vector<UIColor*> colours = {[UIColor colorWithRed:0xD8 / 255.0 green:0xBF / 255.0 blue:0xD8 / 255.0 alpha:1]};
    for (int r = 0; r < 6; ++r)
        for (int g = 0; g < 6; ++g)
            for (int b = 0; b < 6; ++b)
                colours.push_back([UIColor colorWithRed:r / 5.0 green:g / 5.0 blue:b / 5.0 alpha:1]);
    return colours;
}

class PictureSources : public test::ExtensionTest, public testing::WithParamInterface<bool> {
  protected:
    void start() {
        boot();
        [settings() setIsRoundedPicsEnabled:GetParam()];
        [settings() setIsMonogramEnabled:YES];
    }
};

TEST_P(PictureSources, AreSilhouettesOverEveryColour) {
    start();
    for (UIColor* colour : manyColours())
        EXPECT_EQ(sourceOfPicture([Utils getMonogramImage:0 color:colour], 0).kind, "silhouette")
            << [[colour description] UTF8String];
}

TEST_P(PictureSources, AreMonogramsOverEveryColourButWhite) {
    start();
    for (UIColor* colour : manyColours()) {
        UIImage* drawn = [Utils monogramImage:@"Ab"
                                         size:CGSizeMake(40, 40)
                                        color:colour
                                         font:[UIFont systemFontOfSize:17]];
        const bool white = [colour isEqual:[UIColor colorWithRed:1 green:1 blue:1 alpha:1]];
        EXPECT_EQ(sourceOfPicture(drawn, 0).kind, white ? "plain" : "monogram") << [[colour description] UTF8String];
    }
}

TEST_P(PictureSources, AreTheDefaultPicture) {
    start();
    [settings() setIsMonogramEnabled:NO];
    EXPECT_EQ(sourceOfPicture([Utils defaultImage], 0).kind, "default");
}

TEST_P(PictureSources, AreBareSilhouettesWithoutAColour) {
    start();
    [settings() setIsMonogramEnabled:NO];
    const hosts::PictureSource source = sourceOfPicture([Utils monogramImage:@"" contactID:5], 5);
    EXPECT_EQ(source.kind, "silhouette");
    EXPECT_EQ(source.colour, "");
}

TEST_P(PictureSources, AreOtherPicturesWhenNothingFits) {
    start();
    EXPECT_EQ(sourceOfPicture(nil, 0).kind, "none");
    EXPECT_EQ(
        sourceOfPicture(
            [UIImage imageWithData:test::data(test::bmp(
                                       8, 8, [](int x, int y) { return (x + y) % 2 ? test::kRed : test::kBlue; }))],
            0)
            .kind,
        "other");
}

INSTANTIATE_TEST_SUITE_P(, PictureSources, testing::Bool(),
                         [](const auto& rounded) { return rounded.param ? "Round" : "Square"; });

}  // namespace
