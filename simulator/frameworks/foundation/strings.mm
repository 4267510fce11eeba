#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/frameworks/foundation/utf16.h"

#include <stdlib.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

// Where this Foundation's strings differ from a phone's.

namespace {

// Letters, marks and numbers, in every plane: Foundation's own table is of an older Unicode and has gaps.
NSCharacterSet* makeAlphanumerics() {
    constexpr uint32_t wanted = U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK;
    constexpr size_t planeBytes = 0x10000 / 8;
    constexpr size_t planes = 17;
    NSMutableData* bitmap = [NSMutableData dataWithLength:planeBytes * planes];
    auto* bytes = static_cast<uint8_t*>([bitmap mutableBytes]);
    for (UChar32 character = 0; character <= UCHAR_MAX_VALUE; ++character) {
        if (U_MASK(u_charType(character)) & wanted) bytes[character / 8] |= 1 << (character % 8);
    }
    return [[NSCharacterSet characterSetWithBitmapRepresentation:bitmap] retain];
}

NSCharacterSet* alphanumerics(id, SEL) {
    static NSCharacterSet* const set = makeAlphanumerics();
    return set;
}

NSMutableCharacterSet* mutableAlphanumerics(id, SEL) {
    return [[[NSCharacterSet alphanumericCharacterSet] mutableCopy] autorelease];
}

using CaseMapping = int32_t (*)(UChar*, int32_t, const UChar*, int32_t, const char*, UErrorCode*);

// The full mapping of no particular language: one character can become several.
NSString* mapCase(NSString* text, CaseMapping mapping) {
    const std::u16string from = phone::utf16(text);
    std::u16string to(from.size() * 3, u'\0');  // the longest mapping there is
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = mapping(to.data(), static_cast<int32_t>(to.size()), from.data(),
                                   static_cast<int32_t>(from.size()), "", &status);
    to.resize(static_cast<size_t>(length));
    return phone::stringFrom(to);
}

NSString* uppercase(NSString* self, SEL) { return mapCase(self, u_strToUpper); }
NSString* lowercase(NSString* self, SEL) { return mapCase(self, u_strToLower); }

// Splits between characters; Foundation's own would cut those of the supplementary planes in two.
NSArray* componentsByCharacters(NSString* self, SEL, NSCharacterSet* separators) {
    const std::u16string units = phone::utf16(self);
    NSMutableArray* pieces = [NSMutableArray array];
    size_t start = 0;
    for (size_t at = 0; at < units.size();) {
        const size_t before = at;
        UChar32 character = 0;
        U16_NEXT(units.data(), at, units.size(), character);
        if (![separators longCharacterIsMember:static_cast<UTF32Char>(character)]) continue;
        [pieces addObject:phone::stringFrom(units.substr(start, before - start))];
        start = at;
    }
    [pieces addObject:phone::stringFrom(units.substr(start))];
    return pieces;
}

NSRange (*rangeBefore)(id, SEL, NSString*, NSUInteger, NSRange);
NSRange (*localeRangeBefore)(id, SEL, NSString*, NSUInteger, NSRange, id);

bool isEmptyText(NSString* text) { return text != nil && [text length] == 0; }

// An empty text is found nowhere.
NSRange range(id self, SEL selector, NSString* wanted, NSUInteger options, NSRange within) {
    if (isEmptyText(wanted)) return NSMakeRange(NSNotFound, 0);
    return rangeBefore(self, selector, wanted, options, within);
}

NSRange localeRange(id self, SEL selector, NSString* wanted, NSUInteger options, NSRange within, id locale) {
    if (isEmptyText(wanted)) return NSMakeRange(NSNotFound, 0);
    return localeRangeBefore(self, selector, wanted, options, within, locale);
}

}  // namespace

@interface PhoneStrings : NSObject
@end
@implementation PhoneStrings
+ (void)load {
    using phone::replaceMethod;
    replaceMethod(objc_getMetaClass("NSCharacterSet"), "alphanumericCharacterSet", alphanumerics);
    replaceMethod(objc_getMetaClass("NSMutableCharacterSet"), "alphanumericCharacterSet", mutableAlphanumerics);
    phone::replaceMethodEverywhere(objc_getClass("NSString"), "uppercaseString", reinterpret_cast<IMP>(uppercase));
    phone::replaceMethodEverywhere(objc_getClass("NSString"), "lowercaseString", reinterpret_cast<IMP>(lowercase));
    replaceMethod(objc_getClass("NSString"), "componentsSeparatedByCharactersInSet:", componentsByCharacters);
    rangeBefore = replaceMethod(objc_getClass("NSString"), "rangeOfString:options:range:", range);
    localeRangeBefore = replaceMethod(objc_getClass("NSString"), "rangeOfString:options:range:locale:", localeRange);
}
@end
