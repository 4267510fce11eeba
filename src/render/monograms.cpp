#include "src/render/monograms.h"

#include "src/cache/image_cache.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/owned.h"
#include "src/platform/quartz_core/CALayer.h"
#include "src/platform/uikit/UIGraphics.h"
#include "src/platform/uikit/UIImageView.h"
#include "src/render/colors.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/log.h"
#include "src/util/preference_bundle.h"

namespace zelka {
namespace {

constexpr CGFloat kCorner = 5;

UIColor colorFor(const MonogramStyle& style, NSInteger contactID) {
    if (style.color) return *style.color;
    return style.font ? getMonogramRandomColor(contactID, true) : getMonogramRandomColor(contactID);
}

// The style with all that it leaves open.
DrawnStyle completed(const MonogramStyle& style, NSInteger contactID) {
    return {style.size, colorFor(style, contactID), style.font ? *style.font : systemMonogramFont()};
}

// White letters in capitals over the disc or square, in a context of the style's size that is already open.
void drawInitials(CGContextRef context, NSString text, const DrawnStyle& style) {
    CGRect bounds = boundsOf(style.size);
    CGContextSaveGState(context);
    CGContextSetFillColorWithColor(context, style.color.cgColor());
    if (isRoundedPicsEnabled()) {
        CGContextFillEllipseInRect(context, bounds);
    } else {
        CGContextFillRect(context, bounds);
    }
    CGContextSetFillColorWithColor(context, UIColor::white().cgColor());
    CGFloat lineHeight = style.font.pointSize() + 4;
    CGRect line = makeRect(0, (bounds.size.height - lineHeight) / 2, bounds.size.width, lineHeight);
    drawText(text.uppercase(), line, style.font, LineBreakMode::truncateTail, TextAlignment::center);
    CGContextRestoreGState(context);
}

// The picture over the colour, as a view of that size shows it, in a picture as large as the source.
UIImage renderOverColor(UIImage source, CGSize size, UIColor color) {
    Owned<UIImageView> view = UIImageView::withFrame(boundsOf(size));
    view->setBackgroundColor(color);
    view->setImage(source);
    CALayer layer = view->layer();
    if (isRoundedPicsEnabled()) {
        layer.setCornerRadius(size.width / 2);
        view->setClipsToBounds(true);
    } else {
        layer.setCornerRadius(kCorner);
    }
    ImageContext image(source.size(), kMainScreenScale);
    layer.renderIn(image.context());
    return image.picture();
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
    UIImage drawn;
    {
        ImageContext image(style.size, kMainScreenScale);
        drawInitials(image.context(), text, style);
        drawn = image.picture();
    }
    return drawn ? imageWithRoundedCornersRadius(drawn, static_cast<float>(kCorner)) : drawn;
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
    return cached(renderOverColor(source, size, color), contactID);
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
