#include "src/render/monograms.h"

#include <array>

#include "src/cache/image_cache.h"
#include "src/render/colors.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/log.h"
#include "src/util/preference_bundle.h"

namespace {

constexpr CGSize kDefaultSize{40, 40};
constexpr CGFloat kDefaultFontSize = 17;
constexpr CGFloat kCorner = 5;

// White letters in capitals over the disc or square, in a context of this size that is already open.
void drawInitials(CGContextRef context, NSString text, CGSize size, UIColor color, UIFont font) {
    CGRect bounds{{0, 0}, size};
    CGContextSaveGState(context);
    CGContextSetFillColorWithColor(context, color.cgColor());
    if (ZelkaCBUtils::isRoundedPicsEnabled()) {
        CGContextFillEllipseInRect(context, bounds);
    } else {
        CGContextFillRect(context, bounds);
    }
    CGContextSetFillColorWithColor(context, UIColor::white().cgColor());
    CGFloat lineHeight = font.pointSize() + 4;
    drawText(text.uppercase(), makeRect(0, (size.height - lineHeight) / 2, size.width, lineHeight), font,
             LineBreakMode::truncateTail, TextAlignment::center);
    CGContextRestoreGState(context);
}

// The picture over the colour, as a view of that size shows it, in a picture as large as the source.
UIImage renderOverColor(UIImage source, CGSize size, UIColor color) {
    Owned<UIImageView> view = UIImageView::withFrame({{0, 0}, size});
    view->setBackgroundColor(color);
    view->setImage(source);
    CALayer layer = view->layer();
    if (ZelkaCBUtils::isRoundedPicsEnabled()) {
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
    if (contactID >= 1) ZelkaCBUtils::storeImage(picture, NSNumber::ofInteger(contactID));
    return picture;
}

UIImage cachedPictureOf(NSInteger contactID) {
    return ZelkaCBUtils::getContactImageInCacheForKey(NSNumber::ofInteger(contactID));
}

}  // namespace

namespace ZelkaCBUtils {

UIImage monogramImage(NSString text, CGSize size, UIColor color, UIFont font) {
    if (text.length() == 0) return getMonogramImage(0);
    if (!isMonogramEnabled()) return defaultImage();
    UIImage drawn;
    {
        ImageContext image(size, kMainScreenScale);
        drawInitials(image.context(), text, size, color, font);
        drawn = image.picture();
    }
    return drawn ? imageWithRoundedCornersRadius(drawn, static_cast<float>(kCorner)) : drawn;
}

UIImage monogramImage(NSString text, NSInteger contactID, CGSize size, UIColor color, UIFont font) {
    if (UIImage known = cachedPictureOf(contactID)) return known;
    return cached(monogramImage(text, size, color, font), contactID);
}

UIImage monogramImage(NSString text, NSInteger contactID, CGSize size, UIColor color) {
    return monogramImage(text, contactID, size, color, UIFont::system(kDefaultFontSize));
}

UIImage monogramImage(NSString text, NSInteger contactID, CGSize size, UIFont font) {
    return monogramImage(text, contactID, size, getMonogramRandomColor(contactID, true), font);
}

UIImage monogramImage(NSString text, NSInteger contactID, CGSize size) {
    return monogramImage(text, contactID, size, getMonogramRandomColor(contactID));
}

UIImage monogramImage(NSString text, NSInteger contactID) { return monogramImage(text, contactID, kDefaultSize); }

UIImage monogramImage(NSString text, CGSize size, UIFont font) { return monogramImage(text, 0, size, font); }

UIImage monogramImage(NSString text, CGSize size) { return monogramImage(text, 0, size); }

UIImage monogramImage(NSString text) { return monogramImage(text, 0); }

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

UIImage getMonogramImage() { return getMonogramImage(0); }

UIImage recentPicture() { return getImage(bundlePicturePath(literal<"recent">())); }

UIImage defaultImage() {
    if (isMonogramEnabled()) return getMonogramImage();
    return recentPicture();
}

}  // namespace ZelkaCBUtils

std::span<const MethodRow> ZelkaCBUtils::monogramMethods() {
    static constexpr std::array rows{
        classMethod<"monogramImage:size:color:font:", UIImage(NSString, CGSize, UIColor, UIFont), &monogramImage>(),
        classMethod<"monogramImage:contactID:size:color:font:", UIImage(NSString, NSInteger, CGSize, UIColor, UIFont),
                    &monogramImage>(),
        classMethod<"monogramImage:contactID:size:color:", UIImage(NSString, NSInteger, CGSize, UIColor),
                    &monogramImage>(),
        classMethod<"monogramImage:contactID:size:font:", UIImage(NSString, NSInteger, CGSize, UIFont),
                    &monogramImage>(),
        classMethod<"monogramImage:contactID:size:", UIImage(NSString, NSInteger, CGSize), &monogramImage>(),
        classMethod<"monogramImage:contactID:", UIImage(NSString, NSInteger), &monogramImage>(),
        classMethod<"monogramImage:size:font:", UIImage(NSString, CGSize, UIFont), &monogramImage>(),
        classMethod<"monogramImage:size:", UIImage(NSString, CGSize), &monogramImage>(),
        classMethod<"monogramImage:", UIImage(NSString), &monogramImage>(),
        classMethod<"getMonogramImage:source:size:color:", UIImage(NSInteger, UIImage, CGSize, UIColor),
                    &getMonogramImage>(),
        classMethod<"getMonogramImage:color:", UIImage(NSInteger, UIColor), &getMonogramImage>(),
        classMethod<"getMonogramImage:", UIImage(NSInteger), &getMonogramImage>(),
        classMethod<"getMonogramImage", UIImage(), &getMonogramImage>(),
        classMethod<"defaultImage", UIImage(), &defaultImage>()};
    return rows;
}
