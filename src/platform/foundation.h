// Foundation's classes, as far as the library uses them. Results are unowned (+0) unless they say Owned.
#pragma once

#include "src/platform/encoding.h"
#include "src/platform/object.h"
#include "src/platform/send.h"

struct NSString;
struct NSArray;
struct NSDictionary;

// Messages that every object answers.
NSString descriptionOf(NSObject object);
inline bool isKindOf(NSObject object, Class cls) { return send<bool, "isKindOfClass:">(object, cls); }
inline bool respondsTo(NSObject object, SEL selector) { return send<bool, "respondsToSelector:">(object, selector); }

// Runs the selector on the main thread; with `wait`, returns when it has finished (at once when this is the main
// thread).
inline void performOnMainThread(NSObject object, SEL selector, bool wait) {
    send<void, "performSelectorOnMainThread:withObject:waitUntilDone:">(object, selector, NSObject{}, wait);
}

// NSStringCompareOptions
constexpr NSUInteger kCaseInsensitiveSearch = 1;
constexpr NSUInteger kLiteralSearch = 2;

struct NSString : NSObject {
    // A text of those UTF-8 bytes up to the NUL (+0); nil when they are not UTF-8.
    static NSString fromUTF8(const char* utf8) {
        return send<NSString, "stringWithUTF8String:">(platformClass<"NSString">(), utf8);
    }

    // A text of those UTF-16 code units, lone surrogates included (+0).
    static NSString fromCharacters(const std::uint16_t* characters, NSUInteger length) {
        return send<NSString, "stringWithCharacters:length:">(platformClass<"NSString">(), characters, length);
    }

    // The text in UTF-8, living as long as the innermost autorelease pool; nullptr when it cannot be expressed.
    const char* utf8() const { return send<const char*, "UTF8String">(*this); }
    NSUInteger length() const { return send<NSUInteger, "length">(*this); }
    std::uint16_t characterAt(NSUInteger index) const { return send<std::uint16_t, "characterAtIndex:">(*this, index); }
    // Copies the code units of the range, which must lie in the text.
    void getCharacters(std::uint16_t* buffer, NSRange range) const {
        send<void, "getCharacters:range:">(*this, buffer, range);
    }
    // Raise a range error when the text is shorter.
    NSString substringToIndex(NSUInteger end) const { return send<NSString, "substringToIndex:">(*this, end); }
    NSString substringWithRange(NSRange range) const { return send<NSString, "substringWithRange:">(*this, range); }
    // Both go code unit by code unit: otherwise a combining mark behind a character would hide it.
    NSRange rangeOfString(NSString wanted, NSUInteger options = 0) const {
        return send<NSRange, "rangeOfString:options:">(*this, wanted, options | kLiteralSearch);
    }
    bool contains(NSString wanted, NSUInteger options = 0) const {
        return rangeOfString(wanted, options).location != kNotFound;
    }
    NSArray componentsSeparatedBy(NSString separator) const;
    NSArray componentsSeparatedByAnyOf(struct NSCharacterSet separators) const;
    NSString replacing(NSString wanted, NSString replacement) const {
        return send<NSString, "stringByReplacingOccurrencesOfString:withString:options:range:">(
            *this, wanted, replacement, kLiteralSearch, NSRange{0, length()});
    }
    NSString appending(NSString tail) const { return send<NSString, "stringByAppendingString:">(*this, tail); }
    NSString appendingPathComponent(NSString component) const {
        return send<NSString, "stringByAppendingPathComponent:">(*this, component);
    }
    NSString uppercase() const { return send<NSString, "uppercaseString">(*this); }
    bool equals(NSString other) const { return send<bool, "isEqualToString:">(*this, other); }
    NSInteger caseInsensitiveCompare(NSString other) const {
        return send<NSInteger, "caseInsensitiveCompare:">(*this, other);
    }
    bool hasPrefix(NSString prefix) const { return send<bool, "hasPrefix:">(*this, prefix); }
    float floatValue() const { return send<float, "floatValue">(*this); }
    NSInteger integerValue() const { return send<NSInteger, "integerValue">(*this); }
};

