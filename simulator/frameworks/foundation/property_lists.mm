#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#import "simulator/runtime/file_system/property_list.h"

#include <initializer_list>

// A phone writes property lists as XML; this Foundation has its own notations for files.

namespace {

NSData* xml(id list) {
    if (!phone::isPropertyList(list)) return nil;
    return [NSPropertyListSerialization dataWithPropertyList:list
                                                      format:NSPropertyListXMLFormat_v1_0
                                                     options:0
                                                       error:nullptr];
}

using ReadList = id (*)(id, SEL, NSData*, NSPropertyListReadOptions, NSPropertyListFormat*, NSError**);
ReadList readBefore;

// nil and an error for what is no property list, for which Foundation may raise, and for a dictionary with other keys
// than texts, which its binary reader lets through.
id readList(id self, SEL selector, NSData* data, NSPropertyListReadOptions options, NSPropertyListFormat* format,
            NSError** error) {
    id list = phone::readPropertyList(
        data, [&](NSData* sound) { return readBefore(self, selector, sound, options, format, error); });
    if (list != nil) return list;
    constexpr NSInteger kReadCorrupt = 3840;  // NSPropertyListReadCorruptError
    if (error != nullptr) *error = [NSError errorWithDomain:NSCocoaErrorDomain code:kReadCorrupt userInfo:nil];
    return nil;
}

using InitWithFile = id (*)(id, SEL, NSString*);
InitWithFile initWithFileBefore;

// Foundation reads files as text here, a phone its binary notation, too: that of nearly every preferences file.
id initWithFile(id self, SEL selector, NSString* path) {
    NSData* data = [NSData dataWithContentsOfFile:path];
    if (!phone::isBinaryPropertyList(data)) return initWithFileBefore(self, selector, path);
    id list = phone::readPropertyList(data);
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
