// Pictures as a phone keeps them for a contact.
#pragma once

#include <string>
#include <string_view>

#include "simulator/maker/common/result.h"

namespace maker {

// Side of the square thumbnail that a phone makes, in pixels.
constexpr int kThumbnailSide = 160;

struct Photo {
    std::string thumbnail;     // encoded: JPEG, or PNG when the picture has transparent parts
    int cropX = 0, cropY = 0;  // the square that the thumbnail shows, in pixels of the picture
    int cropWidth = 0;
};

// Decodes a picture (of an animation the first frame), turned as its camera says, and makes its thumbnail from the
// square in the middle. Bytes that are no picture are a failure that says so.
Result<Photo> makePhoto(std::string_view encoded);

// An encoded thumbnail of one colour with a lighter disc on it, for generated contacts. Colour as 0xRRGGBB.
std::string plainThumbnail(unsigned colour);

}  // namespace maker
