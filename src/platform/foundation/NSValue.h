// Numbers and bytes as objects. Results are unowned (+0); any thread.
#pragma once

#include <cstdint>

#include "src/platform/foundation/NSObject.h"

struct NSNumber : NSObject {
    static NSNumber of(bool value) {
        return zelka::send<NSNumber, "numberWithBool:">(zelka::platformClass<NSNumber>(), value);
    }
    static NSNumber of(std::int32_t value) {
        return zelka::send<NSNumber, "numberWithInt:">(zelka::platformClass<NSNumber>(), value);
    }
    static NSNumber ofInteger(NSInteger value) {
        return zelka::send<NSNumber, "numberWithInteger:">(zelka::platformClass<NSNumber>(), value);
    }
    NSInteger integerValue() const { return zelka::send<NSInteger, "integerValue">(*this); }
    std::int32_t intValue() const { return zelka::send<std::int32_t, "intValue">(*this); }
    bool boolValue() const { return zelka::send<bool, "boolValue">(*this); }
};

namespace zelka {

// Whether the object is a number or text that stands for truth; false for nil and for what has no truth value.
inline bool truthOf(NSObject value) {
    return value.respondsTo(selector<"boolValue">()) && as<NSNumber>(value).boolValue();
}

}  // namespace zelka

struct NSData : NSObject {
    // A copy of the bytes (+0).
    static NSData copyOf(const void* bytes, NSUInteger length) {
        return zelka::send<NSData, "dataWithBytes:length:">(zelka::platformClass<NSData>(), bytes, length);
    }
    // In bytes.
    NSUInteger length() const { return zelka::send<NSUInteger, "length">(*this); }
};
