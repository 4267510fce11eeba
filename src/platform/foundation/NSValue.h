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

struct NSData : NSObject {
    // A copy of the bytes (+0).
    static NSData copyOf(const void* bytes, NSUInteger length) {
        return zelka::send<NSData, "dataWithBytes:length:">(zelka::platformClass<NSData>(), bytes, length);
    }
    // In bytes.
    NSUInteger length() const { return zelka::send<NSUInteger, "length">(*this); }
};
