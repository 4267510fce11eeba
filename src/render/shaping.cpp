#include "src/render/shaping.h"

#include <algorithm>
#include <array>

#include "src/cache/image_cache.h"
#include "src/settings/settings.h"

namespace {

constexpr float kSquareCorner = 5.0F;
constexpr float kRoundCorner = 40.0F;
constexpr auto kFullTurn = static_cast<CGFloat>(6.283185307179586);

CGRect boundsOf(CGSize size) { return {{0, 0}, size}; }

// A bitmap context of 8 bits a component that keeps its own memory; nothing when there is none of that size.
Owned<CGContextRef> createBitmap(std::size_t width, std::size_t height) {
    auto space = Owned<CGColorSpaceRef>::adopt(CGColorSpaceCreateDeviceRGB());
    return Owned<CGContextRef>::adopt(
        CGBitmapContextCreate(nullptr, width, height, 8, width * 4, space.get(), kAlphaPremultipliedFirst));
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
    float corner = ZelkaCBUtils::isRoundedPicsEnabled() ? kRoundCorner : kSquareCorner;
    CGContextBeginPath(context);
    addRoundedRectPath(context, bounds, corner, corner);
    CGContextClosePath(context);
    CGContextClip(context);
    if (CGImageRef source = picture.cgImage()) CGContextDrawImage(context, bounds, source);
    auto image = Owned<CGImageRef>::adopt(CGBitmapContextCreateImage(context));
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

CGMutablePathRef createRoundedCornerPath(CGRect rect, CGFloat radius) {
    CGFloat left = rect.origin.x;
    CGFloat top = rect.origin.y;
    CGFloat right = left + rect.size.width;
    CGFloat bottom = top + rect.size.height;
    CGMutablePathRef path = CGPathCreateMutable();
    CGPathMoveToPoint(path, nullptr, left + radius, top);
    CGPathAddLineToPoint(path, nullptr, right - radius, top);
    CGPathAddQuadCurveToPoint(path, nullptr, right, top, right, top + radius);
    CGPathAddLineToPoint(path, nullptr, right, bottom - radius);
    CGPathAddQuadCurveToPoint(path, nullptr, right, bottom, right - radius, bottom);
    CGPathAddLineToPoint(path, nullptr, left + radius, bottom);
    CGPathAddQuadCurveToPoint(path, nullptr, left, bottom, left, bottom - radius);
    CGPathAddLineToPoint(path, nullptr, left, top + radius);
    CGPathAddQuadCurveToPoint(path, nullptr, left, top, left + radius, top);
    return path;
}

UIImage ZelkaCBUtils::roundedImage(UIImage picture, float width, float height) {
    if (!picture || !isRoundedPicsEnabled()) return picture;
    CGSize box{static_cast<CGFloat>(width), static_cast<CGFloat>(height)};
    CGSize size = picture.size();
    ImageContext image(box, kMainScreenScale);
    CGContextRef context = image.context();
    CGFloat radius = box.width * static_cast<CGFloat>(0.5);
    CGContextBeginPath(context);
    CGContextAddArc(context, radius, box.height * static_cast<CGFloat>(0.5), radius, 0, kFullTurn, 0);
    CGContextClosePath(context);
    CGContextClip(context);
    CGContextScaleCTM(context, box.width / size.width, box.height / size.height);
    picture.drawInRect(boundsOf(size));
    return image.picture();
}

UIImage ZelkaCBUtils::roundedImage(UIImage picture) {
    return roundedImage(picture, static_cast<float>(kThumbnailSide), static_cast<float>(kThumbnailSide));
}

UIImage ZelkaCBUtils::resizeImage(UIImage picture, std::int32_t width, std::int32_t height) {
    // Twice the size, for screens of double density.
    auto doubled = [](std::int32_t length) {
        return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(length) << 1U));
    };
    CGSize size = picture.size();
    float ratio = std::min(static_cast<float>(doubled(width) / static_cast<double>(size.width)),
                           static_cast<float>(doubled(height) / static_cast<double>(size.height)));
    // In single precision like the ratio: 200 points made 80 are then just 80, where double would have a little more
    // and with it one more column of pixels. Some sizes have that column even so, such as 300 made 80.
    auto scaled = [ratio](CGFloat length) { return static_cast<CGFloat>(ratio * static_cast<float>(length)); };
    CGSize newSize{scaled(size.width), scaled(size.height)};
    ImageContext context(newSize, kMainScreenScale);
    picture.drawInRect(boundsOf(newSize));
    return context.picture();
}

UIImage ZelkaCBUtils::scaleImage(UIImage picture, CGSize box) {
    UIScreen screen = UIScreen::main();
    CGSize size = picture.size();
    CGFloat ratio = respondsTo(screen, selector<"scale">()) ? screen.scale() : 1;
    // Only a picture that does not fit is measured against the box.
    if (size.width > box.width || size.height > box.height)
        ratio = std::max(box.width / size.width, box.height / size.height);
    CGSize drawn{ratio * size.width, ratio * size.height};
    ImageContext context(box);
    picture.drawInRect({{(box.width - drawn.width) / 2, (box.height - drawn.height) / 2}, drawn});
    return context.picture();
}

UIImage ZelkaCBUtils::getImageFromImageData(NSData data) {
    if (data.length() == 0) return {};
    return shapeThumbnail(UIImage::fromData(data), static_cast<std::size_t>(kThumbnailSide),
                          static_cast<std::size_t>(kThumbnailSide));
}

UIImage ZelkaCBUtils::getImage(NSString path, CGSize size) {
    if (UIImage known = getContactImageInCacheForKey(path)) return known;
    UIImage picture = shapeThumbnail(UIImage::fromFile(path), wholePixels(size.width), wholePixels(size.height));
    storeImage(picture, path);
    return picture;
}

UIImage ZelkaCBUtils::getImage(NSString path) { return getImage(path, {kThumbnailSide, kThumbnailSide}); }

std::span<const MethodRow> ZelkaCBUtils::shapingMethods() {
    static constexpr std::array rows{
        classMethod<"roundedImage:width:height:", UIImage(UIImage, float, float), &roundedImage>(),
        classMethod<"roundedImage:", UIImage(UIImage), &roundedImage>(),
        classMethod<"resizeImage:withWidth:withHeight:", UIImage(UIImage, std::int32_t, std::int32_t), &resizeImage>(),
        classMethod<"scaleImage:toSize:", UIImage(UIImage, CGSize), &scaleImage>(),
        classMethod<"getImageFromImageData:", UIImage(NSData), &getImageFromImageData>(),
        classMethod<"getImage:size:", UIImage(NSString, CGSize), &getImage>(),
        classMethod<"getImage:", UIImage(NSString), &getImage>()};
    return rows;
}

std::span<const MethodRow> imageCategoryMethods() {
    static constexpr std::array rows{
        receiverMethod<"imageWithRoundedCornersRadius:", &imageWithRoundedCornersRadius>()};
    return rows;
}
