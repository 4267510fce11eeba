#include "src/hooks/monogrammer.h"

#include "src/cache/image_cache.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/hooks/picture_view.h"
#include "src/render/monograms.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/process.h"

namespace hooks {
namespace {

// In points.
constexpr CGSize kFavoriteSize{60.0, 60.0};

// Whether the library answers in the system's place: for CallBar's own generator, in the system shell, with pictures on
// favourites wanted. Every other generator keeps the system's pictures.
bool answersFor(ABMonogrammer monogrammer) {
    if (!isSpringBoard()) return false;
    if (!monogrammer || monogrammer != capturedMonogrammer()) return false;
    ZLKCBSettings settings = ZLKCBSettings::sharedSettings();
    return settings.isZelkaCBEnabled() && settings.isShowPicturesOnFavorites();
}

UIImage copied(UIImage picture) { return Owned<UIImage>::retain(picture).leak(); }

NSString monogramTextOf(std::int32_t contactID) {
    if (!monogramsWanted()) return {};
    return ZelkaCBUtils::monogramTextFromAB(contactID);
}

UIImage pictureOf(std::int32_t contactID) {
    if (UIImage cached = ZelkaCBUtils::getContactImageInCache(contactID)) return cached;
    return ZelkaCBUtils::getContactImageOnly(contactID, monogramTextOf(contactID), true, kFavoriteSize,
                                             capturedMonogrammer().font());
}

}  // namespace

UIImage copyMonogramWithInitials(ABMonogrammer self, SEL command, NSString initials) {
    if (!answersFor(self)) return CopyMonogramWithInitials::host(self, command, initials);
    return copied(ZelkaCBUtils::monogramImage(initials, kFavoriteSize, capturedMonogrammer().font()));
}

UIImage copyMonogramWithImageData(ABMonogrammer self, SEL command, NSData data) {
    if (!answersFor(self)) return CopyMonogramWithImageData::host(self, command, data);
    return copied(data.length() > 0 ? ZelkaCBUtils::getImageFromImageData(data) : ZelkaCBUtils::defaultImage());
}

UIImage monogramForPerson(ABMonogrammer self, SEL command, ABRecordRef person, BOOL* isPersonImage) {
    if (!answersFor(self)) return MonogramForPerson::host(self, command, person, isPersonImage);
    if (person == nullptr) return copied(ZelkaCBUtils::defaultImage());
    ZLKCBSettings settings = ZLKCBSettings::sharedSettings();
    if (settings.isZelkaCBEnabled() && settings.isRoundedPicsEnabled()) {
        return MonogramForPerson::host(self, command, person, isPersonImage);
    }
    ABRecordID contactID = ABRecordGetRecordID(person);
    if (contactID < 1) return MonogramForPerson::host(self, command, person, isPersonImage);
    return copied(pictureOf(contactID));
}

}  // namespace hooks
