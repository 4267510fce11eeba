#include <objc/runtime.h>
#include <stdio.h>
#include <stdlib.h>

#include "simulator/frameworks/objc/set_implementation.h"
#include "simulator/frameworks/substrate/substrate.h"

namespace {

// Number and spacing in bytes of the entry points in super_thunks.S.
constexpr size_t thunkCount = 256;
constexpr size_t thunkSize = 16;

struct InheritedHook {
    Class cls;
    SEL selector;
};

constinit InheritedHook inheritedHooks[thunkCount]{};
constinit size_t inheritedHookCount = 0;

}  // namespace

extern "C" {

extern const char superThunks[];

// Called by every entry point: the superclass is asked anew each time, for it may have been hooked since.
IMP superImplementation(size_t number) {
    const InheritedHook& hook = inheritedHooks[number];
    return class_getMethodImplementation(class_getSuperclass(hook.cls), hook.selector);
}
}

namespace {

IMP makeSuperThunk(Class cls, SEL selector) {
    if (inheritedHookCount == thunkCount) {
        fprintf(stderr, "MSHookMessageEx: more than %zu hooks of inherited methods\n", thunkCount);
        abort();
    }
    inheritedHooks[inheritedHookCount] = {cls, selector};
    return reinterpret_cast<IMP>(const_cast<char*>(superThunks + thunkSize * inheritedHookCount++));
}

}  // namespace

void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* original) {
    if (cls == Nil) return;
    if (class_isMetaClass(cls)) {
        // The GNU runtime does not give a metaclass's parent, so the override could reach too far.
        fprintf(stderr, "MSHookMessageEx: class methods cannot be hooked in this simulator: %s\n", class_getName(cls));
        abort();
    }
    Method method = class_getInstanceMethod(cls, selector);
    if (method == nullptr) {
        fprintf(stderr, "MSHookMessageEx: no message -[%s %s]\n", class_getName(cls), sel_getName(selector));
        return;
    }
    Method own = phone::ownMethod(cls, selector);
    // The original first: another thread may call the replacement as soon as it is in place.
    if (original != nullptr) *original = own == nullptr ? makeSuperThunk(cls, selector) : method_getImplementation(own);
    if (own == nullptr) {
        class_addMethod(cls, selector, replacement, method_getTypeEncoding(method));
    } else {
        phone::setImplementation(cls, own, replacement);
    }
}
