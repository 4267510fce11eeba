#include "src/exports/named_monograms.h"

#include <array>

#include "src/cache/image_cache.h"
#include "src/contacts/initials.h"
#include "src/render/monograms.h"

namespace ZelkaCBUtils {

UIImage getMonogramImageFromName(NSString name, NSInteger contactID) {
    if (UIImage known = getContactImageInCacheForKey(NSNumber::ofInteger(contactID))) return known;
    return monogramImage(monogramTextFromName(name), contactID);
}

UIImage getMonogramImageFromName(NSString name) { return getMonogramImageFromName(name, 0); }

UIImage getMonogramImageFromName(NSString name, NSString email) {
    if (UIImage known = getContactImageInCacheForKey(email)) return known;
    UIImage picture = monogramImage(monogramTextFromName(name), 0);
    storeImage(picture, email);
    return picture;
}

}  // namespace ZelkaCBUtils

std::span<const MethodRow> ZelkaCBUtils::namedMonogramMethods() {
    static constexpr std::array rows{
        classMethod<"getMonogramImageFromName:contactID:", UIImage(NSString, NSInteger), &getMonogramImageFromName>(),
        classMethod<"getMonogramImageFromName:", UIImage(NSString), &getMonogramImageFromName>(),
        classMethod<"getMonogramImageFromName:email:", UIImage(NSString, NSString), &getMonogramImageFromName>()};
    return rows;
}
