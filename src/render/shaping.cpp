#include "src/render/shaping.h"

#include "src/cache/image_cache.h"
#include "src/settings/settings.h"

namespace zelka {
namespace {

// The whole pixels of a length in points; 0 for a length that no picture has.
std::size_t wholePixels(CGFloat length) {
    constexpr CGFloat kLongest = 1 << 20;
    return length >= 1 && length <= kLongest ? static_cast<std::size_t>(length) : 0;
}

}  // namespace

UIImage shapeThumbnail(UIImage picture, std::size_t width, std::size_t height) {
    return cutOut(picture, width, height, shapeOfPictures());
}

UIImage getImageFromImageData(NSData data) {
    if (data.length() == 0) return {};
    return shapeThumbnail(UIImage::fromData(data), static_cast<std::size_t>(kThumbnailSide),
                          static_cast<std::size_t>(kThumbnailSide));
}

UIImage getImage(NSString path, CGSize size) {
    if (UIImage known = getContactImageInCacheForKey(path)) return known;
    UIImage picture = shapeThumbnail(UIImage::fromFile(path), wholePixels(size.width), wholePixels(size.height));
    storeImage(picture, path);
    return picture;
}

UIImage getImage(NSString path) { return getImage(path, {kThumbnailSide, kThumbnailSide}); }

}  // namespace zelka
