#include "tests/settings_page/page.h"

#include <stdlib.h>

#include <filesystem>
#include <sstream>

#include "simulator/runtime/process/process.h"
#include "tests/support/property_list.h"

namespace test {
namespace {

constexpr const char* kBundle = "/System/Library/PreferenceBundles/ZelkaCBSettings.bundle";

// The executable under test: the one that the environment variable ZELKA_LIBRARY names, such as that in the phone's own
// binary format, else this machine's own build, which the bundle has already.
void placeExecutable(const std::string& bundle) {
    const char* chosen = getenv("ZELKA_LIBRARY");
    if (chosen == nullptr) return;
    std::filesystem::copy_file(chosen, bundle + "/ZelkaCBSettings", std::filesystem::copy_options::overwrite_existing);
}

}  // namespace

PageTest::~PageTest() {
    leave();
    [pool_ drain];
}

void PageTest::open() {
    if (pool_ == nil) {
        std::filesystem::copy(ZELKA_BUNDLE, root.host(kBundle), std::filesystem::copy_options::recursive);
        placeExecutable(root.host(kBundle));
        phone::boot(root.path(), "com.apple.Preferences");
        pool_ = [[NSAutoreleasePool alloc] init];
    }
    Class principal = [[NSBundle bundleWithPath:[NSString stringWithUTF8String:kBundle]] principalClass];
    ASSERT_NE(principal, Nil);
    ASSERT_TRUE([principal isSubclassOfClass:[PSListController class]]);
    page = [[principal alloc] init];
    window_ = [[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]];
    [window_ setRootViewController:page];
    [window_ makeKeyAndVisible];
    [window_ layoutIfNeeded];
}

void PageTest::leave() {
    [window_ setRootViewController:nil];
    [window_ release];
    [page release];
    window_ = nil;
    page = nil;
}

PSSpecifier* PageTest::row(zelka::Setting setting) const {
    const char* key = zelka::kSettingRows[static_cast<size_t>(setting)].key;
    return [page specifierForID:[NSString stringWithUTF8String:key]];
}

PSSpecifier* PageTest::row(const char* labelKey) const {
    NSString* name = [NSString stringWithUTF8String:english(labelKey).c_str()];
    for (PSSpecifier* specifier in [page specifiers]) {
        if ([[specifier name] isEqual:name]) return specifier;
    }
    return nil;
}

PSTableCell* PageTest::cell(PSSpecifier* specifier) const {
    NSIndexPath* path = [page indexPathForSpecifier:specifier];
    [[page table] scrollToRowAtIndexPath:path atScrollPosition:UITableViewScrollPositionMiddle animated:NO];
    [window_ layoutIfNeeded];
    return (PSTableCell*)[[page table] cellForRowAtIndexPath:path];
}

bool PageTest::isOn(zelka::Setting setting) const {
    return [(UISwitch*)[(PSControlTableCell*)cell(row(setting)) control] isOn];
}

void PageTest::flip(zelka::Setting setting) {
    auto* control = (UISwitch*)[(PSControlTableCell*)cell(row(setting)) control];
    ASSERT_TRUE([control isEnabled]);
    [control setOn:![control isOn] animated:YES];
    [control sendActionsForControlEvents:UIControlEventValueChanged];
    [window_ layoutIfNeeded];
}

void PageTest::tap(const char* labelKey) {
    NSIndexPath* path = [page indexPathForSpecifier:row(labelKey)];
    [page tableView:[page table] didSelectRowAtIndexPath:path];
}

std::string PageTest::english(const char* key) const {
    NSString* table =
        [NSString stringWithContentsOfFile:[NSString stringWithFormat:@"%s/en.lproj/ZelkaCB.strings", kBundle]
                                  encoding:NSUTF8StringEncoding
                                     error:NULL];
    return [[[table propertyListFromStringsFileFormat] objectForKey:[NSString stringWithUTF8String:key]] UTF8String]
               ?: "";
}

NSDictionary* PageTest::file() const {
    return [NSDictionary dictionaryWithContentsOfFile:[NSString stringWithUTF8String:kSettingsPath]];
}

std::string PageTest::storedValues() const {
    std::string text;
    for (const char* key : kSettingsKeys) {
        id value = [file() objectForKey:[NSString stringWithUTF8String:key]];
        text += value == nil ? '-' : [value boolValue] ? '1' : '0';
    }
    return text;
}

std::string PageTest::posted() const {
    std::istringstream lines(root.read("/private/var/run/notifications"));
    std::string all;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) all += (all.empty() ? "" : " ") + line;
    }
    return all;
}

}  // namespace test
