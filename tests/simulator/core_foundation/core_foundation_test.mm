#include "simulator/frameworks/core_foundation/core_foundation.h"

#include <gtest/gtest.h>

namespace {

TEST(CoreFoundation, ReferencesAreFoundationObjects) {
    @autoreleasepool {
        id object = [[NSObject alloc] init];
        EXPECT_EQ(CFRetain(object), static_cast<CFTypeRef>(object));
        EXPECT_EQ([object retainCount], 2u);
        CFRelease(object);
        EXPECT_EQ([object retainCount], 1u);
        CFRelease(object);
    }
}

TEST(CoreFoundation, DataGivesItsOwnBytes) {
    @autoreleasepool {
        NSData* data = [NSData dataWithBytes:"abc" length:3];
        EXPECT_EQ(CFDataGetLength(data), 3);
        EXPECT_EQ(static_cast<const void*>(CFDataGetBytePtr(data)), [data bytes]);
        EXPECT_EQ(CFDataGetLength([NSData data]), 0);
    }
}

TEST(CoreFoundation, ArraysAreReadByIndex) {
    @autoreleasepool {
        NSArray* array = @[ @"a", @"b" ];
        EXPECT_EQ(CFArrayGetCount(array), 2);
        EXPECT_EQ(CFArrayGetValueAtIndex(array, 1), static_cast<const void*>([array objectAtIndex:1]));
    }
}

TEST(CoreFoundationDeathTest, NullEndsTheProcessWithTheFunctionsName) {
    EXPECT_DEATH(CFRelease(nullptr), "CFRelease\\(\\) was called with NULL");
    EXPECT_DEATH(CFRetain(nullptr), "CFRetain\\(\\) was called with NULL");
}

}  // namespace
