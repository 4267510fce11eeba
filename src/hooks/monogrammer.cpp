#include "src/hooks/monogrammer.h"

#include "src/cache/image_cache.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/hooks/picture_view.h"
#include "src/platform/owned.h"
#include "src/render/monograms.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/process.h"

namespace zelka {
namespace {

// In points.
constexpr CGSize kFavoriteSize{60.0, 60.0};

// Whether the library makes the generator's pictures: those of CallBar's own generator, in the system shell, with
// pictures on favourites wanted. Every other generator keeps the system's pictures.
bool drawsFor(ABMonogrammer monogrammer) {
    if (!isSpringBoard()) return false;
    if (!monogrammer || monogrammer != capturedMonogrammer()) return false;
    return picturesWantedOn(List::favorites);
}

MonogramStyle favoriteStyle() { return {.size = kFavoriteSize, .font = capturedMonogrammer().font()}; }

UIImage copied(UIImage picture) { return retain(picture).leak(); }

NSString monogramTextOf(std::int32_t contactID) {
    if (!monogramsWanted()) return {};
    return monogramTextFromAB(contactID);
}

UIImage pictureOf(std::int32_t contactID) {
    if (UIImage cached = getContactImageInCache(contactID)) return cached;
    return getContactImageOnly(contactID, monogramTextOf(contactID), true, favoriteStyle());
}

}  // namespace

UIImage copyMonogramWithInitials(ABMonogrammer self, SEL command, NSString initials) {
    if (!drawsFor(self)) return CopyMonogramWithInitials::host(self, command, initials);
    return copied(monogramImage(initials, 0, favoriteStyle()));
}

UIImage copyMonogramWithImageData(ABMonogrammer self, SEL command, NSData data) {
    if (!drawsFor(self)) return CopyMonogramWithImageData::host(self, command, data);
    return copied(data.length() > 0 ? getImageFromImageData(data) : defaultImage());
}

UIImage monogramForPerson(ABMonogrammer self, SEL command, ABRecordRef person, BOOL* isPersonImage) {
    if (!drawsFor(self)) return MonogramForPerson::host(self, command, person, isPersonImage);
    if (person == nullptr) return copied(defaultImage());
    if (isWanted(Setting::roundedPictures)) {
        return MonogramForPerson::host(self, command, person, isPersonImage);
    }
    ABRecordID contactID = ABRecordGetRecordID(person);
    if (contactID < 1) return MonogramForPerson::host(self, command, person, isPersonImage);
    return copied(pictureOf(contactID));
}

}  // namespace zelka
