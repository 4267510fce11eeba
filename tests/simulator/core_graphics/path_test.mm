#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>
#include <string>

#include "tests/simulator/core_graphics/canvas.h"
#include "tests/support/parameter_name.h"

namespace {

constexpr double pi = std::numbers::pi;

// Curves are drawn as short lines, some hundredths of a pixel inside the curve.
void expectCircle(const Canvas& canvas, double radius) { EXPECT_NEAR(canvas.area(), pi * radius * radius, radius / 5); }

// A pie slice between two angles.
void fillSlice(const Canvas& canvas, double start, double end, int clockwise) {
    canvas.fill(red);
    CGContextMoveToPoint(canvas, 20, 20);
    CGContextAddArc(canvas, 20, 20, 18, start, end, clockwise);
    CGContextClosePath(canvas);
    CGContextFillPath(canvas);
}

TEST(Arcs, RunCounterClockwiseWhereYPointsUp) {
    Canvas canvas(40, 40);
    fillSlice(canvas, 0, pi / 2, 0);
    EXPECT_EQ(canvas.at(26, 13), red);  // the quarter on the upper right
    EXPECT_EQ(canvas.at(26, 26), clear);
    EXPECT_NEAR(canvas.area(), pi * 18 * 18 / 4, 2);
}

TEST(Arcs, RunClockwiseTheLongWay) {
    Canvas canvas(40, 40);
    fillSlice(canvas, 0, pi / 2, 1);
    EXPECT_EQ(canvas.at(26, 13), clear);
    EXPECT_EQ(canvas.at(26, 26), red);
    EXPECT_NEAR(canvas.area(), pi * 18 * 18 * 3 / 4, 3.5);
}

TEST(Arcs, LookReversedWhereYPointsDown) {
    Canvas canvas(40, 40);
    canvas.flip();
    fillSlice(canvas, 0, pi / 2, 0);
    EXPECT_EQ(canvas.at(26, 13), clear);
    EXPECT_EQ(canvas.at(26, 26), red);
}

TEST(Arcs, WholeTurnsAreWholeCirclesEitherWay) {
    for (int clockwise : {0, 1}) {
        for (double turn : {2 * pi, -2 * pi, 6 * pi}) {
            Canvas canvas(40, 40);
            canvas.fill(red);
            CGContextBeginPath(canvas);
            CGContextAddArc(canvas, 20, 20, 20, 0, turn, clockwise);
            CGContextFillPath(canvas);
            expectCircle(canvas, 20);
        }
    }
}

TEST(Arcs, BeginWithALineFromThePath) {
    Canvas canvas(40, 40);
    canvas.fill(red);
    CGContextMoveToPoint(canvas, 0, 0);
    CGContextAddArc(canvas, 20, 20, 10, 0, pi / 2, 0);
    EXPECT_NEAR(CGContextGetPathCurrentPoint(canvas).x, 20, 1e-9);
    EXPECT_NEAR(CGContextGetPathCurrentPoint(canvas).y, 30, 1e-9);
    CGContextFillPath(canvas);
    EXPECT_EQ(canvas.at(20, 25), red);  // between the origin and the arc's start
}

TEST(TangentArcs, FourMakeACircle) {
    Canvas canvas(80, 80), ellipse(80, 80);
    canvas.fill(red);
    ellipse.fill(red);
    CGContextSaveGState(canvas);
    CGContextScaleCTM(canvas, 40, 40);
    CGContextMoveToPoint(canvas, 2, 1);
    CGContextAddArcToPoint(canvas, 2, 2, 1, 2, 1);
    CGContextAddArcToPoint(canvas, 0, 2, 0, 1, 1);
    CGContextAddArcToPoint(canvas, 0, 0, 1, 0, 1);
    CGContextAddArcToPoint(canvas, 2, 0, 2, 1, 1);
    CGContextClosePath(canvas);
    CGContextRestoreGState(canvas);  // the path stays
    CGContextFillPath(canvas);
    CGContextFillEllipseInRect(ellipse, CGRectMake(0, 0, 80, 80));
    for (size_t y = 0; y < 80; ++y) {
        for (size_t x = 0; x < 80; ++x) {
            EXPECT_NEAR(canvas.at(x, y).a, ellipse.at(x, y).a, 3) << x << ' ' << y;
        }
    }
    expectCircle(canvas, 40);
}

TEST(TangentArcs, RoundACornerAndGoNoFurther) {
    Canvas canvas(40, 40);
    canvas.fill(red);
    CGContextMoveToPoint(canvas, 0, 0);
    CGContextAddArcToPoint(canvas, 40, 0, 40, 40, 10);
    EXPECT_NEAR(CGContextGetPathCurrentPoint(canvas).x, 40, 1e-9);
    EXPECT_NEAR(CGContextGetPathCurrentPoint(canvas).y, 10, 1e-9);
    CGContextAddLineToPoint(canvas, 40, 40);
    CGContextAddLineToPoint(canvas, 0, 40);
    CGContextFillPath(canvas);
    EXPECT_NEAR(canvas.area(), 1600 - (1 - pi / 4) * 100, 1);
    EXPECT_EQ(canvas.at(39, 39), clear);
    EXPECT_EQ(canvas.at(30, 30), red);
}

struct Degenerate {
    const char* name;
    double x1, y1, x2, y2, radius;
};

void PrintTo(const Degenerate& arc, std::ostream* out) { *out << arc.name; }

class DegenerateTangentArcs : public testing::TestWithParam<Degenerate> {};

INSTANTIATE_TEST_SUITE_P(All, DegenerateTangentArcs,
                         testing::Values(Degenerate{"CornerWhereThePathIs", 10, 10, 20, 10, 5},
                                         Degenerate{"EndAtTheCorner", 20, 10, 20, 10, 5},
                                         Degenerate{"StraightOn", 20, 10, 30, 10, 5},
                                         Degenerate{"StraightBack", 20, 10, 12, 10, 5},
                                         Degenerate{"NoRadius", 20, 10, 20, 20, 0},
                                         Degenerate{"NearlyStraight", 1e-7, 1e-7, 0, 0, 5}),
                         test::ParameterName());

TEST_P(DegenerateTangentArcs, AreALineToTheCorner) {
    Canvas canvas(4, 4);
    const Degenerate d = GetParam();
    CGContextMoveToPoint(canvas, 10, 10);
    CGContextAddArcToPoint(canvas, d.x1, d.y1, d.x2, d.y2, d.radius);
    EXPECT_NEAR(CGContextGetPathCurrentPoint(canvas).x, d.x1, 1e-9);
    EXPECT_NEAR(CGContextGetPathCurrentPoint(canvas).y, d.y1, 1e-9);
}

TEST(ContextPaths, NeedACurrentPoint) {
    Canvas canvas(4, 4);
    testing::internal::CaptureStderr();
    CGContextAddLineToPoint(canvas, 1, 1);
    CGContextAddArcToPoint(canvas, 1, 1, 2, 2, 1);
    CGContextClosePath(canvas);
    CGContextClip(canvas);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "<Error>: CGContextAddLineToPoint: no current point.\n"
                                                      "<Error>: CGContextAddArcToPoint: no current point.\n"
                                                      "<Error>: CGContextClosePath: no current point.\n"
                                                      "<Error>: doClip: empty path.\n");
    EXPECT_TRUE(CGContextIsPathEmpty(canvas));
}

