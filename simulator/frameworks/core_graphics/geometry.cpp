#include "simulator/frameworks/core_graphics/geometry.h"

#include <limits>

namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kGreatest = std::numeric_limits<CGFloat>::max();

}  // namespace

const CGPoint CGPointZero = {0, 0};
const CGSize CGSizeZero = {0, 0};
const CGRect CGRectZero = {{0, 0}, {0, 0}};
const CGRect CGRectNull = {{kInfinity, kInfinity}, {0, 0}};
const CGRect CGRectInfinite = {{-kGreatest / 2, -kGreatest / 2}, {kGreatest, kGreatest}};
const CGAffineTransform CGAffineTransformIdentity = {1, 0, 0, 1, 0, 0};