inline NSString descriptionOf(NSObject object) { return send<NSString, "description">(object); }

namespace platform {
template <FixedString text>
inline constinit std::atomic<id> cachedLiteral{nullptr};

// A text that lives as long as the process (+0).
inline id makeLiteral(std::atomic<id>& slot, const char* utf8) {
    id made = send<NSString, "initWithUTF8String:">(send<NSString, "alloc">(platformClass<"NSString">()), utf8).object;
    id expected = nullptr;
    if (slot.compare_exchange_strong(expected, made)) return made;
    releaseObject(made);
    return expected;
}
}  // namespace platform

// The constant text, made once per process. Any thread.
template <FixedString text>
inline NSString literal() {
    auto& slot = platform::cachedLiteral<text>;
    id known = slot.load(std::memory_order_acquire);
    if (known == nullptr) [[unlikely]]
        known = platform::makeLiteral(slot, text.c_str());
    return NSString{{known}};
}

struct NSMutableString : NSString {
    static Owned<NSMutableString> create(NSUInteger capacity = 0) {
        auto allocated = send<NSMutableString, "alloc">(platformClass<"NSMutableString">());
        return Owned<NSMutableString>::adopt(send<NSMutableString, "initWithCapacity:">(allocated, capacity));
    }
    void appendString(NSString tail) const { send<void, "appendString:">(*this, tail); }
};

struct NSCharacterSet : NSObject {
    static NSCharacterSet alphanumeric() {
        return send<NSCharacterSet, "alphanumericCharacterSet">(platformClass<"NSCharacterSet">());
    }
    NSCharacterSet inverted() const { return send<NSCharacterSet, "invertedSet">(*this); }
};

struct NSArray : NSObject {
    NSUInteger count() const { return send<NSUInteger, "count">(*this); }
    template <ObjectHandle T = NSObject>
    T at(NSUInteger index) const {
        return send<T, "objectAtIndex:">(*this, index);
    }
    template <ObjectHandle T = NSObject>
    T first() const {
        return send<T, "firstObject">(*this);
    }
    NSString joinedBy(NSString separator) const {
        return send<NSString, "componentsJoinedByString:">(*this, separator);
    }
};

inline NSArray NSString::componentsSeparatedBy(NSString separator) const {
    return send<NSArray, "componentsSeparatedByString:">(*this, separator);
}
inline NSArray NSString::componentsSeparatedByAnyOf(NSCharacterSet separators) const {
    return send<NSArray, "componentsSeparatedByCharactersInSet:">(*this, separators);
}

struct NSNumber : NSObject {
    static NSNumber of(bool value) { return send<NSNumber, "numberWithBool:">(platformClass<"NSNumber">(), value); }
    static NSNumber of(std::int32_t value) {
        return send<NSNumber, "numberWithInt:">(platformClass<"NSNumber">(), value);
    }
    static NSNumber ofInteger(NSInteger value) {
        return send<NSNumber, "numberWithInteger:">(platformClass<"NSNumber">(), value);
    }
    NSInteger integerValue() const { return send<NSInteger, "integerValue">(*this); }
    std::int32_t intValue() const { return send<std::int32_t, "intValue">(*this); }
    bool boolValue() const { return send<bool, "boolValue">(*this); }
};

struct NSData : NSObject {
    // A copy of the bytes (+0).
    static NSData copyOf(const void* bytes, NSUInteger length) {
        return send<NSData, "dataWithBytes:length:">(platformClass<"NSData">(), bytes, length);
    }
    NSUInteger length() const { return send<NSUInteger, "length">(*this); }
};

struct NSDictionary : NSObject {
    NSUInteger count() const { return send<NSUInteger, "count">(*this); }
    template <ObjectHandle T = NSObject>
    T objectFor(NSObject key) const {
        return send<T, "objectForKey:">(*this, key);
    }
    // Whether the property list was written; atomically means through a temporary file.
    bool writeToFile(NSString path, bool atomically) const {
        return send<bool, "writeToFile:atomically:">(*this, path, atomically);
    }
};

