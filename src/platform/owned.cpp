#include "src/platform/owned.h"

extern "C" {
const void* CFRetain(const void* reference);
void CFRelease(const void* reference);
}

namespace zelka::detail {

void retainObject(id object) { send<NSObject, "retain">(NSObject{object}); }
void releaseObject(id object) { send<void, "release">(NSObject{object}); }
void autoreleaseObject(id object) { send<NSObject, "autorelease">(NSObject{object}); }
void retainReference(const void* reference) { CFRetain(reference); }
void releaseReference(const void* reference) { CFRelease(reference); }
// CFAutorelease came with system 7; the message does the same, for what CoreFoundation counts are objects.
void autoreleaseReference(const void* reference) { autoreleaseObject(static_cast<id>(const_cast<void*>(reference))); }

}  // namespace zelka::detail
