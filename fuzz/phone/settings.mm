// Any bytes in the place of the settings file, where the library loads it and where it makes it complete.

#include "fuzz/phone/target.h"
#include "src/settings/settings_seed.h"
#include "tests/support/zelkacb.h"

namespace {

constexpr const char* kFile = "/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist";

NSArray* keys() {
    return @[
#define SETTING(name, stem, ...) @"ZelkaCBEnabled" stem,
#include "resources/settings.def"
#undef SETTING
    ];
}

NSDictionary* stored() { return [NSDictionary dictionaryWithContentsOfFile:[NSString stringWithUTF8String:kFile]]; }

BOOL isOn(id value) { return [value respondsToSelector:@selector(boolValue)] && [value boolValue]; }

void checkLoaded(NSDictionary* expected) {
    ZLKCBSettings* settings = [SettingsClass sharedSettings];
    [settings loadSettings];
    const BOOL loaded[] = {
#define SETTING(name, stem, standard, group, getter, label) [settings getter],
#include "resources/settings.def"
#undef SETTING
    };
    NSUInteger index = 0;
    for (NSString* key in keys()) {
        if (loaded[index++] != isOn([expected objectForKey:key]))
            fuzz::fail([key UTF8String] + std::string(" misread"));
    }
}

void checkSeeded(NSDictionary* before) {
    NSDictionary* after = stored();
    for (NSString* key in keys()) {
        id kept = [before objectForKey:key];
        id value = [after objectForKey:key];
        if (value == nil || (kept == nil && !isOn(value)) || (kept != nil && isOn(kept) != isOn(value)))
            fuzz::fail([key UTF8String] + std::string(" wrong after seeding"));
    }
    if ([after count] < [before count]) fuzz::fail("seeding lost other keys");
}

}  // namespace

void fuzz::settings(Bytes input) {
    root().write(kFile, text(input));
    NSDictionary* before = stored();
    checkLoaded(before);
    zelka::seedSettingsFile();
    checkSeeded(before);
}