TEST(ContextPaths, ContinueAtTheStartOfAClosedSubpath) {
    Canvas canvas(4, 4);
    CGContextMoveToPoint(canvas, 1, 2);
    CGContextAddLineToPoint(canvas, 3, 3);
    CGContextClosePath(canvas);
    EXPECT_TRUE(CGPointEqualToPoint(CGContextGetPathCurrentPoint(canvas), {1, 2}));
    CGContextTranslateCTM(canvas, 1, 1);
    EXPECT_TRUE(CGPointEqualToPoint(CGContextGetPathCurrentPoint(canvas), {0, 1}));
}

TEST(ContextPaths, FillByWindingOrEvenOdd) {
    for (bool evenOdd : {false, true}) {
        Canvas canvas(8, 8);
        canvas.fill(red);
        CGContextAddRect(canvas, CGRectMake(0, 0, 8, 8));
        CGContextAddRect(canvas, CGRectMake(2, 2, 4, 4));
        evenOdd ? CGContextEOFillPath(canvas) : CGContextFillPath(canvas);
        EXPECT_DOUBLE_EQ(canvas.area(), evenOdd ? 48 : 64);
        EXPECT_TRUE(CGContextIsPathEmpty(canvas));
    }
}

TEST(ContextPaths, StrokeWithTheLineWidth) {
    Canvas canvas(8, 8);
    CGContextSetRGBStrokeColor(canvas, 0, 0, 1, 1);
    CGContextSetLineWidth(canvas, 2);
    CGContextMoveToPoint(canvas, 0, 4);
    CGContextAddLineToPoint(canvas, 8, 4);
    CGContextStrokePath(canvas);
    EXPECT_DOUBLE_EQ(canvas.area(), 16);
    EXPECT_EQ(canvas.at(0, 3), blue);
    EXPECT_EQ(canvas.at(0, 5), clear);
}

