#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/frameworks/foundation/utf16.h"

#include <stdlib.h>

// A phone's strings are sequences of UTF-16 code units, whatever they are; this Foundation refuses to make one with
// half a surrogate pair, which is what the first code unit of many a name is, and takes a byte order mark at the front
// for one, although code units have no other order.

namespace {

using InitNoCopy = id (*)(id, SEL, unichar*, NSUInteger, BOOL);
using InitBytes = id (*)(id, SEL, const void*, NSUInteger, NSStringEncoding);
using Init = id (*)(id, SEL, const unichar*, NSUInteger);
using Utf8 = const char* (*)(id, SEL);

InitNoCopy initNoCopyBefore;
InitNoCopy mutableInitNoCopyBefore;
InitBytes mutableInitBytesBefore;
Init initBefore;

bool beginsWithByteOrderMark(const unichar* units, NSUInteger count) {
    return count > 0 && (units[0] == 0xFEFF || units[0] == 0xFFFE);
}

bool isOrdinary(const unichar* units, NSUInteger count) {
    if (units == nullptr) return true;
    return !beginsWithByteOrderMark(units, count) &&
           phone::isWellFormed(reinterpret_cast<const char16_t*>(units), count);
}

// Formatting takes any code unit, which is the way around the refusal. `self` is fresh from +alloc: a mutable string,
// or the one object that stands for every immutable string not made yet.
id initUnchecked(id self, const unichar* units, NSUInteger count) {
    if ([self isKindOfClass:[NSMutableString class]]) {
        NSMutableString* text = [self initWithCapacity:count];
        for (NSUInteger i = 0; i < count; ++i) [text appendFormat:@"%C", units[i]];
        return text;
    }
    NSMutableString* text = initUnchecked([NSMutableString alloc], units, count);
    NSString* result = [text copy];
    [text release];
    return result;
}

id initNoCopyUnchecked(id self, unichar* units, NSUInteger count, BOOL freeWhenDone) {
    NSString* text = initUnchecked(self, units, count);
    if (freeWhenDone) free(units);
    return text;
}

id initNoCopy(id self, SEL selector, unichar* units, NSUInteger count, BOOL freeWhenDone) {
    if (isOrdinary(units, count)) return initNoCopyBefore(self, selector, units, count, freeWhenDone);
    return initNoCopyUnchecked(self, units, count, freeWhenDone);
}

id mutableInitNoCopy(id self, SEL selector, unichar* units, NSUInteger count, BOOL freeWhenDone) {
    if (isOrdinary(units, count)) return mutableInitNoCopyBefore(self, selector, units, count, freeWhenDone);
    return initNoCopyUnchecked(self, units, count, freeWhenDone);
}

id initCopy(id self, SEL selector, const unichar* units, NSUInteger count) {
    return isOrdinary(units, count) ? initBefore(self, selector, units, count) : initUnchecked(self, units, count);
}

// How one string becomes a mutable copy of another.
id mutableInitBytes(id self, SEL selector, const void* bytes, NSUInteger length, NSStringEncoding encoding) {
    const auto* units = static_cast<const unichar*>(bytes);
    const NSUInteger count = length / sizeof(unichar);
    if (encoding != NSUnicodeStringEncoding || isOrdinary(units, count)) {
        return mutableInitBytesBefore(self, selector, bytes, length, encoding);
    }
    return initUnchecked(self, units, count);
}

// NULL for a text that UTF-8 cannot hold, where Foundation raises. One replacement for each class that has its own.
template <int which>
struct Utf8OfClass {
    static inline Utf8 before = nullptr;
    static const char* call(id self, SEL selector) {
        @try {
            return before(self, selector);
        } @catch (NSException* exception) {
            if ([[exception name] isEqualToString:NSCharacterConversionException]) return nullptr;
            @throw;
        }
    }
    static void install(const char* name) { before = phone::replaceMethod(objc_getClass(name), "UTF8String", call); }
};

}  // namespace

@interface PhoneUnpairedSurrogates : NSObject
@end
@implementation PhoneUnpairedSurrogates
+ (void)load {
    Class strings = objc_getClass("NSString");
    constexpr const char* noCopy = "initWithCharactersNoCopy:length:freeWhenDone:";
    initNoCopyBefore = phone::replaceMethod(strings, noCopy, initNoCopy);
    mutableInitNoCopyBefore = phone::replaceMethod(objc_getClass("GSMutableString"), noCopy, mutableInitNoCopy);
    mutableInitBytesBefore =
        phone::replaceMethod(objc_getClass("GSMutableString"), "initWithBytes:length:encoding:", mutableInitBytes);
    initBefore = phone::replaceMethod(strings, "initWithCharacters:length:", initCopy);
    Utf8OfClass<0>::install("NSString");
    Utf8OfClass<1>::install("GSCString");
    Utf8OfClass<2>::install("GSUnicodeString");
    Utf8OfClass<3>::install("GSMutableString");
}
@end
