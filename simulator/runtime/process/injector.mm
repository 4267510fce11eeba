#import <Foundation/Foundation.h>

#include "simulator/runtime/process/injector.h"

#include <dlfcn.h>
#include <stdio.h>

#include <filesystem>

#include "simulator/runtime/file_system/phone_root.h"
#import "simulator/runtime/file_system/property_list.h"
#include "simulator/runtime/process/library_loader.h"
#include "simulator/runtime/process/process.h"

namespace phone {
namespace {

NSString* const kLibraries = @"/Library/MobileSubstrate/DynamicLibraries";

void complain(NSString* path, const char* problem) {
    fprintf(stderr, "injector: %s: %s\n", [path fileSystemRepresentation], problem);
}

// The file's dictionary, autoreleased; nil with a message when it has none.
NSDictionary* readFilterFile(NSString* path) {
    NSData* data = [NSData dataWithContentsOfFile:path];
    if (data == nil) {
        complain(path, "the filter cannot be read");
        return nil;
    }
    id values = readPropertyList(data);
    if (![values isKindOfClass:[NSDictionary class]]) {
        complain(path, "the filter is not a property list with a dictionary");
        return nil;
    }
    return values;
}

// Whether the filter file asks for this process.
bool asksForThisProcess(NSString* path) {
    NSDictionary* values = readFilterFile(path);
    if (values == nil) return false;
    id filter = [values objectForKey:@"Filter"];
    id bundles = [filter isKindOfClass:[NSDictionary class]] ? [filter objectForKey:@"Bundles"] : nil;
    if (![bundles isKindOfClass:[NSArray class]]) {
        complain(path, "the filter names no bundles");
        return false;
    }
    if (bundleIdentifier().empty()) return false;
    return [bundles containsObject:[NSString stringWithUTF8String:bundleIdentifier().c_str()]];
}

// The library that a filter file belongs to: the phone's own kind first, then this machine's. Nil when there is
// neither.
NSString* libraryFor(NSString* filterPath) {
    NSString* stem = [filterPath stringByDeletingPathExtension];
    for (NSString* extension in @[ @"dylib", @"so" ]) {
        NSString* path = [stem stringByAppendingPathExtension:extension];
        if ([[NSFileManager defaultManager] fileExistsAtPath:path]) return path;
    }
    return nil;
}

// Why there is none. A link without its target is reported as such: who develops a library may link to the build.
void complainOfMissingLibrary(NSString* filterPath) {
    const std::filesystem::path filter = [filterPath fileSystemRepresentation];
    for (const char* extension : {".dylib", ".so"}) {
        const std::filesystem::path path = std::filesystem::path(filter).replace_extension(extension);
        std::error_code error;
        const std::filesystem::path target = std::filesystem::read_symlink(path, error);
        if (error) continue;
        complain([NSString stringWithUTF8String:path.c_str()],
                 ("links to " + target.string() + ", which is not there").c_str());
        return;
    }
    complain(filterPath, "there is no library beside this filter");
}

void inject(NSString* filterPath, std::vector<std::string>& loaded) {
    if (!asksForThisProcess(filterPath)) return;
    NSString* path = libraryFor(filterPath);
    if (path == nil) {
        complainOfMissingLibrary(filterPath);
        return;
    }
    const Status isLoaded = loadLibrary([path fileSystemRepresentation]);
    if (isLoaded) {
        loaded.push_back([path fileSystemRepresentation]);
    } else {
        complain(path, isLoaded.error().message.c_str());
    }
}

}  // namespace

std::vector<std::string> injectLibraries() {
    std::vector<std::string> loaded;
    @autoreleasepool {
        NSString* folder = [NSString stringWithUTF8String:hostPath([kLibraries UTF8String]).c_str()];
        NSArray* names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:folder error:nullptr];
        for (NSString* name in [names sortedArrayUsingSelector:@selector(compare:)]) {
            if ([[name pathExtension] isEqualToString:@"plist"]) {
                inject([folder stringByAppendingPathComponent:name], loaded);
            }
        }
    }
    return loaded;
}

}  // namespace phone
