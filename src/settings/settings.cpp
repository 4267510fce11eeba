#include "src/settings/settings.h"

#include <cstdio>

#include "src/platform/dispatch.h"
#include "src/settings/setting_rows.h"
#include "src/util/device.h"
#include "src/util/log.h"
#include "src/util/utility_class.h"

namespace {

constinit std::intptr_t settingsOnce = 0;
constinit ZLKCBSettings theSettings;

// The instance variables hold the settings in the order of their rows, one byte after the other.
constexpr IvarRow kVariables[] = {
    ivar<bool>("_isZelkaCBEnabled"),        ivar<bool>("_isRoundedPicsEnabled"),
    ivar<bool>("_isMonogramEnabled"),       ivar<bool>("_isShowPicturesOnFavorites"),
    ivar<bool>("_isShowPicturesOnRecents"), ivar<bool>("_isShowPicturesOnContacts"),
};
static_assert(std::size(kVariables) == kSettingRows.size() && sizeof(BOOL) == 1);

std::atomic_ref<BOOL> variable(ZLKCBSettings settings, std::size_t index) {
    static constinit std::atomic<std::ptrdiff_t> firstOffset{0};
    std::ptrdiff_t offset = firstOffset.load(std::memory_order_relaxed);
    if (offset == 0) [[unlikely]] {
        offset = ivar_getOffset(class_getInstanceVariable(platformClass<"ZLKCBSettings">(), kVariables[0].name));
        firstOffset.store(offset, std::memory_order_relaxed);
    }
    auto* first = reinterpret_cast<BOOL*>(settings.object) + offset;
    return std::atomic_ref(first[index]);
}

template <std::size_t index>
bool getter(ZLKCBSettings settings) {
    return settings.value(index);
}

template <std::size_t index>
void setter(ZLKCBSettings settings, bool value) {
    settings.setValue(index, value);
}

// The file as the processes see it from the root of the file system, where their working directory is.
NSString settingsPath() {
    return literal<"User">()
        .appendingPathComponent(NSString::fromUTF8(kPreferencesFolder))
        .appendingPathComponent(NSString::fromUTF8(kSettingsFile));
}

bool truthOf(NSObject value) { return respondsTo(value, selector<"boolValue">()) && send<bool, "boolValue">(value); }

void makeSharedSettings(void* cls) {
    logInformation(LogSite("__31+[ZLKCBSettings sharedSettings]_block_invoke", 102),
                   "Initiallizing settings for first time..");
    auto allocated = send<ZLKCBSettings, "alloc">(static_cast<Class>(cls));
    theSettings = send<ZLKCBSettings, "init">(allocated);
}

ZLKCBSettings sharedSettingsOf(Class cls) {
    dispatchOnce(settingsOnce, cls, &makeSharedSettings);
    return theSettings;
}

ZLKCBSettings initSettings(ZLKCBSettings settings) {
    IMP baseInit = class_getMethodImplementation(platformClass<"NSObject">(), selector<"init">());
    auto initialised = platform::call<ZLKCBSettings>(baseInit, settings.object, selector<"init">());
    send<void, "loadSettings">(initialised);
    return initialised;
}

void loadSettingsOf(ZLKCBSettings settings) { settings.loadSettings(); }

NSString describe(ZLKCBSettings settings) {
    char text[256];
    std::snprintf(text, sizeof text,
                  "Zelka For Call Enabled: %d\nRound Pictures Enabled: %d\nMonogram Enabled: %d\nZelka on Favorites: "
                  "%d\nZelka on Recents:%d\nZelka on Contacts:%d.",
                  settings.value(0), settings.value(1), settings.value(2), settings.value(3), settings.value(4),
                  settings.value(5));
    return NSString::fromUTF8(text);
}

NSDictionary copySettingsDictionary(NSString path) { return ZLKCBSettings::settingsDictionary(path).leak(); }

constexpr MethodRow kClassMethods[] = {
    receiverMethod<"sharedSettings", &sharedSettingsOf>(),
    classMethod<"settingsDictionary:", NSDictionary(NSString), &copySettingsDictionary>(),
};

constexpr MethodRow kInstanceMethods[] = {
    receiverMethod<"init", &initSettings>(),
    receiverMethod<"loadSettings", &loadSettingsOf>(),
    receiverMethod<"description", &describe>(),
    receiverMethod<"isZelkaCBEnabled", &getter<0>>(),
    receiverMethod<"isRoundedPicsEnabled", &getter<1>>(),
    receiverMethod<"isMonogramEnabled", &getter<2>>(),
    receiverMethod<"isShowPicturesOnFavorites", &getter<3>>(),
    receiverMethod<"isShowPicturesOnRecents", &getter<4>>(),
    receiverMethod<"isShowPicturesOnContacts", &getter<5>>(),
    receiverMethod<"setIsZelkaCBEnabled:", &setter<0>>(),
    receiverMethod<"setIsRoundedPicsEnabled:", &setter<1>>(),
    receiverMethod<"setIsMonogramEnabled:", &setter<2>>(),
    receiverMethod<"setIsShowPicturesOnFavorites:", &setter<3>>(),
    receiverMethod<"setIsShowPicturesOnRecents:", &setter<4>>(),
    receiverMethod<"setIsShowPicturesOnContacts:", &setter<5>>(),
};

}  // namespace

void registerSettingsClass() { registerClass("ZLKCBSettings", kVariables, kClassMethods, kInstanceMethods); }

ZLKCBSettings ZLKCBSettings::sharedSettings() { return sharedSettingsOf(platformClass<"ZLKCBSettings">()); }

Owned<NSDictionary> ZLKCBSettings::settingsDictionary(NSString path) {
    return copyOf(as<NSDictionary>(NSMutableDictionary::fromFile(path).get()));
}

void ZLKCBSettings::loadSettings() const {
    Owned<NSDictionary> stored = settingsDictionary(settingsPath());
    for (std::size_t index = 0; index < kSettingRows.size(); ++index) {
        setValue(index, truthOf(stored->objectFor(NSString::fromUTF8(kSettingRows[index].key))));
    }
    logInformation(LogSite("-[ZLKCBSettings loadSettings]", 88), "Loading settings completed..");
}

bool ZLKCBSettings::value(std::size_t index) const {
    return variable(*this, index).load(std::memory_order_relaxed) != 0;
}

void ZLKCBSettings::setValue(std::size_t index, bool value) const {
    variable(*this, index).store(value, std::memory_order_relaxed);
}

namespace ZelkaCBUtils {

bool isZelkaCBOnlyOn() {
    initialiseUtilityClass();
    return ZLKCBSettings::sharedSettings().isZelkaCBEnabled();
}

bool isRoundedPicsEnabled() {
    initialiseUtilityClass();
    return ZLKCBSettings::sharedSettings().isRoundedPicsEnabled();
}

bool isMonogramEnabled() { return isIOS_7() && ZLKCBSettings::sharedSettings().isMonogramEnabled(); }

std::span<const MethodRow> settingsMethods() {
    static constexpr MethodRow rows[] = {
        classMethod<"isZelkaCBOnlyOn", bool(), &isZelkaCBOnlyOn>(),
        classMethod<"isRoundedPicsEnabled", bool(), &isRoundedPicsEnabled>(),
        classMethod<"isMonogramEnabled", bool(), &isMonogramEnabled>(),
    };
    return rows;
}

}  // namespace ZelkaCBUtils
