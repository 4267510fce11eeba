#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/runtime/file_system/phone_root.h"

#include <dlfcn.h>

#include <algorithm>
#include <string_view>

// Foundation reads every file through -fileSystemRepresentationWithPath:, so the phone's root goes in there; atomic
// writes pass it by and get theirs in the method that writes.

namespace {

// What Foundation itself needs of the machine it runs on: its own resources, time zones, devices.
constexpr std::string_view machinePlaces[] = {
    "/usr/share/GNUstep", "/usr/lib/GNUstep", "/etc/GNUstep", "/usr/share/zoneinfo",
    "/etc/localtime",     "/etc/timezone",    "/dev",         "/proc"};

bool belongsToMachine(std::string_view path) {
    return std::any_of(std::begin(machinePlaces), std::end(machinePlaces), [path](std::string_view place) {
        return path.substr(0, place.size()) == place && (path.size() == place.size() || path[place.size()] == '/');
    });
}

const char* (*representationBefore)(id, SEL, NSString*);
BOOL (*writeBefore)(id, SEL, NSString*, NSUInteger, NSError**);
NSString* (*currentDirectoryBefore)(id, SEL);

const char* representation(id self, SEL selector, NSString* path) {
    const char* plain = representationBefore(self, selector, path);
    if (plain == nullptr || phone::root().empty() || belongsToMachine(plain)) return plain;
    const std::string mapped = phone::hostPath(plain);
    // Lives as long as the surrounding pool, like the result it stands for.
    NSData* bytes = [NSData dataWithBytes:mapped.c_str() length:mapped.size() + 1];
    return static_cast<const char*>([bytes bytes]);
}

BOOL writeFile(id self, SEL selector, NSString* path, NSUInteger options, NSError** error) {
    if (path == nil || phone::root().empty()) return writeBefore(self, selector, path, options, error);
    const std::string mapped = phone::hostPath([path UTF8String] ?: "");
    return writeBefore(self, selector, [NSString stringWithUTF8String:mapped.c_str()], options, error);
}

NSString* currentDirectory(id self, SEL selector) {
    NSString* path = currentDirectoryBefore(self, selector);
    if (path == nil || phone::root().empty()) return path;
    return [NSString stringWithUTF8String:phone::phonePath([path UTF8String]).c_str()];
}

}  // namespace

@interface PhoneFileAccess : NSObject
@end
@implementation PhoneFileAccess
+ (void)load {
    representationBefore =
        phone::replaceMethod(objc_getClass("NSFileManager"), "fileSystemRepresentationWithPath:", representation);
    writeBefore = phone::replaceMethod(objc_getClass("NSData"), "writeToFile:options:error:", writeFile);
    currentDirectoryBefore =
        phone::replaceMethod(objc_getClass("NSFileManager"), "currentDirectoryPath", currentDirectory);
}
@end

// Ahead of Foundation's own by definition order: the user of a phone is mobile.
NSString* NSHomeDirectory() {
    if (!phone::root().empty()) return @"/var/mobile";
    static const auto before = reinterpret_cast<NSString* (*)()>(dlsym(RTLD_NEXT, "NSHomeDirectory"));
    return before();
}
