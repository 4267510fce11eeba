#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"

#include <string.h>

#include <initializer_list>
#include <string_view>

// A phone writes property lists as XML; this Foundation has its own notations for files.

namespace {

bool isPropertyList(id object);

bool areAll(id<NSFastEnumeration> objects, bool (*test)(id)) {
    for (id object in objects) {
        if (!test(object)) return false;
    }
    return true;
}

bool isText(id object) { return [object isKindOfClass:[NSString class]]; }

// Foundation's own test lets every object through and writes its description.
bool isPropertyList(id object) {
    if ([object isKindOfClass:[NSArray class]]) return areAll(object, isPropertyList);
    if ([object isKindOfClass:[NSDictionary class]]) {
        return areAll([object allKeys], isText) && areAll([object allValues], isPropertyList);
    }
    return isText(object) || [object isKindOfClass:[NSNumber class]] || [object isKindOfClass:[NSData class]] ||
           [object isKindOfClass:[NSDate class]];
}

NSData* xml(id list) {
    if (!isPropertyList(list)) return nil;
    return [NSPropertyListSerialization dataWithPropertyList:list
                                                      format:NSPropertyListXMLFormat_v1_0
                                                     options:0
                                                       error:nullptr];
}

using ReadList = id (*)(id, SEL, NSData*, NSPropertyListReadOptions, NSPropertyListFormat*, NSError**);
ReadList readBefore;

// This Foundation's own binary notation, which a phone does not know, begins with one of these; its reader believes
// whatever count a damaged file gives.
bool isForeignNotation(NSData* data) {
    const auto* bytes = static_cast<const unsigned char*>([data bytes]);
    return [data length] > 0 && bytes[0] <= 1;
}

// nil and an error for what is no property list, for which Foundation may raise, and for a dictionary with other keys
// than texts, which its binary reader lets through.
id readList(id self, SEL selector, NSData* data, NSPropertyListReadOptions options, NSPropertyListFormat* format,
            NSError** error) {
    @try {
        id list = isForeignNotation(data) ? nil : readBefore(self, selector, data, options, format, error);
        if (isPropertyList(list)) return list;
    } @catch (NSException* exception) {
        // Answered below.
    }
    constexpr NSInteger kReadCorrupt = 3840;  // NSPropertyListReadCorruptError
    if (error != nullptr) *error = [NSError errorWithDomain:NSCocoaErrorDomain code:kReadCorrupt userInfo:nil];
    return nil;
}

using InitWithFile = id (*)(id, SEL, NSString*);
InitWithFile initWithFileBefore;

bool isBinary(NSData* data) {
    constexpr std::string_view mark = "bplist";
    return [data length] >= mark.size() && memcmp([data bytes], mark.data(), mark.size()) == 0;
}

// Foundation reads files as text here, a phone its binary notation, too: that of nearly every preferences file.
id initWithFile(id self, SEL selector, NSString* path) {
    NSData* data = [NSData dataWithContentsOfFile:path];
    if (!isBinary(data)) return initWithFileBefore(self, selector, path);
    id list = [NSPropertyListSerialization propertyListWithData:data
                                                        options:NSPropertyListImmutable
                                                         format:nullptr
                                                          error:nullptr];
    if ([list isKindOfClass:[NSDictionary class]]) return [self initWithDictionary:list];
    [self release];
    return nil;
}

BOOL writeToFile(id self, SEL, NSString* path, BOOL atomically) {
    NSData* data = xml(self);
    return data != nil && [data writeToFile:path atomically:atomically];
}

}  // namespace

@interface PhonePropertyLists : NSObject
@end
@implementation PhonePropertyLists
+ (void)load {
    initWithFileBefore = phone::replaceMethod(objc_getClass("NSDictionary"), "initWithContentsOfFile:", initWithFile);
    readBefore = phone::replaceMethod(objc_getMetaClass("NSPropertyListSerialization"),
                                      "propertyListWithData:options:format:error:", readList);
    for (const char* name : {"NSDictionary", "NSArray"}) {
        phone::replaceMethodEverywhere(objc_getClass(name),
                                       "writeToFile:atomically:", reinterpret_cast<IMP>(writeToFile));
    }
}
@end
