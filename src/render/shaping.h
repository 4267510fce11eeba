// Pictures cut into the shape that lists show. Results are unowned (+0) unless they say otherwise. Any thread.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIImage.h"
#include "src/render/drawing.h"
#include "src/settings/settings.h"

namespace zelka {

// The side of a finished contact picture that is not drawn at a size of its own: points, and pixels where its scale
// is 1.
constexpr CGFloat kThumbnailSide = 80.0;

// The shape that the settings ask for.
inline Shape shapeOfPictures() { return isRoundedPicsEnabled() ? Shape::round : Shape::square; }

// The picture stretched over a bitmap of that many pixels, scale 1, cut out in that shape. A nil picture gives a
// transparent one. Nil when there is no bitmap of that size.
UIImage shapeThumbnail(UIImage picture, std::size_t width, std::size_t height);

// The 80 by 80 picture of encoded bytes; transparent when they are no picture; nil when there are none.
UIImage getImageFromImageData(NSData data);

// The file's picture in a clipped square of that many points, from the image cache or stored there under the path;
// transparent when there is no such file.
UIImage getImage(NSString path, CGSize size);
UIImage getImage(NSString path);

}  // namespace zelka
