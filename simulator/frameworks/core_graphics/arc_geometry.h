// The two ways CoreGraphics describes an arc, worked out once for contexts and paths.
#pragma once

#include <cmath>
#include <numbers>

#include "simulator/frameworks/core_graphics/geometry.h"

namespace core_graphics {

/// Radians from start to end in the asked direction: positive counter-clockwise (y up), at most one turn.
inline CGFloat arcSweep(CGFloat start, CGFloat end, bool clockwise) {
    constexpr CGFloat turn = 2 * std::numbers::pi;
    const CGFloat sweep = end - start;
    if (std::abs(sweep) >= turn - 1e-9) {
        return clockwise ? -turn : turn;
    }
    if (clockwise) {
        return sweep > 0 ? sweep - turn : sweep;
    }
    return sweep < 0 ? sweep + turn : sweep;
}

struct TangentArc {
    bool exists;  // false: draw a line to the corner instead
    CGPoint center;
    CGFloat start, end;
    bool clockwise;
};

/// The arc that rounds the corner `from` - `corner` - `to`.
inline TangentArc tangentArc(CGPoint from, CGPoint corner, CGPoint to, CGFloat radius) {
    const CGPoint a{from.x - corner.x, from.y - corner.y}, b{to.x - corner.x, to.y - corner.y};
    const CGFloat lengths = std::hypot(a.x, a.y) * std::hypot(b.x, b.y);
    const CGFloat cross = a.x * b.y - a.y * b.x;
    if (!(radius > 0) || std::abs(cross) <= 1e-9 * lengths) {
        return {};
    }
    const CGFloat sine = std::abs(cross) / lengths, cosine = (a.x * b.x + a.y * b.y) / lengths;
    const CGFloat tangent = radius * (1 + cosine) / sine;  // from the corner to either point of contact
    const CGFloat side = cross > 0 ? 1 : -1;
    const CGPoint ua{a.x / std::hypot(a.x, a.y), a.y / std::hypot(a.x, a.y)};
    const CGPoint ub{b.x / std::hypot(b.x, b.y), b.y / std::hypot(b.x, b.y)};
    const CGPoint center{corner.x + ua.x * tangent - ua.y * side * radius,
                         corner.y + ua.y * tangent + ua.x * side * radius};
    const CGPoint first{corner.x + ua.x * tangent, corner.y + ua.y * tangent};
    const CGPoint last{corner.x + ub.x * tangent, corner.y + ub.y * tangent};
    return {true, center, std::atan2(first.y - center.y, first.x - center.x),
            std::atan2(last.y - center.y, last.x - center.x), cross > 0};
}

}  // namespace core_graphics
