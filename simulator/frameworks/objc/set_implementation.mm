#import <Foundation/Foundation.h>

#include "simulator/frameworks/objc/set_implementation.h"

// The runtime's own refresh after it added methods: the class and all its subclasses take their methods anew.
extern "C" void __objc_update_dispatch_table_for_class(Class cls);

namespace phone {
namespace {

// A method as compilers lay it out for the GNU runtime (module ABI 8).
struct MethodLayout {
    SEL name;
    const char* types;
    IMP implementation;
};

}  // namespace

IMP setImplementation(Class cls, Method method, IMP implementation) {
    IMP* slot = &reinterpret_cast<MethodLayout*>(method)->implementation;
    const IMP before = __atomic_exchange_n(slot, implementation, __ATOMIC_SEQ_CST);
    __objc_update_dispatch_table_for_class(cls);
    return before;
}

Method ownMethod(Class cls, SEL selector) {
    if (cls == Nil) return nullptr;
    Method method = class_getInstanceMethod(cls, selector);
    const Class parent = class_getSuperclass(cls);
    return parent != Nil && class_getInstanceMethod(parent, selector) == method ? nullptr : method;
}

}  // namespace phone
