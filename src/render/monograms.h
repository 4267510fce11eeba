// Monogram pictures: initials on a coloured disc or square, and the silhouette for those without. Pictures of contact
// IDs of 1 and above are kept in the image cache, and a cached one is answered whatever was asked for; but with
// monograms off, who brings a source picture gets that one back. Sizes are in points; results are unowned (+0). Any
// thread.
#pragma once

#include <span>

#include "src/platform/class_builder.h"
#include "src/platform/uikit.h"

namespace ZelkaCBUtils {

// Draws the text in capitals, uncached. No text gives a silhouette; monograms switched off give defaultImage.
UIImage monogramImage(NSString text, CGSize size, UIColor color, UIFont font);

// The same through the cache; what is not given is 40 by 40 points, the 17-point system font, and a palette colour,
// from the dark palette when a font is given.
UIImage monogramImage(NSString text, NSInteger contactID, CGSize size, UIColor color, UIFont font);
UIImage monogramImage(NSString text, NSInteger contactID, CGSize size, UIColor color);
UIImage monogramImage(NSString text, NSInteger contactID, CGSize size, UIFont font);
UIImage monogramImage(NSString text, NSInteger contactID, CGSize size);
UIImage monogramImage(NSString text, NSInteger contactID);
UIImage monogramImage(NSString text, CGSize size, UIFont font);
UIImage monogramImage(NSString text, CGSize size);
UIImage monogramImage(NSString text);

// The silhouette over a colour; the source picture itself when monograms are off. Nil, with a line in the log, when
// there is no source picture.
UIImage getMonogramImage(NSInteger contactID, UIImage source, CGSize size, UIColor color);
UIImage getMonogramImage(NSInteger contactID, UIColor color);
UIImage getMonogramImage(NSInteger contactID);
UIImage getMonogramImage();

// The preference bundle's "recent" picture, 80 by 80, which stands where nothing better is to be had.
UIImage recentPicture();

// What stands in for a picture that is not there: a silhouette, or the "recent" picture when monograms are off.
UIImage defaultImage();

// The class methods that answer to these functions.
std::span<const MethodRow> monogramMethods();

}  // namespace ZelkaCBUtils
