#import <Foundation/Foundation.h>

#include "simulator/frameworks/objc/set_implementation.h"

extern "C" void* __objc_uninstalled_dtable;

namespace phone {
namespace {

// The beginning of a class and a method as compilers lay them out for the GNU runtime (module ABI 8).
struct ClassLayout {
    Class isa, parent;
    const char* name;
    long version;
    unsigned long info;
    long instanceSize;
    void* variables;
    void* methods;
    void* dispatchTable;
};

struct MethodLayout {
    SEL name;
    const char* types;
    IMP implementation;
};

bool hasDispatchTable(Class cls) {
    return reinterpret_cast<ClassLayout*>(cls)->dispatchTable != __objc_uninstalled_dtable;
}

}  // namespace

IMP setImplementation(Class cls, Method method, IMP implementation) {
    if (hasDispatchTable(cls)) return method_setImplementation(method, implementation);
    // The table will be made from the methods as they are then.
    auto* layout = reinterpret_cast<MethodLayout*>(method);
    const IMP before = layout->implementation;
    layout->implementation = implementation;
    return before;
}

Method ownMethod(Class cls, SEL selector) {
    if (cls == Nil) return nullptr;
    Method method = class_getInstanceMethod(cls, selector);
    const Class parent = class_getSuperclass(cls);
    return parent != Nil && class_getInstanceMethod(parent, selector) == method ? nullptr : method;
}

}  // namespace phone
