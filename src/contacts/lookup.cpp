#include "src/contacts/lookup.h"

#include "src/contacts/thumbnails.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"

namespace zelka {

UIImage getImageFromImageData(NSData data, ABRecordID contactID) {
    UIImage picture = getImageFromImageData(data);
    storeImage(picture, cacheKey(contactID));
    return picture;
}

UIImage lastResortPicture(LastResort lastResort, ABRecordID contactID) {
    if (lastResort == LastResort::nothing) return {};
    UIImage picture = recentPicture();
    if (lastResort == LastResort::keptPicture) storeImage(picture, cacheKey(contactID));
    return picture;
}

UIImage getContactImageOnly(ABRecordID contactID, NSString monogramText, bool newImage, const MonogramStyle& style) {
    LookupPolicy policy{[&] { return photoOfContact(contactID); },
                        [&] { return isMonogramEnabled() ? monogramImage(monogramText, contactID, style) : UIImage{}; },
                        LastResort::keptPicture, newImage};
    return findOrMakePicture(contactID, policy);
}

}  // namespace zelka
