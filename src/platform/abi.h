// The scalar types and geometry structs that cross the border to the platform, with the widths each ABI gives them.
#pragma once

#include <cstdint>

#if defined(__APPLE__) && defined(__LP64__)
using BOOL = bool;  // 64-bit phones and the 64-bit phone simulator
#elif defined(__APPLE__)
using BOOL = signed char;  // 32-bit phones
#else
using BOOL = unsigned char;  // the GNU runtime
#endif

#if defined(__LP64__)
using CGFloat = double;
#else
using CGFloat = float;
#endif

using NSInteger = std::intptr_t;
using NSUInteger = std::uintptr_t;

struct CGPoint {
    CGFloat x, y;
};

struct CGSize {
    CGFloat width, height;
};

struct CGRect {
    CGPoint origin;
    CGSize size;
};

struct NSRange {
    NSUInteger location, length;
};

namespace zelka {

constexpr CGRect makeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) { return {{x, y}, {width, height}}; }

// The location that a search without a result returns (NSNotFound, which is NSIntegerMax).
constexpr NSUInteger kNotFound = static_cast<NSUInteger>(INTPTR_MAX);

}  // namespace zelka
