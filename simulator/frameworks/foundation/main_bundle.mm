#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/process/process.h"

namespace {

NSString* (*identifierBefore)(id, SEL);

// A plain program has no bundle to ask; the process was given its identifier at its start.
NSString* identifier(id self, SEL selector) {
    if (self != [NSBundle mainBundle] || phone::root().empty()) return identifierBefore(self, selector);
    const std::string& name = phone::bundleIdentifier();
    return name.empty() ? nil : [NSString stringWithUTF8String:name.c_str()];
}

}  // namespace

@interface PhoneMainBundle : NSObject
@end
@implementation PhoneMainBundle
+ (void)load {
    identifierBefore = phone::replaceMethod(objc_getClass("NSBundle"), "bundleIdentifier", identifier);
}
@end
