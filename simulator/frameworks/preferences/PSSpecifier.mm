#include "simulator/frameworks/preferences/PSSpecifier.h"

@implementation PSSpecifier

@synthesize name = _name;
@synthesize target;
@synthesize cellType;

+ (PSSpecifier*)preferenceSpecifierNamed:(NSString*)name
                                  target:(id)target
                                     set:(SEL)setter
                                     get:(SEL)getter
                                  detail:(Class)detail
                                    cell:(NSInteger)cellType
                                    edit:(Class)edit {
    if (edit) {
        [NSException raise:NSInvalidArgumentException
                    format:@"PSSpecifier: the stand-in phone has no panes to edit values in (%@)", edit];
    }
    PSSpecifier* specifier = [[[self alloc] init] autorelease];
    [specifier setName:name];
    specifier->target = target;
    specifier->setter = setter;
    specifier->getter = getter;
    specifier->detailControllerClass = detail;
    specifier->cellType = cellType;
    return specifier;
}

- (instancetype)init {
    self = [super init];
    if (self) _properties = [[NSMutableDictionary alloc] init];
    return self;
}

- (void)dealloc {
    [_name release];
    [_properties release];
    [super dealloc];
}

- (NSDictionary*)properties {
    return [NSDictionary dictionaryWithDictionary:_properties];
}

- (id)propertyForKey:(NSString*)key {
    return [_properties objectForKey:key];
}

- (void)setProperty:(id)value forKey:(NSString*)key {
    value ? [_properties setObject:value forKey:key] : [_properties removeObjectForKey:key];
}

- (void)removePropertyForKey:(NSString*)key {
    [_properties removeObjectForKey:key];
}

- (NSString*)identifier {
    NSString* identifier = [_properties objectForKey:@"id"];
    if (!identifier) identifier = [_properties objectForKey:@"key"];
    return identifier ? identifier : _name;
}

- (void)setIdentifier:(NSString*)identifier {
    [self setProperty:identifier forKey:@"id"];
}

- (id)performGetter {
    return getter ? [target performSelector:getter withObject:self] : nil;
}

- (void)performSetterWithValue:(id)value {
    if (setter) [target performSelector:setter withObject:value withObject:self];
}

- (NSString*)description {
    return [NSString stringWithFormat:@"<PSSpecifier %p: %@, \"%@\">", self, [self identifier], _name];
}

+ (NSInteger)_cellTypeNamed:(NSString*)name {
    const struct {
        NSString* name;
        PSCellType type;
    } known[] = {{@"PSGroupCell", PSGroupCell},           {@"PSLinkCell", PSLinkCell},
                 {@"PSTitleValueCell", PSTitleValueCell}, {@"PSSwitchCell", PSSwitchCell},
                 {@"PSStaticTextCell", PSStaticTextCell}, {@"PSButtonCell", PSButtonCell}};
    for (const auto& each : known) {
        if ([each.name isEqual:name]) return each.type;
    }
    [NSException raise:NSInvalidArgumentException
                format:@"PSSpecifier: the stand-in phone has no cells of the kind %@", name];
    return 0;
}

@end
