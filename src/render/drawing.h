// Pictures drawn by what they are given: no setting, cache or file has a part in it. Lengths are in points unless they
// say pixels; results are unowned (+0). Any thread.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/uikit/UIColor.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UIImage.h"

namespace zelka {

// A disc, or a square whose corners are cut a little.
enum class Shape : bool { square, round };

// How initials are to look.
struct DrawnStyle {
    CGSize size = {};
    UIColor color;
    UIFont font;
};

// A rectangle at the origin.
inline CGRect boundsOf(CGSize size) { return {{0, 0}, size}; }

// A new picture of the same size at the main screen's scale, its corners cut at the radius.
UIImage imageWithRoundedCornersRadius(UIImage picture, float radius);

// The picture stretched over a bitmap of that many pixels, scale 1, clipped to a circle (at 80 by 80) or to a rounded
// square. A nil picture draws nothing: the result is transparent. Nil when there is no bitmap of that size.
UIImage cutOut(UIImage picture, std::size_t width, std::size_t height, Shape shape);

// The text in white capitals over the colour's disc or square.
UIImage drawInitials(NSString text, const DrawnStyle& style, Shape shape);

// The source picture over the colour, as a view of that size shows it, in a picture as large as the source.
UIImage renderOverColor(UIImage source, CGSize size, UIColor color, Shape shape);

// Adds a closed rounded rectangle to the context's current path; the oval's width and height are the corner's radii. A
// zero one gives the plain rectangle.
void addRoundedRectPath(CGContextRef context, CGRect rect, float ovalWidth, float ovalHeight);

}  // namespace zelka