struct NSMutableDictionary : NSDictionary {
    static Owned<NSMutableDictionary> create() {
        return Owned<NSMutableDictionary>::adopt(send<NSMutableDictionary, "init">(
            send<NSMutableDictionary, "alloc">(platformClass<"NSMutableDictionary">())));
    }
    // The property list in the file; nothing when it cannot be read as a dictionary.
    static Owned<NSMutableDictionary> fromFile(NSString path) {
        auto allocated = send<NSMutableDictionary, "alloc">(platformClass<"NSMutableDictionary">());
        return Owned<NSMutableDictionary>::adopt(send<NSMutableDictionary, "initWithContentsOfFile:">(allocated, path));
    }
    void setObject(NSObject object, NSObject key) const { send<void, "setObject:forKey:">(*this, object, key); }
    void removeAllObjects() const { send<void, "removeAllObjects">(*this); }
};

// An immutable copy of the object (+1).
template <ObjectHandle T>
Owned<T> copyOf(T object) {
    return Owned<T>::adopt(send<T, "copy">(object));
}

struct NSBundle : NSObject {
    static NSBundle main() { return send<NSBundle, "mainBundle">(platformClass<"NSBundle">()); }
    NSString identifier() const { return send<NSString, "bundleIdentifier">(*this); }
};

struct NSFileManager : NSObject {
    static NSFileManager shared() { return send<NSFileManager, "defaultManager">(platformClass<"NSFileManager">()); }
    bool exists(NSString path) const { return send<bool, "fileExistsAtPath:">(*this, path); }
    // The same, with the question whether it is a directory left unasked.
    bool existsOfAnyKind(NSString path) const {
        return send<bool, "fileExistsAtPath:isDirectory:">(*this, path, static_cast<BOOL*>(nullptr));
    }
};

struct NSNotificationCenter : NSObject {
    static NSNotificationCenter shared() {
        return send<NSNotificationCenter, "defaultCenter">(platformClass<"NSNotificationCenter">());
    }
    void post(NSString name) const { send<void, "postNotificationName:object:">(*this, name, NSObject{}); }
    void addObserver(NSObject observer, SEL selector, NSString name) const {
        send<void, "addObserver:selector:name:object:">(*this, observer, selector, name, NSObject{});
    }
    void removeObserver(NSObject observer) const { send<void, "removeObserver:">(*this, observer); }
};

struct NSBlockOperation : NSObject {
    static NSBlockOperation withBlock(NSObject block) {
        return send<NSBlockOperation, "blockOperationWithBlock:">(platformClass<"NSBlockOperation">(), block);
    }
};

struct NSOperationQueue : NSObject {
    static Owned<NSOperationQueue> create() {
        return Owned<NSOperationQueue>::adopt(
            send<NSOperationQueue, "init">(send<NSOperationQueue, "alloc">(platformClass<"NSOperationQueue">())));
    }
    void add(NSBlockOperation operation) const { send<void, "addOperation:">(*this, operation); }
};

// An autorelease pool that is drained at the end of its scope.
class AutoreleasePool {
  public:
    AutoreleasePool() : pool_(send<NSObject, "init">(send<NSObject, "alloc">(platformClass<"NSAutoreleasePool">()))) {}
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;
    ~AutoreleasePool() { send<void, "drain">(pool_); }

  private:
    NSObject pool_;
};

extern "C" id NSHomeDirectory();
extern "C" id NSStringFromClass(Class cls);

// The user's home directory as a path text (+0).
inline NSString homeDirectory() { return NSString{{NSHomeDirectory()}}; }
// The name of the object's class (+0).
inline NSString classNameOf(NSObject object) {
    return object ? NSString{{NSStringFromClass(send<Class, "class">(object))}} : NSString{};
}
