#include "simulator/maker/contacts/photo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/simulator/maker/workbench.h"

namespace {

using testing::StartsWith;

test::PictureFacts thumbnailOf(const std::string& encoded) {
    phone::Result<maker::Photo> photo = maker::makePhoto(encoded);
    EXPECT_EQ(phone::problemOf(photo), "");
    return photo ? test::look(photo->thumbnail) : test::PictureFacts{};
}

TEST(Photo, ThumbnailsAreSquaresWhateverThePicturesShape) {
    for (auto [width, height] : {std::pair{300, 100}, {100, 300}, {1, 1}, {1, 2000}, {3000, 2000}}) {
        test::PictureFacts facts = thumbnailOf(test::picture(width, height, 0x336699));
        EXPECT_EQ(facts.width, maker::kThumbnailSide);
        EXPECT_EQ(facts.height, maker::kThumbnailSide);
    }
}

TEST(Photo, OpaquePicturesBecomeJpegOfTheSameColour) {
    test::PictureFacts facts = thumbnailOf(test::picture(300, 100, 0x808080));
    EXPECT_EQ(facts.kind, "jpeg");
    EXPECT_NEAR(static_cast<int>(facts.middle & 0xFF), 0x80, 2);
}

TEST(Photo, ReadsTheKindsOfPicturesThatCamerasAndCardsHold) {
    for (const char* kind : {"png", "jpeg", "tiff", "bmp"}) {
        EXPECT_EQ(thumbnailOf(test::picture(20, 20, 0xFFFFFF, kind)).width, maker::kThumbnailSide) << kind;
    }
}

TEST(Photo, TellsWhichSquareOfThePictureTheThumbnailShows) {
    maker::Photo photo = maker::makePhoto(test::picture(300, 100, 0)).value();
    EXPECT_EQ(photo.cropX, 100);
    EXPECT_EQ(photo.cropY, 0);
    EXPECT_EQ(photo.cropWidth, 100);
    // Large pictures are decoded smaller; the square is told in the picture's own pixels.
    maker::Photo large = maker::makePhoto(test::picture(4000, 2000, 0)).value();
    EXPECT_NEAR(large.cropX, 1000, 4);
    EXPECT_EQ(large.cropWidth, 2000);
}

TEST(Photo, BytesThatAreNoPictureAreRefused) {
    std::string whole = test::picture(64, 64, 0x123456);
    for (const std::string& bytes : {std::string(), std::string("x"), std::string(5000, '\0'), whole.substr(0, 40)}) {
        EXPECT_THAT(phone::problemOf(maker::makePhoto(bytes)), StartsWith("not a picture: "));
    }
}

}  // namespace
