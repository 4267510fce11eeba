#include "src/render/shaping.h"

#include "src/cache/image_cache.h"
#include "src/platform/owned.h"
#include "src/platform/uikit/UIBezierPath.h"
#include "src/platform/uikit/UIGraphics.h"
#include "src/settings/settings.h"

namespace zelka {
namespace {

constexpr float kSquareCorner = 5.0F;
constexpr float kRoundCorner = 40.0F;

// A bitmap context of 8 bits a component that keeps its own memory; nothing when there is none of that size.
Owned<CGContextRef> createBitmap(std::size_t width, std::size_t height) {
    auto space = adopt(CGColorSpaceCreateDeviceRGB());
    return adopt(CGBitmapContextCreate(nullptr, width, height, 8, width * 4, space.get(), kAlphaPremultipliedFirst));
}

// The whole pixels of a length in points; 0 for a length that no picture has.
std::size_t wholePixels(CGFloat length) {
    constexpr CGFloat kLongest = 1 << 20;
    return length >= 1 && length <= kLongest ? static_cast<std::size_t>(length) : 0;
}

}  // namespace

UIImage imageWithRoundedCornersRadius(UIImage picture, float radius) {
    CGSize size = picture.size();
    ImageContext context(size, kMainScreenScale);
    UIBezierPath::roundedRect(boundsOf(size), static_cast<CGFloat>(radius)).addClip();
    picture.drawInRect(boundsOf(size));
    return context.picture();
}

UIImage shapeThumbnail(UIImage picture, std::size_t width, std::size_t height) {
    Owned<CGContextRef> bitmap = createBitmap(width, height);
    if (!bitmap) return {};
    CGContextRef context = bitmap.get();
    CGRect bounds = makeRect(0, 0, static_cast<CGFloat>(width), static_cast<CGFloat>(height));
    float corner = isRoundedPicsEnabled() ? kRoundCorner : kSquareCorner;
    CGContextBeginPath(context);
    addRoundedRectPath(context, bounds, corner, corner);
    CGContextClosePath(context);
    CGContextClip(context);
    if (CGImageRef source = picture.cgImage()) CGContextDrawImage(context, bounds, source);
    auto image = adopt(CGBitmapContextCreateImage(context));
    return UIImage::fromCGImage(image.get());
}

void addRoundedRectPath(CGContextRef context, CGRect rect, float ovalWidth, float ovalHeight) {
    if (ovalWidth == 0 || ovalHeight == 0) {
        CGContextAddRect(context, rect);
        return;
    }
    CGFloat width = rect.size.width / static_cast<CGFloat>(ovalWidth);
    CGFloat height = rect.size.height / static_cast<CGFloat>(ovalHeight);
    CGFloat middleX = width * static_cast<CGFloat>(0.5);
    CGFloat middleY = height * static_cast<CGFloat>(0.5);
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, rect.origin.x, rect.origin.y);
    CGContextScaleCTM(context, static_cast<CGFloat>(ovalWidth), static_cast<CGFloat>(ovalHeight));
    CGContextMoveToPoint(context, width, middleY);
    CGContextAddArcToPoint(context, width, height, middleX, height, 1);
    CGContextAddArcToPoint(context, 0, height, 0, middleY, 1);
    CGContextAddArcToPoint(context, 0, 0, middleX, 0, 1);
    CGContextAddArcToPoint(context, width, 0, width, middleY, 1);
    CGContextClosePath(context);
    CGContextRestoreGState(context);
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
