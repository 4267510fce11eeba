// Monogram pictures: initials on a coloured disc or square, and the silhouette for contacts without initials. Lengths
// are in points; results are unowned (+0). Any thread.
//
// Pictures of contact IDs of 1 and above are kept in the image cache. A function that takes a contact ID returns the
// cached picture when there is one, whatever its size, colour and font.
#pragma once

#include <optional>

#include "src/platform/foundation/NSString.h"
#include "src/platform/uikit/UIColor.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UIImage.h"
#include "src/render/drawing.h"

namespace zelka {

// The font of monograms that name none (+0).
inline UIFont systemMonogramFont() { return UIFont::system(17); }

// How a monogram is to look. Without a font it is the one above; without a colour it is one of the palette, of the dark
// palette when there is a font.
struct MonogramStyle {
    CGSize size = {40, 40};
    std::optional<UIColor> color = std::nullopt;
    std::optional<UIFont> font = std::nullopt;
};

// Draws the text in capitals; the cache is neither read nor filled. A nil or empty text gives the silhouette, and with
// monograms switched off every other text gives defaultImage.
UIImage monogramImage(NSString text, const DrawnStyle& style);

// The contact's cached picture, or the text drawn as above and stored under the contact.
UIImage monogramImage(NSString text, NSInteger contactID, const MonogramStyle& style = {});

// The source picture over the colour, as large as the source picture; the size is that of the colour's disc or square.
// With monograms switched off, the source picture itself, whatever the cache holds. Without a source picture nil, and a
// line in the log.
UIImage getMonogramImage(NSInteger contactID, UIImage source, CGSize size, UIColor color);
// The same with the silhouette as the source picture; without a colour, over one of the palette.
UIImage getMonogramImage(NSInteger contactID, UIColor color);
UIImage getMonogramImage(NSInteger contactID = 0);

// The preference bundle's "recent" picture, 80 by 80, for contacts without any other picture.
UIImage recentPicture();

// The picture for nobody in particular: a silhouette, or the "recent" picture with monograms switched off.
UIImage defaultImage();

}  // namespace zelka
