// Objective-C type encodings, derived from C++ types. The letters are those of the runtime's public documentation.
#pragma once

#include <concepts>
#include <type_traits>

#include "src/platform/abi.h"
#include "src/platform/fixed_string.h"
#include "src/platform/runtime.h"

namespace zelka::detail {

// The type by which a C++ type crosses the border: bool travels as BOOL, everything else as itself.
template <class T>
using Abi = std::conditional_t<std::is_same_v<T, bool>, BOOL, T>;

// Structs name their fields' encodings; everything else is found by kind and size.
template <class T>
struct StructEncoding;

template <class T>
concept EncodedStruct = requires {
    StructEncoding<T>::value;
};

template <class T>
constexpr auto integerEncoding() {
    constexpr bool isSigned = std::is_signed_v<T>;
    if constexpr (sizeof(T) == 1) {
        return isSigned ? FixedString("c") : FixedString("C");
    } else if constexpr (sizeof(T) == 2) {
        return isSigned ? FixedString("s") : FixedString("S");
    } else if constexpr (sizeof(T) == 4) {
        return isSigned ? FixedString("i") : FixedString("I");
    } else {
        return isSigned ? FixedString("q") : FixedString("Q");
    }
}

// The encoding of one type.
template <class T>
constexpr auto encodingOf() {
    if constexpr (std::is_void_v<T>) {
        return FixedString("v");
    } else if constexpr (EncodedStruct<T>) {
        return StructEncoding<T>::value;
    } else if constexpr (ObjectHandle<T> || std::same_as<T, id>) {
        return FixedString("@");
    } else if constexpr (std::same_as<T, Class>) {
        return FixedString("#");
    } else if constexpr (std::same_as<T, SEL>) {
        return FixedString(":");
    } else if constexpr (std::same_as<T, bool>) {
        return FixedString("B");
    } else if constexpr (std::same_as<T, float>) {
        return FixedString("f");
    } else if constexpr (std::same_as<T, double>) {
        return FixedString("d");
    } else if constexpr (std::integral<T>) {
        return integerEncoding<T>();
    } else if constexpr (std::same_as<T, const char*>) {
        return FixedString("r*");
    } else if constexpr (std::is_pointer_v<T>) {
        return FixedString("^v");
    } else {
        static_assert(std::is_void_v<T>, "this type has no encoding: add a StructEncoding for it");
    }
}

template <>
struct StructEncoding<CGPoint> {
    static constexpr auto value =
        FixedString("{CGPoint=") + encodingOf<CGFloat>() + encodingOf<CGFloat>() + FixedString("}");
};

template <>
struct StructEncoding<CGSize> {
    static constexpr auto value =
        FixedString("{CGSize=") + encodingOf<CGFloat>() + encodingOf<CGFloat>() + FixedString("}");
};

template <>
struct StructEncoding<CGRect> {
    static constexpr auto value =
        FixedString("{CGRect=") + encodingOf<CGPoint>() + encodingOf<CGSize>() + FixedString("}");
};

template <>
struct StructEncoding<NSRange> {
    static constexpr auto value =
        FixedString("{_NSRange=") + encodingOf<NSUInteger>() + encodingOf<NSUInteger>() + FixedString("}");
};

template <class T>
inline constexpr auto typeEncoding = encodingOf<T>();

// The encoding of a method with that result and those arguments after the receiver and the selector.
template <class Result, class... Arguments>
inline constexpr auto methodEncoding = ((encodingOf<Abi<Result>>() + FixedString("@:")) + ... +
                                        encodingOf<Abi<Arguments>>());

// Whether two method encodings describe calls that pass the same things in the same places. Frame offsets, qualifiers,
// struct names, signedness and the spelling of one-byte truth values may differ: runtimes and compilers disagree on
// them.
bool encodingsAgree(const char* left, const char* right);

}  // namespace zelka::detail
