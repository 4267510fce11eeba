#include "simulator/frameworks/preferences/PSListController.h"
#include "simulator/frameworks/preferences/preference_values.h"

@implementation PSViewController

@synthesize specifier = _specifier;

- (void)dealloc {
    [_specifier release];
    [super dealloc];
}

- (id)readPreferenceValue:(PSSpecifier*)specifier {
    NSString* key = [specifier propertyForKey:@"key"];
    NSString* domain = [specifier propertyForKey:@"defaults"];
    id value = key && domain ? preferences::readValue(domain, key) : nil;
    return value ? value : [specifier propertyForKey:@"default"];
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier*)specifier {
    NSString* key = [specifier propertyForKey:@"key"];
    NSString* domain = [specifier propertyForKey:@"defaults"];
    if (key && domain) preferences::writeValue(domain, key, value);
    NSString* notification = [specifier propertyForKey:@"PostNotification"];
    if (notification) preferences::postNotification(notification);
}

@end
