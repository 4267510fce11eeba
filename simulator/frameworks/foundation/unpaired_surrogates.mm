#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/frameworks/foundation/utf16.h"

#include <stdlib.h>

// A phone's strings are sequences of UTF-16 code units, whatever they are; this Foundation refuses to make one with half a
// surrogate pair, which is what the first code unit of many a name is.

namespace {

using InitNoCopy = id (*)(id, SEL, unichar*, NSUInteger, BOOL);
using Init = id (*)(id, SEL, const unichar*, NSUInteger);
using Utf8 = const char* (*)(id, SEL);

InitNoCopy initNoCopyBefore;
Init initBefore;

bool isOrdinary(const unichar* units, NSUInteger count) {
    return units == nullptr || phone::isWellFormed(reinterpret_cast<const char16_t*>(units), count);
}

// Formatting takes any code unit, which is the way around the refusal.
NSString* makeUnchecked(const unichar* units, NSUInteger count) {
    NSMutableString* text = [[NSMutableString alloc] initWithCapacity:count];
    for (NSUInteger i = 0; i < count; ++i) [text appendFormat:@"%C", units[i]];
    NSString* result = [text copy];
    [text release];
    return result;
}

id initWithCharactersNoCopy(id self, SEL selector, unichar* units, NSUInteger count, BOOL freeWhenDone) {
    if (isOrdinary(units, count)) return initNoCopyBefore(self, selector, units, count, freeWhenDone);
    NSString* text = makeUnchecked(units, count);
    if (freeWhenDone) free(units);
    return text;
}

id initWithCharacters(id self, SEL selector, const unichar* units, NSUInteger count) {
    if (isOrdinary(units, count)) return initBefore(self, selector, units, count);
    return makeUnchecked(units, count);
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
    static void install(NSString* name) {
        before = phone::replaceMethod(NSClassFromString(name), "UTF8String", call);
    }
};

}  // namespace

@interface PhoneUnpairedSurrogates : NSObject
@end
@implementation PhoneUnpairedSurrogates
+ (void)load {
    Class placeholder = NSClassFromString(@"GSPlaceholderString");
    initNoCopyBefore =
        phone::replaceMethod(placeholder, "initWithCharactersNoCopy:length:freeWhenDone:", initWithCharactersNoCopy);
    initBefore = phone::replaceMethod(placeholder, "initWithCharacters:length:", initWithCharacters);
    Utf8OfClass<0>::install(@"NSString");
    Utf8OfClass<1>::install(@"GSCString");
    Utf8OfClass<2>::install(@"GSUnicodeString");
    Utf8OfClass<3>::install(@"GSMutableString");
}
@end
