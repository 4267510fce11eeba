#include "src/contacts/lookup.h"

#include <array>

#include "src/cache/image_cache.h"
#include "src/contacts/contact_ids.h"
#include "src/contacts/initials.h"
#include "src/contacts/thumbnails.h"
#include "src/render/monograms.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/log.h"

namespace {

constexpr CGSize kDefaultSize{40, 40};
constexpr CGFloat kDefaultFontSize = 17;

}  // namespace

namespace ZelkaCBUtils {

UIImage getImageFromImageData(NSData data, ABRecordID contactID) {
    UIImage picture = getImageFromImageData(data);
    storeImage(picture, cacheKey(contactID));
    return picture;
}

UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage, CGSize size, UIFont font) {
    UIImage known = getContactImageInCache(contactID);
    if (known && !newImage) return known;
    if (NSData photo = photoOfContact(contactID)) return getImageFromImageData(photo, contactID);
    UIImage picture = isMonogramEnabled() ? monogramImage(monogramText, contactID, size, font) : known;
    if (picture) return picture;
    picture = recentPicture();
    // Under the contact's own ID, so that nobody looks for its picture again.
    storeImage(picture, cacheKey(contactID));
    return picture;
}

UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage, CGSize size) {
    return getContactImageOnly(contactID, monogramText, newImage, size, UIFont::system(kDefaultFontSize));
}

UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage) {
    return getContactImageOnly(contactID, monogramText, newImage, kDefaultSize);
}

UIImage getContactImage(ABRecordID contactID) {
    if (UIImage known = getContactImageInCache(contactID)) return known;
    if (NSData photo = photoOfContact(contactID)) return getImageFromImageData(photo, contactID);
    UIImage picture;
    if (isMonogramEnabled()) picture = monogramImage(getMonogramTextFromAB(contactID), contactID);
    return picture ? picture : recentPicture();
}

UIImage getContactImageByNumber(NSString text) {
    ABRecordID contactID = getContactID(text);
    logInformation(LogSite("+[ZelkaCBUtils getContactImageByNumber:]"), "Found contact ID ", contactID, " for ", text);
    return contactID >= 1 ? getContactImage(contactID) : UIImage{};
}

std::span<const MethodRow> lookupMethods() {
    static constexpr std::array rows{
        classMethod<"getImageFromImageData:contactId:", UIImage(NSData, ABRecordID), &getImageFromImageData>(),
        classMethod<"getContactImageOnly:monogramText:newImage:size:font:",
                    UIImage(ABRecordID, NSString, bool, CGSize, UIFont), &getContactImageOnly>(),
        classMethod<"getContactImageOnly:monogramText:newImage:size:", UIImage(ABRecordID, NSString, bool, CGSize),
                    &getContactImageOnly>(),
        classMethod<"getContactImageOnly:monogramText:newImage:", UIImage(ABRecordID, NSString, bool),
                    &getContactImageOnly>(),
        classMethod<"getContactImage:", UIImage(ABRecordID), &getContactImage>(),
        classMethod<"getContactImageByNumber:", UIImage(NSString), &getContactImageByNumber>()};
    return rows;
}

}  // namespace ZelkaCBUtils
