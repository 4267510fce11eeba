#include "src/exports/lookup_variants.h"

#include <array>

#include "src/cache/image_cache.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/contacts/thumbnails.h"
#include "src/platform/log.h"
#include "src/render/monograms.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/device.h"
#include "src/util/log.h"

namespace {

// The person's own thumbnail, else the first one in the order of the people linked to it.
NSData photoOfPerson(ContactsUIPerson person) {
    if (NSData photo = ZelkaCBUtils::getContactImageABUIPerson(person)) return photo;
    NSArray linked = person.linkedPeople();
    for (NSUInteger i = 0; i < linked.count(); ++i)
        if (NSData photo = ZelkaCBUtils::getContactImageABUIPerson(linked.at<ContactsUIPerson>(i))) return photo;
    return {};
}

bool isLinkedToSomebodyWithImage(ABRecordRef person, ABRecordID contactID) {
    auto linked = Owned<NSArray>::adopt(NSArray{{ABPersonCopyArrayOfAllLinkedPeople(person)}});
    NSUInteger count = linked->count();
    for (NSUInteger i = 0; count >= 2 && i < count; ++i) {
        ABRecordRef other = linked->at(i).object;
        if (ABRecordGetRecordID(other) != contactID && ABPersonHasImageData(other) != 0) return true;
    }
    return false;
}

// The picture bytes that the address book hands out for the person (+0), or nil.
NSData imageDataOf(ABRecordRef person, ABRecordID contactID) {
    bool hasImage = ABPersonHasImageData(person) != 0;
    id data = nullptr;
    if (!ZelkaCBUtils::isIOS_7()) {
        if (hasImage) data = ABPersonCopyImageData(person);
    } else if (hasImage || isLinkedToSomebodyWithImage(person, contactID)) {
        // Of the person itself in either case: a linked person's image only makes it be asked once more.
        data = ABPersonCopyImageDataWithFormat(person, kImageFormatThumbnail);
    }
    return Owned<NSData>::adopt(NSData{{data}}).autorelease();
}

}  // namespace

namespace ZelkaCBUtils {

NSData getContactImageABUIPerson(ContactsUIPerson person) { return getContactImageFromABForID(person.recordID(), 0); }

UIImage getContactImageOnlyIOS7(ContactsUIPerson person) {
    ABRecordID contactID = person.recordID();
    if (UIImage known = getContactImageInCache(contactID)) return known;
    if (NSData photo = photoOfPerson(person)) return getImageFromImageData(photo, contactID);
    UIImage picture;
    if (isMonogramEnabled()) picture = monogramImage(getMonogramTextFromAB(contactID), contactID);
    if (!picture) picture = recentPicture();
    storeImage(picture, cacheKey(contactID));
    return picture;
}

UIImage getContactImageFromAB(ABRecordID contactID, NSString) {
    if (UIImage known = getContactImageInCache(contactID)) return known;
    NSData photo = getContactImageFromABForID(contactID, 0);
    if (!photo && isIOS_7()) {
        logInformation(LogSite("+[ZelkaCBUtils getContactImageFromAB:monogramText:]"),
                       "Getting contact image from AB.. ", contactID);
        photo = getContactImageDataFromAB(contactID);
    }
    return getImageFromImageData(photo, contactID);
}

UIImage getContactImageFromAB(ABRecordID contactID, bool addressBook, NSString monogramText) {
    if (UIImage known = getContactImageInCache(contactID)) return known;
    if (!addressBook) return getContactImageFromAB(contactID, monogramText);
    auto book = Owned<ABAddressBookRef>::adopt(ABAddressBookCreate());
    NSData data;
    if (ABRecordRef person = ABAddressBookGetPersonWithRecordID(book.get(), contactID))
        data = imageDataOf(person, contactID);
    if (data.length() > 0) return getImageFromImageData(data, contactID);
    return monogramImage(monogramText, contactID);
}

UIImage getChatKitContactImageOnly(ABRecordID contactID, NSString monogramText, std::int32_t date) {
    if (UIImage known = getContactImageInCache(contactID)) {
        logParts("Got image for contact with id: ", contactID, ", monogramText => ", monogramText, ", date => ", date,
                 " in the cache.");
        return known;
    }
    if (NSData photo = photoOfContact(contactID)) return getImageFromImageData(photo, contactID);
    if (!isMonogramEnabled()) return {};
    UIImage picture = monogramImage(monogramText, contactID);
    NSNumber dateKey = NSNumber::of(date);
    if (getContactImageInCacheForKey(dateKey)) storeImage(picture, dateKey);
    return picture;
}

std::span<const MethodRow> lookupVariantMethods() {
    static constexpr std::array rows{
        classMethod<"getContactImageABUIPerson:", NSData(ContactsUIPerson), &getContactImageABUIPerson>(),
        classMethod<"getContactImageOnlyIOS7:", UIImage(ContactsUIPerson), &getContactImageOnlyIOS7>(),
        classMethod<"getContactImageFromAB:monogramText:", UIImage(ABRecordID, NSString), &getContactImageFromAB>(),
        classMethod<"getContactImageFromAB:addressBook:monogramText:", UIImage(ABRecordID, bool, NSString),
                    &getContactImageFromAB>(),
        classMethod<"getChatKitContactImageOnly:monogramText:date:", UIImage(ABRecordID, NSString, std::int32_t),
                    &getChatKitContactImageOnly>()};
    return rows;
}

}  // namespace ZelkaCBUtils
