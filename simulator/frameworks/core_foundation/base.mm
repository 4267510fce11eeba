#include "simulator/frameworks/core_foundation/core_foundation.h"

#include <stdio.h>
#include <stdlib.h>

namespace {

id objectOf(CFTypeRef reference) { return static_cast<id>(const_cast<void*>(reference)); }

void requireObject(CFTypeRef object, const char* function) {
    if (object != nullptr) return;
    fprintf(stderr, "%s() was called with NULL, which a phone does not survive\n", function);
    abort();
}

}  // namespace

CFTypeRef CFRetain(CFTypeRef object) {
    requireObject(object, "CFRetain");
    return [objectOf(object) retain];
}

void CFRelease(CFTypeRef object) {
    requireObject(object, "CFRelease");
    [objectOf(object) release];
}

CFIndex CFDataGetLength(CFDataRef data) { return static_cast<CFIndex>([data length]); }
const UInt8* CFDataGetBytePtr(CFDataRef data) { return static_cast<const UInt8*>([data bytes]); }

CFIndex CFArrayGetCount(CFArrayRef array) { return static_cast<CFIndex>([array count]); }
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    return [array objectAtIndex:static_cast<NSUInteger>(index)];
}
