#include "simulator/hosts/settings/preference_loader.h"

#include <cstdio>

#include "simulator/frameworks/preferences/specifier_list.h"

// A page of what a list says, without a bundle.
@interface SettingsPlainListController : PSListController
@end

@implementation SettingsPlainListController

- (NSArray*)specifiers {
    if (!_specifiers) {
        NSDictionary* list = [[self specifier] propertyForKey:@"list"];
        [self setTitle:[list objectForKey:@"title"]];
        _specifiers = [preferences::specifiersOf([list objectForKey:@"items"], self, nil, nil) retain];
    }
    return _specifiers;
}

- (void)viewDidLoad {
    [super viewDidLoad];
    [self specifiers];
}

@end

namespace hosts {
namespace {

NSString* const kEntries = @"/Library/PreferenceLoader/Preferences";

NSArray* bundleFolders() { return @[ @"/Library/PreferenceBundles", @"/System/Library/PreferenceBundles" ]; }

// nil, with a message, for a file that has no usable entry.
PSSpecifier* readEntry(NSString* path) {
    NSDictionary* list = [NSDictionary dictionaryWithContentsOfFile:path];
    NSDictionary* entry = [list objectForKey:@"entry"];
    if (![entry isKindOfClass:[NSDictionary class]]) {
        std::fprintf(stderr, "preferences: %s: has no dictionary \"entry\"\n", [path UTF8String]);
        return nil;
    }
    PSSpecifier* specifier = [preferences::specifiersOf(@[ entry ], nil, nil, nil) lastObject];
    NSString* icon = [entry objectForKey:@"icon"];
    if (icon != nil) {
        [specifier setProperty:[UIImage imageWithContentsOfFile:[kEntries stringByAppendingPathComponent:icon]]
                        forKey:@"iconImage"];
    }
    [specifier setProperty:list forKey:@"list"];
    return specifier;
}

NSBundle* bundleNamed(NSString* name) {
    for (NSString* folder in bundleFolders()) {
        NSString* path = [[folder stringByAppendingPathComponent:name] stringByAppendingPathExtension:@"bundle"];
        if (NSBundle* bundle = [NSBundle bundleWithPath:path]) return bundle;
    }
    [NSException raise:NSInvalidArgumentException
                format:@"there is no %@.bundle in %@", name, [bundleFolders() componentsJoinedByString:@" or "]];
    return nil;
}

Class principalClassOf(NSString* bundleName) {
    NSBundle* bundle = bundleNamed(bundleName);
    Class found = [bundle principalClass];
    if (found == Nil) {
        [NSException raise:NSInvalidArgumentException
                    format:@"%@: its executable %@ cannot be loaded, or has no class %@", [bundle bundlePath],
                           [bundle objectForInfoDictionaryKey:@"CFBundleExecutable"],
                           [bundle objectForInfoDictionaryKey:@"NSPrincipalClass"]];
    }
    return found;
}

}  // namespace

NSArray* installedEntries() {
    NSMutableArray* entries = [NSMutableArray array];
    NSArray* names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:kEntries error:nullptr];
    for (NSString* name in [names sortedArrayUsingSelector:@selector(compare:)]) {
        if (![[name pathExtension] isEqualToString:@"plist"]) continue;
        if (PSSpecifier* entry = readEntry([kEntries stringByAppendingPathComponent:name])) [entries addObject:entry];
    }
    return entries;
}

UIViewController* pageOfEntry(PSSpecifier* entry) {
    NSString* bundle = [entry propertyForKey:@"bundle"];
    const bool isController = bundle != nil && [[entry propertyForKey:@"isController"] boolValue];
    Class pageClass = isController ? principalClassOf(bundle) : [SettingsPlainListController class];
    UIViewController* page = [[[pageClass alloc] init] autorelease];
    if ([page isKindOfClass:[PSViewController class]]) [(PSViewController*)page setSpecifier:entry];
    return page;
}

}  // namespace hosts
