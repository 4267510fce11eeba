#include "src/exports/lookup_methods.h"

#include "src/cache/shared_address_book.h"
#include "src/contacts/contact_ids.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/contacts/thumbnails.h"
#include "src/hooks/host_classes.h"
#include "src/platform/foundation/NSArray.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/log.h"
#include "src/platform/owned.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UIImage.h"
#include "src/settings/settings.h"
#include "src/util/device.h"
#include "src/util/log.h"

namespace zelka {
namespace {

// The person, owned by the shared address book (+0); nothing when there is none, or no shared address book any more.
ABRecordRef getPersonRecordFromDB(ABRecordID contactID) {
    return ABAddressBookGetPersonWithRecordID(getAddressBook(), contactID);
}

UIImage monogramFromAddressBook(ABRecordID contactID) {
    return isMonogramEnabled() ? monogramImage(monogramTextFromAB(contactID), contactID) : UIImage{};
}

// The lookup with the monogram's text from the address-book database. Without a monogram nothing is stored.
UIImage getContactImage(ABRecordID contactID) {
    LookupPolicy policy{[=] { return photoOfContact(contactID); }, [=] { return monogramFromAddressBook(contactID); },
                        LastResort::recentPicture};
    return findOrMakePicture(contactID, policy);
}

// The same for the contact of a phone number or an e-mail address; nil when there is none.
UIImage getContactImageByNumber(NSString text) {
    ABRecordID contactID = getContactID(text);
    logInformation(LogSite("+[ZelkaCBUtils getContactImageByNumber:]"), "Found contact ID ", contactID, " for ", text);
    return contactID >= 1 ? getContactImage(contactID) : UIImage{};
}

// The person's thumbnail bytes, or nil.
NSData getContactImageABUIPerson(ContactsUIPerson person) { return getContactImageFromABForID(person.recordID(), 0); }

// The person's own thumbnail, else the first one in the order of the people linked to it.
NSData photoOfPerson(ContactsUIPerson person) {
    if (NSData photo = getContactImageABUIPerson(person)) return photo;
    NSArray linked = person.linkedPeople();
    for (NSUInteger i = 0; i < linked.count(); ++i)
        if (NSData photo = getContactImageABUIPerson(linked.at<ContactsUIPerson>(i))) return photo;
    return {};
}

// Stores a monogram under the person's ID even where that is 0 or below.
UIImage getContactImageOnlyIOS7(ContactsUIPerson person) {
    ABRecordID contactID = person.recordID();
    auto monogram = [=] {
        UIImage picture = monogramFromAddressBook(contactID);
        storeImage(picture, cacheKey(contactID));
        return picture;
    };
    LookupPolicy policy{[=] { return photoOfPerson(person); }, monogram, LastResort::keptPicture};
    return findOrMakePicture(contactID, policy);
}

NSData loggedPhotoOfContact(ABRecordID contactID) {
    NSData photo = getContactImageFromABForID(contactID, 0);
    if (photo || !isIOS_7()) return photo;
    logInformation(LogSite("+[ZelkaCBUtils getContactImageFromAB:monogramText:]"), "Getting contact image from AB.. ",
                   contactID);
    return getContactImageDataFromAB(contactID);
}

// The cached picture, the contact's or a linked contact's photo, or nil.
UIImage getContactImageFromAB(ABRecordID contactID) {
    LookupPolicy policy{[=] { return loggedPhotoOfContact(contactID); }, [] { return UIImage{}; }};
    return findOrMakePicture(contactID, policy);
}

bool isLinkedToSomebodyWithImage(ABRecordRef person, ABRecordID contactID) {
    auto linked = adopt(NSArray{{ABPersonCopyArrayOfAllLinkedPeople(person)}});
    NSUInteger count = linked->count();
    for (NSUInteger i = 0; count >= 2 && i < count; ++i) {
        ABRecordRef other = linked->at(i).object;
        if (ABRecordGetRecordID(other) != contactID && ABPersonHasImageData(other) != 0) return true;
    }
    return false;
}

// The bytes of the picture that the address book has for the person (+0); nil when it has none.
NSData imageDataOf(ABRecordRef person, ABRecordID contactID) {
    bool hasImage = ABPersonHasImageData(person) != 0;
    id data = nullptr;
    if (!isIOS_7()) {
        if (hasImage) data = ABPersonCopyImageData(person);
    } else if (hasImage || isLinkedToSomebodyWithImage(person, contactID)) {
        // Of the person itself in either case: a linked person's image only leads to one more look at the person's.
        data = ABPersonCopyImageDataWithFormat(person, kImageFormatThumbnail);
    }
    NSData bytes = adopt(NSData{{data}}).autorelease();
    return bytes.length() > 0 ? bytes : NSData{};
}

NSData imageDataFromNewAddressBook(ABRecordID contactID) {
    auto book = adopt(ABAddressBookCreate());
    ABRecordRef person = ABAddressBookGetPersonWithRecordID(book.get(), contactID);
    return person != nullptr ? imageDataOf(person, contactID) : NSData{};
}

// The same or, when asked for, through the address book's own interface, with a monogram for a contact without a photo.
UIImage getContactImageFromAB(ABRecordID contactID, bool addressBook, NSString monogramText) {
    if (!addressBook) return getContactImageFromAB(contactID);
    LookupPolicy policy{[=] { return imageDataFromNewAddressBook(contactID); },
                        [=] { return monogramImage(monogramText, contactID); }};
    return findOrMakePicture(contactID, policy);
}

// For message lists: a monogram is also stored under the date when the cache holds something there.
UIImage getChatKitContactImageOnly(ABRecordID contactID, NSString monogramText, std::int32_t date) {
    if (getContactImageInCache(contactID)) {
        logParts("Got image for contact with id: ", contactID, ", monogramText => ", monogramText, ", date => ", date,
                 " in the cache.");
    }
    auto monogram = [=] {
        if (!isMonogramEnabled()) return UIImage{};
        UIImage picture = monogramImage(monogramText, contactID);
        NSNumber dateKey = NSNumber::of(date);
        if (getContactImageInCacheForKey(dateKey)) storeImage(picture, dateKey);
        return picture;
    };
    LookupPolicy policy{[=] { return photoOfContact(contactID); }, monogram};
    return findOrMakePicture(contactID, policy);
}

}  // namespace

std::span<const MethodRow> lookupMethods() {
    static constexpr MethodRow kRows[] = {
        classMethod<"getAddressBook", ABAddressBookRef(), &getAddressBook>(),
        classMethod<"getPersonRecordFromDB:", ABRecordRef(ABRecordID), &getPersonRecordFromDB>(),
        classMethod<"getContactID:", ABRecordID(NSString), &getContactID>(),
        classMethod<"getContactImageDataFromAB:", NSData(ABRecordID), &getContactImageDataFromAB>(),
        classMethod<"getImageFromImageData:contactId:", UIImage(NSData, ABRecordID), &getImageFromImageData>(),
        classMethod<"getContactImageOnly:monogramText:newImage:size:font:",
                    UIImage(ABRecordID, NSString, bool, CGSize, UIFont),
                    [](ABRecordID contactID, NSString text, bool newImage, CGSize size, UIFont font) {
                        return getContactImageOnly(contactID, text, newImage, {.size = size, .font = font});
                    }>(),
        classMethod<"getContactImageOnly:monogramText:newImage:size:", UIImage(ABRecordID, NSString, bool, CGSize),
                    [](ABRecordID contactID, NSString text, bool newImage, CGSize size) {
                        return getContactImageOnly(contactID, text, newImage, {size, {}, systemMonogramFont()});
                    }>(),
        classMethod<"getContactImageOnly:monogramText:newImage:", UIImage(ABRecordID, NSString, bool),
                    [](ABRecordID contactID, NSString text, bool newImage) {
                        return getContactImageOnly(contactID, text, newImage, {.font = systemMonogramFont()});
                    }>(),
        classMethod<"getContactImage:", UIImage(ABRecordID), &getContactImage>(),
        classMethod<"getContactImageByNumber:", UIImage(NSString), &getContactImageByNumber>(),
        classMethod<"getContactImageABUIPerson:", NSData(ContactsUIPerson), &getContactImageABUIPerson>(),
        classMethod<"getContactImageOnlyIOS7:", UIImage(ContactsUIPerson), &getContactImageOnlyIOS7>(),
        // The text is not used.
        classMethod<"getContactImageFromAB:monogramText:", UIImage(ABRecordID, NSString),
                    [](ABRecordID contactID, NSString) { return getContactImageFromAB(contactID); }>(),
        classMethod<"getContactImageFromAB:addressBook:monogramText:", UIImage(ABRecordID, bool, NSString),
                    &getContactImageFromAB>(),
        classMethod<"getChatKitContactImageOnly:monogramText:date:", UIImage(ABRecordID, NSString, std::int32_t),
                    &getChatKitContactImageOnly>(),
    };
    return kRows;
}

}  // namespace zelka