TEST(Clips, HaveSmoothEdgesAndIntersect) {
    Canvas canvas(40, 40);
    CGContextAddEllipseInRect(canvas, CGRectMake(0, 0, 40, 40));
    CGContextClip(canvas);
    canvas.fillRect(red, CGRectMake(0, 0, 40, 40));
    expectCircle(canvas, 20);
    int smooth = 0;
    for (size_t y = 0; y < 40; ++y) {
        for (size_t x = 0; x < 40; ++x) {
            const Rgba p = canvas.at(x, y);
            EXPECT_EQ(p.r, p.a);
            smooth += p.a > 0 && p.a < 255 ? 1 : 0;
        }
    }
    EXPECT_GT(smooth, 80);
    CGContextClipToRect(canvas, CGRectMake(0, 0, 20, 40));
    canvas.fillRect(blue, CGRectMake(0, 0, 40, 40));
    EXPECT_EQ(canvas.at(19, 20), blue);
    EXPECT_EQ(canvas.at(20, 20), red);
    EXPECT_EQ(CGContextGetClipBoundingBox(canvas).size.width, 20);
}

TEST(Clips, CanLeaveAHole) {
    Canvas canvas(8, 8);
    CGContextAddRect(canvas, CGRectMake(0, 0, 8, 8));
    CGContextAddRect(canvas, CGRectMake(2, 2, 4, 4));
    CGContextEOClip(canvas);
    canvas.fillRect(red, CGRectMake(0, 0, 8, 8));
    EXPECT_DOUBLE_EQ(canvas.area(), 48);
}

std::string elements(CGPathRef path) {
    std::string text;
    CGPathApply(path, &text, [](void* info, const CGPathElement* element) {
        constexpr const char* names[] = {"M", "L", "Q", "C", "Z"};
        constexpr int counts[] = {1, 1, 2, 3, 0};
        std::string& out = *static_cast<std::string*>(info);
        out += names[element->type];
        for (int i = 0; i < counts[element->type]; ++i) {
            out += ' ' + std::to_string(int(element->points[i].x)) + ',' + std::to_string(int(element->points[i].y));
        }
        out += ' ';
    });
    return text;
}

TEST(Paths, KeepTheirElementsInOrder) {
    const CGMutablePathRef path = CGPathCreateMutable();
    EXPECT_TRUE(CGPathIsEmpty(path));
    EXPECT_TRUE(CGRectIsNull(CGPathGetBoundingBox(path)));
    CGPathMoveToPoint(path, nullptr, 1, 2);
    CGPathAddLineToPoint(path, nullptr, 3, 4);
    CGPathAddQuadCurveToPoint(path, nullptr, 10, 6, 7, 8);
    CGPathAddCurveToPoint(path, nullptr, 1, 1, 2, 2, 3, 3);
    CGPathCloseSubpath(path);
    EXPECT_EQ(elements(path), "M 1,2 L 3,4 Q 10,6 7,8 C 1,1 2,2 3,3 Z ");
    EXPECT_TRUE(CGRectEqualToRect(CGPathGetBoundingBox(path), CGRectMake(1, 1, 9, 7)));
    EXPECT_TRUE(CGPointEqualToPoint(CGPathGetCurrentPoint(path), {1, 2}));
    const CGMutablePathRef copy = CGPathCreateMutableCopy(path);
    EXPECT_TRUE(CGPathEqualToPath(path, copy));
    const CGAffineTransform moved = CGAffineTransformMakeTranslation(10, 0);
    CGPathAddPath(copy, &moved, copy);
    EXPECT_FALSE(CGPathEqualToPath(path, copy));
    EXPECT_EQ(elements(copy), elements(path) + "M 11,2 L 13,4 Q 20,6 17,8 C 11,1 12,2 13,3 Z ");
    CGPathRelease(copy);
    CGPathRelease(path);
}

