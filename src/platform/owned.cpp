#include "src/platform/owned.h"

extern "C" {
const void* CFRetain(const void* reference);
void CFRelease(const void* reference);
}

namespace zelka::detail {

void retainReference(NSObject object) { send<NSObject, "retain">(object); }
void retainReference(const void* reference) { CFRetain(reference); }
void releaseReference(NSObject object) { send<void, "release">(object); }
void releaseReference(const void* reference) { CFRelease(reference); }
void autoreleaseReference(NSObject object) { send<NSObject, "autorelease">(object); }
// CFAutorelease came with system 7; the message does the same, for what CoreFoundation counts are objects.
void autoreleaseReference(const void* reference) {
    autoreleaseReference(NSObject{static_cast<id>(const_cast<void*>(reference))});
}

}  // namespace zelka::detail
