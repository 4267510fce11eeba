#include "src/platform/object.h"

#include <cstdio>
#include <cstdlib>

#include "src/platform/encoding.h"
#include "src/platform/send.h"

extern "C" {
const void* CFRetain(const void* reference);
void CFRelease(const void* reference);
}

namespace platform {

void retainObject(id object) { send<NSObject, "retain">(NSObject{object}); }
void releaseObject(id object) { send<void, "release">(NSObject{object}); }
void autoreleaseObject(id object) { send<NSObject, "autorelease">(NSObject{object}); }
void retainReference(const void* reference) { CFRetain(reference); }
void releaseReference(const void* reference) { CFRelease(reference); }
// CFAutorelease came with system 7; the message does the same, for what CoreFoundation counts are objects.
void autoreleaseReference(const void* reference) { autoreleaseObject(static_cast<id>(const_cast<void*>(reference))); }

void missingClass(const char* name) {
    std::fprintf(stderr, "ZelkaCB: this process has no class %s, which every process of the platform should have\n",
                 name);
    std::abort();
}

void verifyCall(Class cls, SEL selector, const char* encoding) {
    Method method = class_getInstanceMethod(cls, selector);
    if (method == nullptr) return;  // forwarded, or about to be refused by the receiver itself
    const char* registered = method_getTypeEncoding(method);
    if (registered == nullptr || encodingsAgree(registered, encoding)) return;
    std::fprintf(stderr, "ZelkaCB: %s implements %s as \"%s\", but is called as \"%s\"\n", class_getName(cls),
                 sel_getName(selector), registered, encoding);
    std::abort();
}

}  // namespace platform
