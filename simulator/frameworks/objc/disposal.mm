#import <Foundation/Foundation.h>

#include <dlfcn.h>

#include "simulator/frameworks/objc/runtime.h"
#include "simulator/frameworks/objc/set_implementation.h"
#include "simulator/frameworks/objc/weak_references.h"

// The end of an object: what points at it weakly is cleared, what is attached to it is let go. Most objects end in
// -[NSObject dealloc]; some of Foundation's own go straight to the function behind it.

namespace {

void (*deallocBefore)(id, SEL);

void letGo(id object) {
    zeroWeakReferences(object);
    objc_removeAssociatedObjects(object);
}

void dealloc(id self, SEL selector) {
    letGo(self);
    deallocBefore(self, selector);
}

}  // namespace

@interface PhoneDisposal : NSObject
@end
@implementation PhoneDisposal
+ (void)load {
    Class root = objc_getClass("NSObject");
    Method method = class_getInstanceMethod(root, sel_registerName("dealloc"));
    const IMP before = phone::setImplementation(root, method, reinterpret_cast<IMP>(dealloc));
    deallocBefore = reinterpret_cast<void (*)(id, SEL)>(before);
}
@end

// Ahead of Foundation's own by definition order.
void NSDeallocateObject(id object) {
    static const auto before = reinterpret_cast<void (*)(id)>(dlsym(RTLD_NEXT, "NSDeallocateObject"));
    letGo(object);
    before(object);
}
