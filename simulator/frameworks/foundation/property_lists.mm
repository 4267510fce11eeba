#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"

#include <initializer_list>

// A phone writes property lists as XML; this Foundation has its own notation for files.

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
                                                       error:NULL];
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
    for (const char* name : {"NSDictionary", "NSArray"}) {
        phone::replaceMethodEverywhere(objc_getClass(name),
                                       "writeToFile:atomically:", reinterpret_cast<IMP>(writeToFile));
    }
}
@end
