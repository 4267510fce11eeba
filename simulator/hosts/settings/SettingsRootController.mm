#include "simulator/hosts/settings/SettingsRootController.h"

#include "simulator/hosts/settings/preference_loader.h"
#include "simulator/runtime/process/device.h"

namespace {

// The app's name in the phone's language, or in English.
NSString* settingsTitle() {
    NSDictionary* titles = @{
        @"en" : @"Settings",
        @"de" : @"Einstellungen",
        @"fr" : @"Réglages",
        @"es" : @"Ajustes",
        @"sv" : @"Inställningar",
        @"ru" : @"Настройки",
        @"ar" : @"الإعدادات",
        @"he" : @"הגדרות",
        @"zh-Hans" : @"设置",
        @"ja" : @"設定"
    };
    NSString* title = [titles objectForKey:[NSString stringWithUTF8String:phone::device().language.c_str()]];
    return title != nil ? title : [titles objectForKey:@"en"];
}

}  // namespace

@implementation SettingsRootController

- (instancetype)init {
    self = [super init];
    if (self) [self setTitle:settingsTitle()];
    return self;
}

- (NSArray*)specifiers {
    if (!_specifiers) _specifiers = [hosts::installedEntries() retain];
    return _specifiers;
}

- (UIViewController*)controllerForSpecifier:(PSSpecifier*)specifier {
    return hosts::pageOfEntry(specifier);
}

@end
