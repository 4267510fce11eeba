#include "src/exports/monogram_methods.h"

#include "src/cache/image_cache.h"
#include "src/contacts/initials.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIColor.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UIImage.h"
#include "src/render/colors.h"
#include "src/render/monograms.h"

namespace zelka {
namespace {

// From a whole name; cached under contact IDs of 1 and above.
UIImage getMonogramImageFromName(NSString name, NSInteger contactID) {
    if (UIImage known = getContactImageInCacheForKey(NSNumber::ofInteger(contactID))) return known;
    return monogramImage(monogramTextFromName(name), contactID);
}

// From a whole name; cached under the e-mail address, without one drawn by every call.
UIImage getMonogramImageFromName(NSString name, NSString email) {
    if (UIImage known = getContactImageInCacheForKey(email)) return known;
    UIImage picture = monogramImage(monogramTextFromName(name), 0);
    storeImage(picture, email);
    return picture;
}

}  // namespace

std::span<const MethodRow> monogramMethods() {
    static constexpr MethodRow kRows[] = {
        classMethod<"getMonogramRandomColor:darkColor:", UIColor(NSInteger, bool), &getMonogramRandomColor>(),
        classMethod<"getMonogramRandomColor:", UIColor(NSInteger), &getMonogramRandomColor>(),
        classMethod<"monogramImage:size:color:font:", UIImage(NSString, CGSize, UIColor, UIFont),
                    [](NSString text, CGSize size, UIColor color, UIFont font) {
                        return monogramImage(text, DrawnStyle{size, color, font});
                    }>(),
        classMethod<"monogramImage:contactID:size:color:font:", UIImage(NSString, NSInteger, CGSize, UIColor, UIFont),
                    [](NSString text, NSInteger contactID, CGSize size, UIColor color, UIFont font) {
                        return monogramImage(text, contactID, {size, color, font});
                    }>(),
        classMethod<"monogramImage:contactID:size:color:", UIImage(NSString, NSInteger, CGSize, UIColor),
                    [](NSString text, NSInteger contactID, CGSize size, UIColor color) {
                        return monogramImage(text, contactID, {.size = size, .color = color});
                    }>(),
        classMethod<"monogramImage:contactID:size:font:", UIImage(NSString, NSInteger, CGSize, UIFont),
                    [](NSString text, NSInteger contactID, CGSize size, UIFont font) {
                        return monogramImage(text, contactID, {.size = size, .font = font});
                    }>(),
        classMethod<"monogramImage:contactID:size:", UIImage(NSString, NSInteger, CGSize),
                    [](NSString text, NSInteger contactID, CGSize size) {
                        return monogramImage(text, contactID, {.size = size});
                    }>(),
        classMethod<"monogramImage:contactID:", UIImage(NSString, NSInteger),
                    [](NSString text, NSInteger contactID) { return monogramImage(text, contactID); }>(),
        classMethod<"monogramImage:size:font:", UIImage(NSString, CGSize, UIFont),
                    [](NSString text, CGSize size, UIFont font) {
                        return monogramImage(text, 0, {.size = size, .font = font});
                    }>(),
        classMethod<"monogramImage:size:", UIImage(NSString, CGSize),
                    [](NSString text, CGSize size) { return monogramImage(text, 0, {.size = size}); }>(),
        classMethod<"monogramImage:", UIImage(NSString), [](NSString text) { return monogramImage(text, 0); }>(),
        classMethod<"getMonogramImageFromName:contactID:", UIImage(NSString, NSInteger), &getMonogramImageFromName>(),
        classMethod<"getMonogramImageFromName:", UIImage(NSString),
                    [](NSString name) { return getMonogramImageFromName(name, 0); }>(),
        classMethod<"getMonogramImageFromName:email:", UIImage(NSString, NSString), &getMonogramImageFromName>(),
        classMethod<"getMonogramImage:source:size:color:", UIImage(NSInteger, UIImage, CGSize, UIColor),
                    &getMonogramImage>(),
        classMethod<"getMonogramImage:color:", UIImage(NSInteger, UIColor), &getMonogramImage>(),
        classMethod<"getMonogramImage:", UIImage(NSInteger), &getMonogramImage>(),
        classMethod<"getMonogramImage", UIImage(), [] { return getMonogramImage(); }>(),
        classMethod<"defaultImage", UIImage(), &defaultImage>(),
    };
    return kRows;
}

}  // namespace zelka
