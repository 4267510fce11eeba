#include "simulator/frameworks/preferences/specifier_list.h"

#include "simulator/frameworks/preferences/PSSpecifier.h"
#include "simulator/frameworks/uikit/uikit.h"

namespace preferences {
namespace {

SEL selectorOf(NSDictionary* item, NSString* key) {
    NSString* name = [item objectForKey:key];
    return name ? NSSelectorFromString(name) : NULL;
}

PSSpecifier* specifierOf(NSDictionary* item, id target, NSBundle* bundle, NSString* table) {
    if (![item isKindOfClass:[NSDictionary class]]) {
        [NSException raise:NSInvalidArgumentException format:@"a list of specifiers holds no dictionary, but %@", item];
    }
    const NSInteger type = [PSSpecifier _cellTypeNamed:[item objectForKey:@"cell"]];
    NSString* detail = [item objectForKey:@"detail"];
    const BOOL hasValue = [item objectForKey:@"key"] != nil;
    SEL getter = selectorOf(item, @"get");
    SEL setter = selectorOf(item, @"set");
    if (hasValue && !getter) getter = @selector(readPreferenceValue:);
    if (hasValue && !setter) setter = @selector(setPreferenceValue:specifier:);
    PSSpecifier* specifier =
        [PSSpecifier preferenceSpecifierNamed:localized([item objectForKey:@"label"], bundle, table)
                                       target:target
                                          set:setter
                                          get:getter
                                       detail:detail ? NSClassFromString(detail) : Nil
                                         cell:type
                                         edit:Nil];
    specifier->action = selectorOf(item, @"action");
    for (NSString* key in item) [specifier setProperty:[item objectForKey:key] forKey:key];
    NSString* footer = [item objectForKey:@"footerText"];
    if (footer) [specifier setProperty:localized(footer, bundle, table) forKey:@"footerText"];
    NSString* icon = [item objectForKey:@"icon"];
    if (icon && bundle) {
        UIImage* image = [UIImage imageWithContentsOfFile:[[bundle bundlePath] stringByAppendingPathComponent:icon]];
        [specifier setProperty:image forKey:@"iconImage"];
    }
    return specifier;
}

}  // namespace

NSString* localized(NSString* text, NSBundle* bundle, NSString* table) {
    return text && bundle ? [bundle localizedStringForKey:text value:text table:table] : text;
}

NSArray* specifiersOf(NSArray* items, id target, NSBundle* bundle, NSString* table) {
    if (![items isKindOfClass:[NSArray class]]) {
        [NSException raise:NSInvalidArgumentException format:@"a list of specifiers has no \"items\""];
    }
    NSMutableArray* specifiers = [NSMutableArray array];
    for (NSDictionary* item in items) [specifiers addObject:specifierOf(item, target, bundle, table)];
    return specifiers;
}

}  // namespace preferences
