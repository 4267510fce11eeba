#import <Foundation/Foundation.h>

#include <filesystem>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/runtime/file_system/phone_root.h"
#import "simulator/runtime/file_system/property_list.h"
#include "simulator/runtime/process/library_loader.h"

// A phone's bundles: the executable in this machine's binary format or the phone's, resources in the languages' own
// folders (process.mm sets the languages), tables of texts in any encoding and notation of a property list.

namespace {

BOOL (*loadBefore)(id, SEL);
Class (*principalClassBefore)(id, SEL);
NSBundle* (*bundleForClassBefore)(id, SEL, Class);
NSString* (*pathBefore)(id, SEL, NSString*, NSString*);
NSString* (*localizedBefore)(id, SEL, NSString*, NSString*, NSString*);

// The executable's place on this machine; empty for a bundle without one.
std::string executableOf(NSBundle* bundle) {
    NSString* name = [[bundle infoDictionary] objectForKey:@"CFBundleExecutable"];
    if (![name isKindOfClass:[NSString class]]) return "";
    return [[[bundle bundlePath] stringByAppendingPathComponent:name] fileSystemRepresentation];
}

// Says on standard error why it could not be loaded, as a phone's Foundation does.
BOOL load(id self, SEL selector) {
    const std::string executable = phone::root().empty() ? "" : executableOf(self);
    if (executable.empty()) return loadBefore(self, selector);
    const phone::Status loaded = phone::loadLibrary(executable);
    if (!loaded) NSLog(@"Error loading %s:  %s", executable.c_str(), loaded.error().message.c_str());
    return loaded.has_value();
}

Class principalClass(id self, SEL selector) {
    NSString* name = [[self infoDictionary] objectForKey:@"NSPrincipalClass"];
    if (phone::root().empty() || ![name isKindOfClass:[NSString class]]) return principalClassBefore(self, selector);
    return [self load] ? NSClassFromString(name) : Nil;
}

// A class of a bundle that lies on the phone: the bundle is the folder that its executable lies in.
NSBundle* bundleForClass(id self, SEL selector, Class cls) {
    const std::filesystem::path image = cls != Nil ? phone::libraryOf(cls) : "";
    const std::string folder = image.parent_path();
    const std::string& root = phone::root().native();
    const bool isOnPhone = !root.empty() && folder.compare(0, root.size(), root) == 0;
    if (!isOnPhone || image.parent_path().extension() != ".bundle") return bundleForClassBefore(self, selector, cls);
    return [NSBundle bundleWithPath:[NSString stringWithUTF8String:phone::phonePath(folder).c_str()]];
}

// Foundation here takes a language's folder by another name than its code, such as iw.lproj for he.
NSString* pathForResource(id self, SEL selector, NSString* name, NSString* type) {
    NSString* file = [type length] > 0 ? [name stringByAppendingPathExtension:type] : name;
    NSMutableArray* folders = [NSMutableArray arrayWithObject:@""];
    for (NSString* language in [NSUserDefaults userLanguages])
        [folders addObject:[language stringByAppendingPathExtension:@"lproj"]];
    for (NSString* folder in phone::root().empty() || [name length] == 0 ? nil : folders) {
        NSString* path =
            [[[self bundlePath] stringByAppendingPathComponent:folder] stringByAppendingPathComponent:file];
        if ([[NSFileManager defaultManager] fileExistsAtPath:path]) return path;
    }
    return pathBefore(self, selector, name, type);
}

// "key" = "text"; lines in UTF-8 or, behind a byte order mark, UTF-16. nil for what is none.
id readLines(NSData* data) {
    NSString* lines = [[[NSString alloc] initWithData:data encoding:NSUTF8StringEncoding] autorelease];
    if (lines == nil) lines = [[[NSString alloc] initWithData:data encoding:NSUTF16StringEncoding] autorelease];
    @try {
        return [lines propertyListFromStringsFileFormat];
    } @catch (NSException*) {
        return nil;
    }
}

bool isXml(NSData* data) { return [data length] > 0 && *static_cast<const char*>([data bytes]) == '<'; }

NSDictionary* readTable(NSString* path) {
    NSData* data = [NSData dataWithContentsOfFile:path];
    const bool isList = isXml(data) || phone::isBinaryPropertyList(data);
    id table = isList ? phone::readPropertyList(data) : readLines(data);
    if ([table isKindOfClass:[NSDictionary class]]) return table;
    NSLog(@"%@: no table of texts", path);
    return [NSDictionary dictionary];
}

// +0; nil when the bundle has no such table in any of the languages. Read once.
NSDictionary* tableOf(NSBundle* bundle, NSString* name) {
    static NSMutableDictionary* known = [[NSMutableDictionary alloc] init];
    NSString* path = [bundle pathForResource:name ofType:@"strings"];
    if (path == nil) return nil;
    @synchronized(known) {
        NSDictionary* table = [known objectForKey:path];
        if (table == nil) [known setObject:table = readTable(path) forKey:path];
        return [[table retain] autorelease];
    }
}

NSString* localized(id self, SEL selector, NSString* key, NSString* value, NSString* table) {
    if (phone::root().empty()) return localizedBefore(self, selector, key, value, table);
    if (key == nil) return value != nil ? value : @"";
    NSString* text = [tableOf(self, [table length] > 0 ? table : @"Localizable") objectForKey:key];
    if ([text isKindOfClass:[NSString class]]) return text;
    return [value length] > 0 ? value : key;
}

}  // namespace

@interface PhoneBundles : NSObject
@end
@implementation PhoneBundles
+ (void)load {
    Class bundle = objc_getClass("NSBundle");
    loadBefore = phone::replaceMethod(bundle, "load", load);
    principalClassBefore = phone::replaceMethod(bundle, "principalClass", principalClass);
    bundleForClassBefore = phone::replaceMethod(objc_getMetaClass("NSBundle"), "bundleForClass:", bundleForClass);
    pathBefore = phone::replaceMethod(bundle, "pathForResource:ofType:", pathForResource);
    localizedBefore = phone::replaceMethod(bundle, "localizedStringForKey:value:table:", localized);
}
@end