TEST(Paths, NeedACurrentPoint) {
    const CGMutablePathRef path = CGPathCreateMutable();
    testing::internal::CaptureStderr();
    CGPathAddLineToPoint(path, nullptr, 1, 1);
    CGPathAddLineToPoint(nullptr, nullptr, 1, 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "<Error>: CGPathAddLineToPoint: no current point.\n"
                                                      "<Error>: CGPathAddLineToPoint: invalid path 0x0\n");
    EXPECT_TRUE(CGPathIsEmpty(path));
    CGPathRelease(path);
}

TEST(Paths, FillLikeTheContextsOwn) {
    const CGMutablePathRef path = CGPathCreateMutable();
    CGPathAddEllipseInRect(path, nullptr, CGRectMake(0, 0, 40, 40));
    CGPathAddArc(path, nullptr, 20, 20, 10, 0, 2 * pi, true);
    Canvas canvas(40, 40);
    canvas.fill(red);
    CGContextAddPath(canvas, path);
    CGContextFillPath(canvas);
    EXPECT_NEAR(canvas.area(), pi * (400 - 100), 4);  // the arc runs the other way round: a hole
    CGPathRelease(path);
}

TEST(Paths, TangentArcsFollowTheTransformation) {
    const CGMutablePathRef path = CGPathCreateMutable();
    const CGAffineTransform twice = CGAffineTransformMakeScale(2, 2);
    CGPathMoveToPoint(path, &twice, 0, 0);
    CGPathAddArcToPoint(path, &twice, 20, 0, 20, 20, 5);
    EXPECT_NEAR(CGPathGetCurrentPoint(path).x, 40, 1e-9);
    EXPECT_NEAR(CGPathGetCurrentPoint(path).y, 10, 1e-9);
    CGPathRelease(path);
}

TEST(Paths, RoundedRectanglesHaveQuartersOfAnEllipseForCorners) {
    const CGPathRef path = CGPathCreateWithRoundedRect(CGRectMake(0, 0, 40, 40), 20, 10, nullptr);
    Canvas canvas(40, 40);
    canvas.fill(red);
    CGContextAddPath(canvas, path);
    CGContextFillPath(canvas);
    EXPECT_NEAR(canvas.area(), 40 * 20 + pi * 20 * 10, 4);
    EXPECT_EQ(canvas.at(1, 1), clear);
    EXPECT_EQ(canvas.at(20, 1), red);
    EXPECT_EQ(canvas.at(1, 12), red);
    CGPathRelease(path);
}

TEST(Paths, RoundedRectanglesFollowTheTransformation) {
    const CGAffineTransform twice = CGAffineTransformMakeScale(2, 2);
    const CGPathRef path = CGPathCreateWithRoundedRect(CGRectMake(5, 10, 20, 10), 4, 4, &twice);
    EXPECT_TRUE(CGRectEqualToRect(CGPathGetBoundingBox(path), CGRectMake(10, 20, 40, 20)));
    CGPathRelease(path);
}

TEST(PathsDeathTest, ACornerBeyondHalfOfTheRectangleEndsTheProcess) {
    EXPECT_DEATH(CGPathCreateWithRoundedRect(CGRectMake(0, 0, 10, 40), 6, 6, nullptr),
                 "CGPathAddRoundedRect: a corner");
    EXPECT_DEATH(CGPathCreateWithRoundedRect(CGRectMake(0, 0, 10, 40), -1, 1, nullptr),
                 "CGPathAddRoundedRect: a corner");
}

}  // namespace
