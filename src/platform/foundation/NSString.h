// Texts. Results are unowned (+0) unless they say Owned; any thread.
#pragma once

#include <atomic>
#include <cstdint>

#include "src/platform/owned.h"

struct NSArray;
struct NSCharacterSet;

namespace zelka {

// NSStringCompareOptions
constexpr NSUInteger kCaseInsensitiveSearch = 1;
constexpr NSUInteger kLiteralSearch = 2;

}  // namespace zelka

struct NSString : NSObject {
    // A text of those UTF-8 bytes up to the NUL (+0); nil when they are not UTF-8.
    static NSString fromUTF8(const char* utf8) {
        return zelka::send<NSString, "stringWithUTF8String:">(zelka::platformClass<NSString>(), utf8);
    }

    // A text of those UTF-16 code units, lone surrogates included (+0).
    static NSString fromCharacters(const std::uint16_t* characters, NSUInteger length) {
        return zelka::send<NSString, "stringWithCharacters:length:">(zelka::platformClass<NSString>(), characters,
                                                                     length);
    }

    // The text in UTF-8, living as long as the innermost autorelease pool; nullptr when it cannot be expressed.
    const char* utf8() const { return zelka::send<const char*, "UTF8String">(*this); }
    // In UTF-16 code units, as every index and range here.
    NSUInteger length() const { return zelka::send<NSUInteger, "length">(*this); }
    std::uint16_t characterAt(NSUInteger index) const {
        return zelka::send<std::uint16_t, "characterAtIndex:">(*this, index);
    }
    // Copies the code units of the range, which must lie in the text.
    void getCharacters(std::uint16_t* buffer, NSRange range) const {
        zelka::send<void, "getCharacters:range:">(*this, buffer, range);
    }
    // Raise a range error when the text is shorter.
    NSString substringToIndex(NSUInteger end) const { return zelka::send<NSString, "substringToIndex:">(*this, end); }
    NSString substringWithRange(NSRange range) const {
        return zelka::send<NSString, "substringWithRange:">(*this, range);
    }
    // Both go code unit by code unit: otherwise a combining mark behind a character would hide it. The location of no
    // occurrence is kNotFound.
    NSRange rangeOfString(NSString wanted, NSUInteger options = 0) const {
        return zelka::send<NSRange, "rangeOfString:options:">(*this, wanted, options | zelka::kLiteralSearch);
    }
    bool contains(NSString wanted, NSUInteger options = 0) const {
        return rangeOfString(wanted, options).location != zelka::kNotFound;
    }
    // Both in NSArray.h.
    NSArray componentsSeparatedBy(NSString separator) const;
    NSArray componentsSeparatedByAnyOf(NSCharacterSet separators) const;
    NSString replacing(NSString wanted, NSString replacement) const {
        return zelka::send<NSString, "stringByReplacingOccurrencesOfString:withString:options:range:">(
            *this, wanted, replacement, zelka::kLiteralSearch, NSRange{0, length()});
    }
    NSString appending(NSString tail) const { return zelka::send<NSString, "stringByAppendingString:">(*this, tail); }
    NSString appendingPathComponent(NSString component) const {
        return zelka::send<NSString, "stringByAppendingPathComponent:">(*this, component);
    }
    NSString uppercase() const { return zelka::send<NSString, "uppercaseString">(*this); }
    bool equals(NSString other) const { return zelka::send<bool, "isEqualToString:">(*this, other); }
    // NSComparisonResult: -1, 0 or 1.
    NSInteger caseInsensitiveCompare(NSString other) const {
        return zelka::send<NSInteger, "caseInsensitiveCompare:">(*this, other);
    }
    bool hasPrefix(NSString prefix) const { return zelka::send<bool, "hasPrefix:">(*this, prefix); }
    // Zero when the text does not begin with a number.
    float floatValue() const { return zelka::send<float, "floatValue">(*this); }
    NSInteger integerValue() const { return zelka::send<NSInteger, "integerValue">(*this); }
};

struct NSMutableString : NSString {
    [[nodiscard]] static zelka::Owned<NSMutableString> create(NSUInteger capacity = 0) {
        return zelka::allocInit<NSMutableString, "initWithCapacity:">(capacity);
    }
    void appendString(NSString tail) const { zelka::send<void, "appendString:">(*this, tail); }
};

struct NSCharacterSet : NSObject {
    static NSCharacterSet alphanumeric() {
        return zelka::send<NSCharacterSet, "alphanumericCharacterSet">(zelka::platformClass<NSCharacterSet>());
    }
    NSCharacterSet inverted() const { return zelka::send<NSCharacterSet, "invertedSet">(*this); }
};

extern "C" id NSHomeDirectory();
extern "C" id NSStringFromClass(Class cls);

inline NSString NSObject::description() const { return zelka::send<NSString, "description">(*this); }

inline NSString NSObject::className() const {
    return object != nullptr ? NSString{{NSStringFromClass(zelka::send<Class, "class">(*this))}} : NSString{};
}

namespace zelka {
namespace detail {

template <FixedString text>
inline constinit std::atomic<id> cachedLiteral{nullptr};

// Makes the text and stores it in the slot, unless another thread has by then; returns what the slot holds (+0).
inline id makeLiteral(std::atomic<id>& slot, const char* utf8) {
    auto made = allocInit<NSString, "initWithUTF8String:">(utf8);
    id expected = nullptr;
    if (!slot.compare_exchange_strong(expected, made.get().object)) return expected;
    // The slot is read without a lock for as long as the process runs.
    return keepForever(std::move(made)).object;
}

}  // namespace detail

// The constant text, made once per process (+0). Any thread.
template <FixedString text>
inline NSString literal() {
    auto& slot = detail::cachedLiteral<text>;
    id known = slot.load(std::memory_order_acquire);
    if (known == nullptr) [[unlikely]]
        known = detail::makeLiteral(slot, text.c_str());
    return NSString{{known}};
}

// The path of the user's home directory (+0).
inline NSString homeDirectory() { return NSString{{NSHomeDirectory()}}; }

}  // namespace zelka
