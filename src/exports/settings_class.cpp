#include "src/exports/settings_class.h"

#include <array>
#include <utility>

#include "src/platform/class_builder.h"
#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/log.h"
#include "src/platform/owned.h"
#include "src/settings/settings.h"

namespace zelka {
namespace {

template <Setting setting>
bool getter(ZLKCBSettings settings) {
    return settings.value(setting);
}

template <Setting setting>
void setter(ZLKCBSettings settings, bool value) {
    settings.setValue(setting, value);
}

// "setIsRoundedPicsEnabled:" for "isRoundedPicsEnabled".
template <Setting setting>
constexpr auto kSetterName = [] {
    auto capitalised = kPropertyName<setting>;
    capitalised.text[0] = static_cast<char>(capitalised.text[0] - 'a' + 'A');
    return FixedString("set") + capitalised + FixedString(":");
}();

template <template <Setting> class Row, std::size_t... index>
constexpr auto rowsOf(std::index_sequence<index...>) {
    return std::array{Row<static_cast<Setting>(index)>::row...};
}

// One row for each setting, in the settings' order.
template <template <Setting> class Row>
constexpr auto kRows = rowsOf<Row>(std::make_index_sequence<kSettingRows.size()>());

template <Setting setting>
struct Variable {
    static constexpr IvarRow row = ivar<bool>(kVariableName<setting>.c_str());
};

template <Setting setting>
struct Property {
    static constexpr PropertyRow row = property<bool>(kPropertyName<setting>.c_str(), kVariableName<setting>.c_str());
};

template <Setting setting>
struct Getter {
    static constexpr MethodRow row = receiverMethod<kPropertyName<setting>, &getter<setting>>();
};

template <Setting setting>
struct Setter {
    static constexpr MethodRow row = receiverMethod<kSetterName<setting>, &setter<setting>>();
};

ZLKCBSettings sharedSettings(Class cls) { return ZLKCBSettings::sharedSettings(cls); }

NSDictionary settingsDictionary(NSString path) { return ZLKCBSettings::settingsDictionary(path).leak(); }

ZLKCBSettings init(ZLKCBSettings settings) {
    auto initialised = sendSuper<ZLKCBSettings, "init", NSObject>(settings);
    initialised.sendLoadSettings();
    return initialised;
}

void loadSettings(ZLKCBSettings settings) { settings.loadSettings(); }

NSString description(ZLKCBSettings settings) {
    TextBuilder text;
    const char* separator = "";
    for (const SettingRow& row : kSettingRows) {
        text.append(separator);
        text.append(row.label);
        text.append(settings.value(row.setting) ? 1 : 0);
        separator = "\n";
    }
    text.append(".");
    return copyOf(text.text()).autorelease();
}

constexpr MethodRow kClassMethods[] = {
    receiverMethod<"sharedSettings", &sharedSettings>(),
    classMethod<"settingsDictionary:", NSDictionary(NSString), &settingsDictionary>(),
};

constexpr MethodRow kInstanceMethods[] = {
    receiverMethod<"init", &init>(),
    receiverMethod<"loadSettings", &loadSettings>(),
    receiverMethod<"description", &description>(),
};

}  // namespace

void registerSettingsClass() {
    Class cls =
        registerClass("ZLKCBSettings", platformClass<NSObject>(), kRows<Variable>, kClassMethods, kInstanceMethods);
    addMethods(cls, kRows<Getter>);
    addMethods(cls, kRows<Setter>);
    addProperties(cls, kRows<Property>);
}

}  // namespace zelka
