#include "src/exports/shaping_methods.h"

#include <algorithm>

#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIGraphics.h"
#include "src/platform/uikit/UIImage.h"
#include "src/platform/uikit/UIScreen.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"

namespace zelka {
namespace {

constexpr auto kFullTurn = static_cast<CGFloat>(6.283185307179586);

// The picture stretched to the size (points) and clipped to a circle across its width; the picture itself when rounded
// pictures are off; nil for nil.
UIImage roundedImage(UIImage picture, float width, float height) {
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

UIImage roundedImage(UIImage picture) {
    return roundedImage(picture, static_cast<float>(kThumbnailSide), static_cast<float>(kThumbnailSide));
}

// The picture fitted into twice the given size (points), keeping its shape.
UIImage resizeImage(UIImage picture, std::int32_t width, std::int32_t height) {
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

// The picture centred in a box of that size, scale 1: a bigger one covers the box, one that fits is enlarged by the
// screen's scale.
UIImage scaleImage(UIImage picture, CGSize box) {
    UIScreen screen = UIScreen::main();
    CGSize size = picture.size();
    CGFloat ratio = screen.respondsTo(selector<"scale">()) ? screen.scale() : 1;
    // Only a picture that does not fit is measured against the box.
    if (size.width > box.width || size.height > box.height)
        ratio = std::max(box.width / size.width, box.height / size.height);
    CGSize drawn{ratio * size.width, ratio * size.height};
    ImageContext context(box);
    picture.drawInRect({{(box.width - drawn.width) / 2, (box.height - drawn.height) / 2}, drawn});
    return context.picture();
}

}  // namespace

std::span<const MethodRow> shapingMethods() {
    static constexpr MethodRow kRows[] = {
        classMethod<"roundedImage:width:height:", UIImage(UIImage, float, float), &roundedImage>(),
        classMethod<"roundedImage:", UIImage(UIImage), &roundedImage>(),
        classMethod<"resizeImage:withWidth:withHeight:", UIImage(UIImage, std::int32_t, std::int32_t), &resizeImage>(),
        classMethod<"scaleImage:toSize:", UIImage(UIImage, CGSize), &scaleImage>(),
        classMethod<"getImageFromImageData:", UIImage(NSData), &getImageFromImageData>(),
        classMethod<"getImage:size:", UIImage(NSString, CGSize), &getImage>(),
        classMethod<"getImage:", UIImage(NSString), &getImage>(),
    };
    return kRows;
}

}  // namespace zelka
