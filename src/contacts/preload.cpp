#include "src/contacts/preload.h"

#include "src/cache/image_cache.h"
#include "src/contacts/database.h"
#include "src/contacts/thumbnails.h"
#include "src/platform/dispatch.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/owned.h"
#include "src/platform/uikit/UIImage.h"
#include "src/render/monograms.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/device_hardware.h"
#include "src/util/log.h"

namespace zelka {
namespace {

// The pictures' side in pixels, whatever the screen's scale.
constexpr std::size_t kSide = 80;

constinit std::intptr_t deviceNameOnce = 0;
constinit NSString deviceName;

void logFailure(const Database& database) {
    logErrorPlain("Error while opening database connection: '", database.message(), "'");
}

// What a contact gets whose bytes could not be taken out of the row: nothing when somebody linked to it has a photo.
UIImage substituteFor(ABRecordID contactID) {
    if (getContactImageDataFromAB(contactID)) return {};
    UIImage picture;
    if (isMonogramEnabled()) picture = monogramImage(NSString{}, contactID);
    return picture ? picture : recentPicture();
}

void storePictureOf(const Statement& row) {
    ABRecordID contactID = row.integer(0);
    auto bytes = row.bytes(1);
    NSData data = NSData::copyOf(bytes.data(), bytes.size());
    UIImage picture = data ? shapeThumbnail(UIImage::fromData(data), kSide, kSide) : substituteFor(contactID);
    storeImage(picture, cacheKey(contactID));
}

}  // namespace

void prepareImageCache() {
    removeAllImages();
    Database database(kAddressBookImageDatabase);
    if (!database.isOpen()) return logFailure(database);
    Statement rows(database, "SELECT record_id, data FROM ABThumbnailImage WHERE FORMAT=0 AND DATA IS NOT NULL");
    if (!rows.isPrepared()) return logFailure(database);
    while (rows.step() == SQLITE_ROW) {
        // A pool a row: decoded photos would pile up until the caller's pool goes.
        AutoreleasePool pool;
        storePictureOf(rows);
    }
}

bool canprepareImageCache() {
    // A process does not change its device.
    dispatchOnce(deviceNameOnce, [] { deviceName = keepForever(retain(ZLKCBUIDeviceHardware::platformString())); });
    NSString family = literal<"iPhone">();
    if (!deviceName.hasPrefix(family)) return false;
    NSUInteger start = family.length();
    return deviceName.substringWithRange({start, deviceName.length() - start}).integerValue() > 3;
}

}  // namespace zelka
