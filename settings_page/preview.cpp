#include "settings_page/preview.h"

#include "settings_page/preferences.h"
#include "src/platform/uikit/UIGraphics.h"
#include "src/render/drawing.h"
#include "src/util/name_initials.h"
#include "src/util/preference_bundle.h"

namespace zelka {
namespace {

// As large as the lists' picture views, in points.
constexpr CGSize kPictureSize{40, 40};
// The side of the library's finished pictures, in pixels.
constexpr std::size_t kThumbnailPixels = 80;

// The bundle's picture as the library cuts a contact's, in the size in which the lists show it.
UIImage cutOutPicture(NSString name, Shape shape) {
    UIImage picture = cutOut(UIImage::fromFile(bundlePicturePath(name)), kThumbnailPixels, kThumbnailPixels, shape);
    ImageContext image(kPictureSize, kMainScreenScale);
    picture.drawInRect(boundsOf(kPictureSize));
    return image.picture();
}

// The blue of the library's palette: a colour that changed at each flip would look like an effect of the switch.
UIColor sampleColor() { return UIColor::withComponents(0x47 / 255.0, 0x85 / 255.0, 0xf2 / 255.0, 1); }

void refresh(PSTableCell cell, PSSpecifier specifier) {
    sendSuper<void, "refreshCellContentsWithSpecifier:", PSTableCell>(cell, specifier);
    const bool hasPhoto = specifier.property(literal<"shows">()).isEqual(literal<"photo">());
    cell.imageView().setImage(samplePicture(specifier.name(), hasPhoto, StoredSettings::load()));
}

constexpr MethodRow kMethods[] = {
    receiverMethod<"refreshCellContentsWithSpecifier:", &refresh>(),
};

}  // namespace

UIImage samplePicture(NSString name, bool hasPhoto, const StoredSettings& settings) {
    if (!settings.value(Setting::enabled)) return {};
    const Shape shape = settings.value(Setting::roundedPictures) ? Shape::round : Shape::square;
    if (hasPhoto) return cutOutPicture(literal<"sample">(), shape);
    if (!settings.value(Setting::monograms)) return cutOutPicture(literal<"recent">(), shape);
    return drawInitials(monogramTextFromName(name), {kPictureSize, sampleColor(), UIFont::system(17)}, shape);
}

void registerPreviewCell() { registerClass("ZelkaCBPreviewCell", optionalClass<PSTableCell>(), {}, {}, kMethods); }

}  // namespace zelka
