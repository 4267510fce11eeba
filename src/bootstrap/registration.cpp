#include "src/bootstrap/registration.h"

#include "src/cache/image_cache.h"
#include "src/cache/queue.h"
#include "src/cache/shared_address_book.h"
#include "src/contacts/contact_ids.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/contacts/preload.h"
#include "src/contacts/thumbnails.h"
#include "src/exports/categories.h"
#include "src/exports/lookup_variants.h"
#include "src/exports/named_monograms.h"
#include "src/render/colors.h"
#include "src/render/monograms.h"
#include "src/render/shaping.h"
#include "src/settings/settings.h"
#include "src/util/device.h"
#include "src/util/device_hardware.h"
#include "src/util/phone_numbers.h"

namespace {

using MethodTable = std::span<const MethodRow> (*)();

// The class methods of ZelkaCBUtils, one table per subsystem.
constexpr MethodTable kUtilityTables[] = {
    &ZelkaCBUtils::deviceMethods,
    &ZelkaCBUtils::phoneNumberMethods,
    &ZelkaCBUtils::settingsMethods,
    &ZelkaCBUtils::imageCacheMethods,
    &ZelkaCBUtils::sharedAddressBookMethods,
    &ZelkaCBUtils::queueMethods,
    &ZelkaCBUtils::preloadMethods,
    &ZelkaCBUtils::colorMethods,
    &ZelkaCBUtils::shapingMethods,
    &ZelkaCBUtils::monogramMethods,
    &ZelkaCBUtils::initialsMethods,
    &ZelkaCBUtils::thumbnailMethods,
    &ZelkaCBUtils::contactIDMethods,
    &ZelkaCBUtils::lookupMethods,
    &ZelkaCBUtils::lookupVariantMethods,
    &ZelkaCBUtils::namedMonogramMethods,
};

// Methods added to a class of the platform's.
struct Category {
    const char* className;
    bool toTheClass;  // class methods, else instance methods
    MethodTable methods;
};

constexpr Category kCategories[] = {
    {"UIColor", true, &colorCategoryMethods},
    {"UIImage", false, &imageCategoryMethods},
    {"NSObject", false, &hooks::objectMethods},
    {"UITableViewCell", false, &hooks::tableViewCellMethods},
};

void registerUtilityClass() {
    Class utilities = registerClass("ZelkaCBUtils", {}, {}, {});
    for (MethodTable table : kUtilityTables) addMethods(metaclassOf(utilities), table());
}

void extendPlatformClasses() {
    for (const Category& category : kCategories) {
        Class cls = objc_getClass(category.className);
        addMethods(category.toTheClass ? metaclassOf(cls) : cls, category.methods());
    }
}

}  // namespace

void registerClasses() {
    registerUtilityClass();
    registerSettingsClass();
    registerClass("ZLKCBUIDeviceHardware", {}, ZLKCBUIDeviceHardware::hardwareClassMethods(),
                  ZLKCBUIDeviceHardware::hardwareInstanceMethods());
    extendPlatformClasses();
}
