#include "src/settings/settings.h"

#include "src/platform/dispatch.h"
#include "src/platform/foundation/NSValue.h"
#include "src/util/device.h"
#include "src/util/log.h"
#include "src/util/utility_class.h"

namespace zelka {
namespace {

constinit std::intptr_t settingsOnce = 0;
constinit ZLKCBSettings theSettings;

static_assert(sizeof(BOOL) == 1, "a setting's instance variable is one byte");

std::atomic_ref<BOOL> variable(ZLKCBSettings settings, Setting setting) {
    static constinit std::atomic<std::ptrdiff_t> firstOffset{0};
    std::ptrdiff_t offset = firstOffset.load(std::memory_order_relaxed);
    if (offset == 0) [[unlikely]] {
        const char* name = kVariableName<Setting{}>.c_str();
        offset = ivar_getOffset(class_getInstanceVariable(platformClass<ZLKCBSettings>(), name));
        firstOffset.store(offset, std::memory_order_relaxed);
    }
    auto* first = reinterpret_cast<BOOL*>(settings.object) + offset;
    return std::atomic_ref(first[static_cast<std::size_t>(setting)]);
}

// The file as the processes see it from the root of the file system, where their working directory is.
NSString settingsPath() {
    return literal<"User">()
        .appendingPathComponent(NSString::fromUTF8(kPreferencesFolder))
        .appendingPathComponent(NSString::fromUTF8(kSettingsFile));
}

void makeSharedSettings(void* cls) {
    logInformation(LogSite("__31+[ZLKCBSettings sharedSettings]_block_invoke", 102),
                   "Initiallizing settings for first time..");
    // The settings are those of the whole process.
    theSettings = keepForever(allocInit<ZLKCBSettings>(static_cast<Class>(cls)));
}

}  // namespace

ZLKCBSettings ZLKCBSettings::sharedSettings(Class cls) {
    dispatchOnce(settingsOnce, cls, &makeSharedSettings);
    return theSettings;
}

Owned<NSDictionary> ZLKCBSettings::settingsDictionary(NSString path) {
    return copyOf(as<NSDictionary>(NSMutableDictionary::fromFile(path).get()));
}

void ZLKCBSettings::loadSettings() const {
    Owned<NSDictionary> stored = settingsDictionary(settingsPath());
    for (const SettingRow& row : kSettingRows) {
        setValue(row.setting, truthOf(stored->objectFor(NSString::fromUTF8(row.key))));
    }
    logInformation(LogSite("-[ZLKCBSettings loadSettings]", 88), "Loading settings completed..");
}

bool ZLKCBSettings::value(Setting setting) const {
    return variable(*this, setting).load(std::memory_order_relaxed) != 0;
}

void ZLKCBSettings::setValue(Setting setting, bool value) const {
    variable(*this, setting).store(value, std::memory_order_relaxed);
}

bool isZelkaCBOnlyOn() {
    initialiseUtilityClass();
    return ZLKCBSettings::sharedSettings().value(Setting::enabled);
}

bool isRoundedPicsEnabled() {
    initialiseUtilityClass();
    return ZLKCBSettings::sharedSettings().value(Setting::roundedPictures);
}

bool isMonogramEnabled() { return isIOS_7() && ZLKCBSettings::sharedSettings().value(Setting::monograms); }

bool isWanted(Setting setting) {
    ZLKCBSettings settings = ZLKCBSettings::sharedSettings();
    return settings.value(Setting::enabled) && settings.value(setting);
}

}  // namespace zelka
