#include "src/render/monograms.h"

#include "src/cache/image_cache.h"
#include "src/platform/foundation/NSValue.h"
#include "src/render/colors.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/log.h"
#include "src/util/preference_bundle.h"

namespace zelka {
namespace {

UIColor colorFor(const MonogramStyle& style, NSInteger contactID) {
    if (style.color) return *style.color;
    return style.font ? getMonogramRandomColor(contactID, true) : getMonogramRandomColor(contactID);
}

// The style with all that it leaves open.
DrawnStyle completed(const MonogramStyle& style, NSInteger contactID) {
    return {style.size, colorFor(style, contactID), style.font ? *style.font : systemMonogramFont()};
}

// Contacts keep their picture; 0 and below stand for nobody. The picture comes back as it is.
UIImage cached(UIImage picture, NSInteger contactID) {
    if (contactID >= 1) storeImage(picture, NSNumber::ofInteger(contactID));
    return picture;
}

UIImage cachedPictureOf(NSInteger contactID) { return getContactImageInCacheForKey(NSNumber::ofInteger(contactID)); }

}  // namespace

UIImage monogramImage(NSString text, const DrawnStyle& style) {
    if (text.length() == 0) return getMonogramImage();
    if (!isMonogramEnabled()) return defaultImage();
    return drawInitials(text, style, shapeOfPictures());
}

UIImage monogramImage(NSString text, NSInteger contactID, const MonogramStyle& style) {
    // Before the cache is asked, so that each call takes its random numbers whether or not they are needed.
    DrawnStyle complete = completed(style, contactID);
    if (UIImage known = cachedPictureOf(contactID)) return known;
    return cached(monogramImage(text, complete), contactID);
}

UIImage getMonogramImage(NSInteger contactID, UIImage source, CGSize size, UIColor color) {
    if (!isMonogramEnabled()) return source;
    if (UIImage known = cachedPictureOf(contactID)) return known;
    if (!source) {
        logError(LogSite{"+[ZelkaCBUtils getMonogramImage:source:size:color:]", 1329}, "Source image is nil.");
        return {};
    }
    return cached(renderOverColor(source, size, color, shapeOfPictures()), contactID);
}

UIImage getMonogramImage(NSInteger contactID, UIColor color) {
    if (UIImage known = cachedPictureOf(contactID)) return known;
    NSString name = isRoundedPicsEnabled() ? literal<"user_monogram_round">() : literal<"user_monogram">();
    UIImage silhouette = UIImage::fromFile(bundlePicturePath(name));
    return getMonogramImage(contactID, silhouette, silhouette.size(), color);
}

UIImage getMonogramImage(NSInteger contactID) {
    if (UIImage known = cachedPictureOf(contactID)) return known;
    return getMonogramImage(contactID, getMonogramRandomColor(contactID));
}

UIImage recentPicture() { return getImage(bundlePicturePath(literal<"recent">())); }

UIImage defaultImage() {
    if (isMonogramEnabled()) return getMonogramImage();
    return recentPicture();
}

}  // namespace zelka
