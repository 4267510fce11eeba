// Clipping, resizing and scaling of pictures. Results are unowned (+0) unless they say otherwise. Any thread.
#pragma once

#include <span>

#include "src/platform/class_builder.h"
#include "src/platform/uikit.h"

// The side of a finished contact picture that is not drawn at a size of its own: points, and pixels where its scale
// is 1.
constexpr CGFloat kThumbnailSide = 80.0;

// A new picture of the same size at the main screen's scale, its corners cut at the radius (points).
UIImage imageWithRoundedCornersRadius(UIImage picture, float radius);

// The picture stretched over a bitmap of that many pixels, scale 1, clipped to a circle (at 80 by 80) when rounded
// pictures are on, else to a rounded square. A nil picture draws nothing: the result is transparent. Nil when there is
// no bitmap of that size.
UIImage shapeThumbnail(UIImage picture, std::size_t width, std::size_t height);

// Adds a closed rounded rectangle to the context's current path; the oval's width and height are the corner's radii. A
// zero one gives the plain rectangle.
void addRoundedRectPath(CGContextRef context, CGRect rect, float ovalWidth, float ovalHeight);

// A rounded rectangle of straight lines and quadratic curves, for other code in the process. The caller owns the path
// (+1).
extern "C" __attribute__((visibility("default"))) CGMutablePathRef createRoundedCornerPath(CGRect rect, CGFloat radius);

namespace ZelkaCBUtils {

// The picture stretched to the size (points) and clipped to a circle across its width; the picture itself when rounded
// pictures are off; nil for nil.
UIImage roundedImage(UIImage picture, float width, float height);
UIImage roundedImage(UIImage picture);

// The picture fitted into twice the given size (points), keeping its shape.
UIImage resizeImage(UIImage picture, std::int32_t width, std::int32_t height);

// The picture centred in a box of that size, scale 1: a bigger one covers the box, one that fits is enlarged by the
// screen's scale.
UIImage scaleImage(UIImage picture, CGSize size);

// The 80 by 80 picture of encoded bytes; transparent when they are no picture; nil when there are none.
UIImage getImageFromImageData(NSData data);

// The file's picture in a clipped square of that many points, from the image cache or stored there under the path;
// transparent when there is no such file.
UIImage getImage(NSString path, CGSize size);
UIImage getImage(NSString path);

// The class methods that answer to these functions.
std::span<const MethodRow> shapingMethods();

}  // namespace ZelkaCBUtils

// Instance methods to add to UIImage.
std::span<const MethodRow> imageCategoryMethods();
