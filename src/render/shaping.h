// Pictures cut into the shape that lists show. Results are unowned (+0) unless they say otherwise. Any thread.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIImage.h"

namespace zelka {

// The side of a finished contact picture that is not drawn at a size of its own: points, and pixels where its scale
// is 1.
constexpr CGFloat kThumbnailSide = 80.0;

// A new picture of the same size at the main screen's scale, its corners cut at the radius (points).
UIImage imageWithRoundedCornersRadius(UIImage picture, float radius);

// The picture stretched over a bitmap of that many pixels, scale 1, clipped to a circle (at 80 by 80) when rounded
// pictures are on, else to a rounded square. A nil picture draws nothing: the result is transparent. Nil when there is
// no bitmap of that size.
UIImage shapeThumbnail(UIImage picture, std::size_t width, std::size_t height);

// A rectangle at the origin.
inline CGRect boundsOf(CGSize size) { return {{0, 0}, size}; }

// Adds a closed rounded rectangle to the context's current path; the oval's width and height are the corner's radii. A
// zero one gives the plain rectangle.
void addRoundedRectPath(CGContextRef context, CGRect rect, float ovalWidth, float ovalHeight);

// The 80 by 80 picture of encoded bytes; transparent when they are no picture; nil when there are none.
UIImage getImageFromImageData(NSData data);

// The file's picture in a clipped square of that many points, from the image cache or stored there under the path;
// transparent when there is no such file.
UIImage getImage(NSString path, CGSize size);
UIImage getImage(NSString path);

}  // namespace zelka
