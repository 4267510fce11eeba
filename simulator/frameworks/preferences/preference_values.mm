#include "simulator/frameworks/preferences/preference_values.h"

#include <cstdlib>

#include "simulator/frameworks/core_foundation/core_foundation.h"
#include "simulator/runtime/process/device.h"

namespace {

// What the service lets pass before it writes, in seconds.
constexpr NSTimeInterval kLateness = 10;

NSString* fileOf(NSString* domain) {
    if ([domain isAbsolutePath]) return domain;
    NSString* folder = [NSHomeDirectory() stringByAppendingPathComponent:@"Library/Preferences"];
    return [[folder stringByAppendingPathComponent:domain] stringByAppendingPathExtension:@"plist"];
}

NSMutableDictionary* readFile(NSString* domain) {
    NSDictionary* values = [NSDictionary dictionaryWithContentsOfFile:fileOf(domain)];
    return values ? [[values mutableCopy] autorelease] : [NSMutableDictionary dictionary];
}

void writeFile(NSString* domain, NSDictionary* values) {
    if ([values writeToFile:fileOf(domain) atomically:YES]) return;
    [NSException raise:NSGenericException format:@"%@: cannot be written", fileOf(domain)];
}

// A second of the stand-in's time, as of its sleep.
NSTimeInterval secondLength() {
    const char* length = std::getenv("PHONESIM_SECOND");
    return length != nullptr ? std::atof(length) : 1;
}

}  // namespace

// The stand-in of the service that a Settings app from system 8 on hands its values to.
@interface PSPreferencesService : NSObject {
  @private
    NSMutableDictionary* _domains;  // name -> NSMutableDictionary
    NSMutableSet* _unwritten;       // names
    BOOL _writeIsDue;
}
+ (PSPreferencesService*)service;
- (NSMutableDictionary*)valuesOf:(NSString*)domain;
- (void)set:(id)value forKey:(NSString*)key in:(NSString*)domain;
- (void)writeUnwritten;
@end

@implementation PSPreferencesService

+ (PSPreferencesService*)service {
    static PSPreferencesService* service = [[PSPreferencesService alloc] init];
    return service;
}

- (instancetype)init {
    self = [super init];
    if (self) {
        _domains = [[NSMutableDictionary alloc] init];
        _unwritten = [[NSMutableSet alloc] init];
    }
    return self;
}

- (NSMutableDictionary*)valuesOf:(NSString*)domain {
    NSMutableDictionary* values = [_domains objectForKey:domain];
    if (!values) {
        values = readFile(domain);
        [_domains setObject:values forKey:domain];
    }
    return values;
}

- (void)set:(id)value forKey:(NSString*)key in:(NSString*)domain {
    [[self valuesOf:domain] setObject:value forKey:key];
    [_unwritten addObject:domain];
    if (_writeIsDue) return;
    _writeIsDue = YES;
    [self performSelector:@selector(writeUnwritten) withObject:nil afterDelay:kLateness * secondLength()];
}

- (void)writeUnwritten {
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(writeUnwritten) object:nil];
    _writeIsDue = NO;
    for (NSString* domain in _unwritten) writeFile(domain, [_domains objectForKey:domain]);
    [_unwritten removeAllObjects];
}

@end

namespace preferences {

id readValue(NSString* domain, NSString* key) {
    if (phone::device().preferencesService) return [[[PSPreferencesService service] valuesOf:domain] objectForKey:key];
    return [readFile(domain) objectForKey:key];
}

void writeValue(NSString* domain, NSString* key, id value) {
    if (phone::device().preferencesService) return [[PSPreferencesService service] set:value forKey:key in:domain];
    NSMutableDictionary* values = readFile(domain);
    [values setObject:value forKey:key];
    writeFile(domain, values);
}

void writeLateValues() { [[PSPreferencesService service] writeUnwritten]; }

void postNotification(NSString* name) {
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), (CFStringRef)name, nullptr,
                                         nullptr, true);
}

}  // namespace preferences
