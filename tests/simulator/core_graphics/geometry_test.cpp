#include "simulator/frameworks/core_graphics/geometry.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

void expectRect(CGRect actual, CGRect expected) {
    EXPECT_TRUE(CGRectEqualToRect(actual, expected))
        << actual.origin.x << ' ' << actual.origin.y << ' ' << actual.size.width << ' ' << actual.size.height;
}

TEST(Rects, NegativeSizesCountFromTheOtherCorner) {
    const CGRect r = CGRectMake(10, 20, -4, -6);
    EXPECT_EQ(CGRectGetMinX(r), 6);
    EXPECT_EQ(CGRectGetMaxX(r), 10);
    EXPECT_EQ(CGRectGetMinY(r), 14);
    EXPECT_EQ(CGRectGetMaxY(r), 20);
    EXPECT_EQ(CGRectGetMidX(r), 8);
    EXPECT_EQ(CGRectGetMidY(r), 17);
    EXPECT_EQ(CGRectGetWidth(r), 4);
    EXPECT_EQ(CGRectGetHeight(r), 6);
    EXPECT_TRUE(CGRectEqualToRect(r, CGRectMake(6, 14, 4, 6)));
}

TEST(Rects, IntersectWhereBothAre) {
    expectRect(CGRectIntersection(CGRectMake(0, 0, 10, 10), CGRectMake(5, 6, 10, 10)), CGRectMake(5, 6, 5, 4));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(CGRectMake(0, 0, 1, 1), CGRectMake(5, 0, 1, 1))));
    EXPECT_FALSE(CGRectIsNull(CGRectIntersection(CGRectMake(0, 0, 1, 1), CGRectMake(1, 0, 1, 1))));
    EXPECT_FALSE(CGRectIntersectsRect(CGRectMake(0, 0, 1, 1), CGRectMake(1, 0, 1, 1)));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(CGRectNull, CGRectMake(0, 0, 1, 1))));
}

TEST(Rects, UniteAndContain) {
    expectRect(CGRectUnion(CGRectMake(0, 0, 1, 1), CGRectMake(4, 5, 1, 1)), CGRectMake(0, 0, 5, 6));
    expectRect(CGRectUnion(CGRectNull, CGRectMake(4, 5, 1, 1)), CGRectMake(4, 5, 1, 1));
    EXPECT_TRUE(CGRectContainsPoint(CGRectMake(0, 0, 2, 2), {0, 0}));
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(0, 0, 2, 2), {2, 0}));
    EXPECT_TRUE(CGRectContainsRect(CGRectMake(0, 0, 2, 2), CGRectMake(1, 1, 1, 1)));
    EXPECT_FALSE(CGRectContainsRect(CGRectMake(0, 0, 2, 2), CGRectMake(1, 1, 2, 1)));
}

TEST(Rects, InsetOffsetAndRound) {
    expectRect(CGRectInset(CGRectMake(0, 0, 10, 10), 2, 3), CGRectMake(2, 3, 6, 4));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectMake(0, 0, 10, 10), 6, 0)));
    expectRect(CGRectOffset(CGRectMake(1, 2, 3, 4), 10, 20), CGRectMake(11, 22, 3, 4));
    expectRect(CGRectIntegral(CGRectMake(0.5, -0.5, 1, 1)), CGRectMake(0, -1, 2, 2));
    EXPECT_TRUE(CGRectIsInfinite(CGRectInfinite));
    EXPECT_TRUE(CGRectIsEmpty(CGRectNull));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 1, 0, 5)));
}

TEST(Transforms, ApplyTheLastAddedFirst) {
    CGAffineTransform t = CGAffineTransformMakeTranslation(10, 20);
    t = CGAffineTransformScale(t, 2, 3);
    const CGPoint p = CGPointApplyAffineTransform({1, 1}, t);
    EXPECT_EQ(p.x, 12);
    EXPECT_EQ(p.y, 23);
}

TEST(Transforms, RotateCounterClockwiseWhereYPointsUp) {
    const CGPoint p = CGPointApplyAffineTransform({1, 0}, CGAffineTransformMakeRotation(std::numbers::pi / 2));
    EXPECT_NEAR(p.x, 0, 1e-15);
    EXPECT_NEAR(p.y, 1, 1e-15);
}

TEST(Transforms, InvertUndoes) {
    const CGAffineTransform t{2, 1, -1, 3, 5, 7};
    const CGPoint p = CGPointApplyAffineTransform(CGPointApplyAffineTransform({3, 4}, t), CGAffineTransformInvert(t));
    EXPECT_NEAR(p.x, 3, 1e-12);
    EXPECT_NEAR(p.y, 4, 1e-12);
    const CGAffineTransform flat{1, 1, 1, 1, 0, 0};
    EXPECT_TRUE(CGAffineTransformEqualToTransform(CGAffineTransformInvert(flat), flat));
}

TEST(Transforms, EncloseATurnedRect) {
    const CGRect box =
        CGRectApplyAffineTransform(CGRectMake(0, 0, 2, 1), CGAffineTransformMakeRotation(std::numbers::pi / 2));
    EXPECT_NEAR(CGRectGetMinX(box), -1, 1e-15);
    EXPECT_NEAR(CGRectGetMaxX(box), 0, 1e-15);
    EXPECT_NEAR(CGRectGetMaxY(box), 2, 1e-15);
}

}  // namespace
