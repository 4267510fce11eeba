// Texts of any UTF-16 code units, well-formed or not.
#pragma once

#import <Foundation/Foundation.h>

#include <cstring>
#include <string>

#include "fuzz/phone/target.h"

namespace fuzz {

// Two bytes a unit, the low one first; an odd byte at the end is dropped.
inline std::u16string unitsOf(Bytes input) {
    std::u16string units(input.size() / 2, u'\0');
    if (!units.empty()) std::memcpy(units.data(), input.data(), units.size() * 2);
    return units;
}

inline NSString* string(const std::u16string& units) {
    return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(units.data()) length:units.size()];
}

inline std::u16string unitsOf(NSString* text) {
    std::u16string units([text length], u'\0');
    if (!units.empty()) [text getCharacters:reinterpret_cast<unichar*>(units.data())];
    return units;
}

// For messages: "U+0041 U+D83D".
inline std::string spelled(const std::u16string& units) {
    std::string result;
    char unit[16];
    for (const char16_t c : units) {
        snprintf(unit, sizeof unit, "%sU+%04X", result.empty() ? "" : " ", static_cast<unsigned>(c));
        result += unit;
    }
    return result;
}

// The name of what `action` raises; nil when it raises nothing.
template <class Action>
NSString* raisedBy(Action action) {
    @try {
        action();
    } @catch (NSException* exception) {
        return [exception name];
    }
    return nil;
}

}  // namespace fuzz
