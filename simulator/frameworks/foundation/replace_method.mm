#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"

#include "simulator/frameworks/objc/set_implementation.h"

#include <stdio.h>
#include <stdlib.h>

#include <vector>

namespace phone {
namespace {

bool isKindOf(Class cls, Class base) {
    while (cls != Nil && cls != base) cls = class_getSuperclass(cls);
    return cls != Nil;
}

std::vector<Class> allClasses() {
    std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
    objc_getClassList(classes.data(), static_cast<int>(classes.size()));
    return classes;
}

}  // namespace

IMP replaceMethod(Class cls, const char* selector, IMP replacement) {
    Method method = ownMethod(cls, sel_registerName(selector));
    if (method == nullptr) {
        fprintf(stderr, "phone: this Foundation's %s has no method %s of its own\n",
                cls == Nil ? "class" : class_getName(cls), selector);
        abort();
    }
    return setImplementation(cls, method, replacement);
}

void replaceMethodEverywhere(Class base, const char* selector, IMP replacement) {
    replaceMethod(base, selector, replacement);
    const SEL sel = sel_registerName(selector);
    for (Class cls : allClasses()) {
        if (cls == base || !isKindOf(cls, base)) continue;
        if (Method own = ownMethod(cls, sel)) setImplementation(cls, own, replacement);
    }
}

}  // namespace phone
