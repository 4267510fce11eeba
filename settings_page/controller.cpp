#include "settings_page/controller.h"

#include "settings_page/alerts.h"
#include "settings_page/log_file.h"
#include "settings_page/preferences.h"
#include "settings_page/stored_settings.h"
#include "src/platform/core_foundation.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIAlertView.h"

namespace zelka {
namespace {

// The setting that a row switches; nullptr for the other rows.
const SettingRow* settingOf(PSSpecifier specifier) {
    auto key = specifier.property<NSString>(literal<"key">());
    for (const SettingRow& row : kSettingRows)
        if (key && key.equals(NSString::fromUTF8(row.key))) return &row;
    return nullptr;
}

template <class Function>
void forEach(NSArray specifiers, Function function) {
    for (NSUInteger i = 0; i < specifiers.count(); ++i) function(specifiers.at<PSSpecifier>(i));
}

// The other switches say nothing while the main switch is off.
void enableRows(NSArray specifiers) {
    const bool isOn = StoredSettings::load().value(Setting::enabled);
    forEach(specifiers, [isOn](PSSpecifier specifier) {
        const SettingRow* row = settingOf(specifier);
        if (row != nullptr && row->setting != Setting::enabled)
            specifier.setProperty(NSNumber::of(isOn), literal<"enabled">());
    });
}

// Has rows show what is stored now: those that show what the switches do and, when asked for, the switches themselves,
// but for the one that the user is moving.
void showStored(PSListController page, bool withSwitches, PSSpecifier moving = {}) {
    NSArray specifiers = page.specifiers();
    if (withSwitches) enableRows(specifiers);
    forEach(specifiers, [=](PSSpecifier specifier) {
        const bool isSwitch = settingOf(specifier) != nullptr;
        const bool isConcerned = isSwitch ? withSwitches : static_cast<bool>(specifier.property(literal<"shows">()));
        if (isConcerned && specifier != moving) page.reload(specifier);
    });
}

void showWriteProblem(Written written) {
    showProblem(written == Written::unreadable ? Text::cannotReadSettings : Text::cannotWriteSettings);
}

NSBundle bundle(PSListController) { return pageBundle(); }

NSArray specifiers(PSListController page) {
    if (NSArray known = page.storedSpecifiers()) return known;
    page.storeSpecifiers(retain(page.specifiersFromList(listName(), page)));
    enableRows(page.storedSpecifiers());
    return page.storedSpecifiers();
}

// The framework's own two methods, which these replace, ask the preferences service. No row of the page is its
// business.
NSObject readPreferenceValue(PSListController, PSSpecifier specifier) {
    const SettingRow* row = settingOf(specifier);
    return row != nullptr ? NSNumber::of(StoredSettings::load().value(row->setting)) : NSObject{};
}

void setPreferenceValue(PSListController page, NSObject value, PSSpecifier specifier) {
    const SettingRow* row = settingOf(specifier);
    if (row == nullptr) return;
    const Written written = StoredSettings::load().write(row->setting, truthOf(value));
    if (written != Written::yes) {
        page.reload(specifier);  // the switch goes back
        showWriteProblem(written);
        return;
    }
    // Only now: who hears it reads the file.
    postDarwinNotification(NSString::fromUTF8(row->notification));
    showStored(page, row->setting == Setting::enabled, specifier);
}

NSString version(PSListController, PSSpecifier) { return versionText(); }

NSString sizeOfLog(PSListController, PSSpecifier) {
    NSString size = logSize();
    return size ? size : localized(Text::noLog);
}

void askDeleteLog(PSListController page, PSSpecifier) { ask(Question::deleteLog, page); }
void askRestoreDefaults(PSListController page, PSSpecifier) { ask(Question::restoreDefaults, page); }

void deleteLog() {
    if (!emptyLog()) showProblem(Text::cannotDeleteLog);
}

// Each notification is posted: which values the other processes had is not for the file to say.
void restoreDefaults() {
    const Written written = StoredSettings::load().restoreStandard();
    if (written != Written::yes) {
        showWriteProblem(written);
        return;
    }
    for (const SettingRow& row : kSettingRows) postDarwinNotification(NSString::fromUTF8(row.notification));
}

void clickedButton(PSListController page, UIAlertView alert, NSInteger button) {
    if (button != kYesButton) return;
    switch (static_cast<Question>(alert.tag())) {
        case Question::deleteLog:
            deleteLog();
            break;
        case Question::restoreDefaults:
            restoreDefaults();
            break;
    }
    showStored(page, true);
}

constexpr MethodRow kMethods[] = {
    receiverMethod<"bundle", &bundle>(),
    receiverMethod<"specifiers", &specifiers>(),
    receiverMethod<"readPreferenceValue:", &readPreferenceValue>(),
    receiverMethod<"setPreferenceValue:specifier:", &setPreferenceValue>(),
    receiverMethod<"version:", &version>(),
    receiverMethod<"sizeOfLog:", &sizeOfLog>(),
    receiverMethod<"askDeleteLog:", &askDeleteLog>(),
    receiverMethod<"askRestoreDefaults:", &askRestoreDefaults>(),
    receiverMethod<"alertView:clickedButtonAtIndex:", &clickedButton>(),
};

}  // namespace

void registerController() {
    registerClass("ZelkaCBSettingsController", optionalClass<PSListController>(), {}, {}, kMethods);
}

}  // namespace zelka
