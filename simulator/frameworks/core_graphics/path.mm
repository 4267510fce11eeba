#include "simulator/frameworks/core_graphics/path.h"

#include <cstdlib>

#include "simulator/frameworks/core_graphics/arc_geometry.h"
#import "simulator/frameworks/core_graphics/objects.h"

using core_graphics::object;

@implementation CGPathObject
- (instancetype)init {
    self = [super init];
    if (self != nil) {
        nodes = new std::vector<CGPathNode>;
    }
    return self;
}
- (void)dealloc {
    delete nodes;
    [super dealloc];
}
@end

static CGPoint mapped(const CGAffineTransform* m, CGPoint p) {
    return m == nullptr ? p : CGPointApplyAffineTransform(p, *m);
}

static void append(CGPathRef path, CGPathElementType type, std::initializer_list<CGPoint> points) {
    CGPathNode node{type, {}};
    std::copy(points.begin(), points.end(), node.points);
    CGPathObject* target = object(path);
    target->nodes->push_back(node);
    if (type == kCGPathElementMoveToPoint) {
        target->subpathStart = node.points[0];
    }
    target->currentPoint = points.size() == 0 ? target->subpathStart : *(points.end() - 1);
}

// Whether an addition that continues a subpath may go on.
static bool continues(CGPathRef path, const char* function) {
    if (path == nullptr) {
        core_graphics::logError(function, "invalid path 0x0");
        return false;
    }
    if (object(path)->nodes->empty()) {
        core_graphics::logError(function, "no current point.");
        return false;
    }
    return true;
}

static bool starts(CGPathRef path, const char* function) {
    if (path == nullptr) {
        core_graphics::logError(function, "invalid path 0x0");
    }
    return path != nullptr;
}

CGMutablePathRef CGPathCreateMutable() { return reinterpret_cast<CGMutablePathRef>([[CGPathObject alloc] init]); }

CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path) {
    if (path == nullptr) {
        return nullptr;
    }
    const CGMutablePathRef copy = CGPathCreateMutable();
    *object(copy)->nodes = *object(path)->nodes;
    object(copy)->currentPoint = object(path)->currentPoint;
    object(copy)->subpathStart = object(path)->subpathStart;
    return copy;
}

CGPathRef CGPathCreateCopy(CGPathRef path) { return CGPathCreateMutableCopy(path); }

CGPathRef CGPathCreateWithRect(CGRect rect, const CGAffineTransform* m) {
    const CGMutablePathRef path = CGPathCreateMutable();
    CGPathAddRect(path, m, rect);
    return path;
}

CGPathRef CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* m) {
    const CGMutablePathRef path = CGPathCreateMutable();
    CGPathAddEllipseInRect(path, m, rect);
    return path;
}

CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                      const CGAffineTransform* m) {
    const CGMutablePathRef path = CGPathCreateMutable();
    CGPathAddRoundedRect(path, m, rect, cornerWidth, cornerHeight);
    return path;
}

CGPathRef CGPathRetain(CGPathRef path) {
    [object(path) retain];
    return path;
}

void CGPathRelease(CGPathRef path) { [object(path) release]; }

static size_t pointCount(CGPathElementType type) {
    constexpr size_t counts[] = {1, 1, 2, 3, 0};
    return counts[type];
}

bool CGPathEqualToPath(CGPathRef a, CGPathRef b) {
    if (a == nullptr || b == nullptr) {
        return a == b;
    }
    return std::equal(object(a)->nodes->begin(), object(a)->nodes->end(), object(b)->nodes->begin(),
                      object(b)->nodes->end(), [](const CGPathNode& one, const CGPathNode& other) {
                          return one.type == other.type && std::equal(one.points, one.points + pointCount(one.type),
                                                                      other.points, CGPointEqualToPoint);
                      });
}

bool CGPathIsEmpty(CGPathRef path) { return path == nullptr || object(path)->nodes->empty(); }

void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y) {
    if (starts(path, __func__)) {
        append(path, kCGPathElementMoveToPoint, {mapped(m, {x, y})});
    }
}

void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y) {
    if (continues(path, __func__)) {
        append(path, kCGPathElementAddLineToPoint, {mapped(m, {x, y})});
    }
}

void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cpx, CGFloat cpy, CGFloat x,
                               CGFloat y) {
    if (continues(path, __func__)) {
        append(path, kCGPathElementAddQuadCurveToPoint, {mapped(m, {cpx, cpy}), mapped(m, {x, y})});
    }
}

void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x,
                           CGFloat cp2y, CGFloat x, CGFloat y) {
    if (continues(path, __func__)) {
        append(path, kCGPathElementAddCurveToPoint,
               {mapped(m, {cp1x, cp1y}), mapped(m, {cp2x, cp2y}), mapped(m, {x, y})});
    }
}

void CGPathCloseSubpath(CGMutablePathRef path) {
    if (continues(path, __func__) && object(path)->nodes->back().type != kCGPathElementCloseSubpath) {
        append(path, kCGPathElementCloseSubpath, {});
    }
}

void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect) {
    if (!starts(path, __func__) || CGRectIsNull(rect)) {
        return;
    }
    const CGFloat right = rect.origin.x + rect.size.width, top = rect.origin.y + rect.size.height;
    append(path, kCGPathElementMoveToPoint, {mapped(m, rect.origin)});
    append(path, kCGPathElementAddLineToPoint, {mapped(m, {right, rect.origin.y})});
    append(path, kCGPathElementAddLineToPoint, {mapped(m, {right, top})});
    append(path, kCGPathElementAddLineToPoint, {mapped(m, {rect.origin.x, top})});
    append(path, kCGPathElementCloseSubpath, {});
}

// An arc around the origin with radius 1 under `m`. Pieces of a quarter of a turn, the phone's own, stay within 3e-4 of
// the circle.
static void appendUnitArc(CGPathRef path, const CGAffineTransform& m, CGFloat start, CGFloat sweep) {
    const int pieces = std::max(1, int(std::ceil(std::abs(sweep) / (std::numbers::pi / 2) - 1e-9)));
    const CGFloat step = sweep / pieces, handle = 4.0 / 3.0 * std::tan(step / 4);
    for (int i = 0; i < pieces; ++i) {
        const CGFloat a = start + i * step, b = a + step;
        const CGPoint p{std::cos(a), std::sin(a)}, q{std::cos(b), std::sin(b)};
        append(path, kCGPathElementAddCurveToPoint,
               {mapped(&m, {p.x - handle * p.y, p.y + handle * p.x}),
                mapped(&m, {q.x + handle * q.y, q.y - handle * q.x}), mapped(&m, q)});
    }
}

void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect) {
    if (!starts(path, __func__) || CGRectIsNull(rect)) {
        return;
    }
    CGAffineTransform unit{CGRectGetWidth(rect) / 2, 0, 0, CGRectGetHeight(rect) / 2, CGRectGetMidX(rect),
                           CGRectGetMidY(rect)};
    unit = m == nullptr ? unit : CGAffineTransformConcat(unit, *m);
    append(path, kCGPathElementMoveToPoint, {mapped(&unit, {1, 0})});
    appendUnitArc(path, unit, 0, 2 * std::numbers::pi);
    append(path, kCGPathElementCloseSubpath, {});
}

// A quarter of an ellipse around `center`, reached by a line.
static void appendCorner(CGPathRef path, const CGAffineTransform* m, CGPoint center, CGSize radii, CGFloat start) {
    CGAffineTransform unit{radii.width, 0, 0, radii.height, center.x, center.y};
    unit = m == nullptr ? unit : CGAffineTransformConcat(unit, *m);
    append(path, kCGPathElementAddLineToPoint, {mapped(&unit, {std::cos(start), std::sin(start)})});
    appendUnitArc(path, unit, start, std::numbers::pi / 2);
}

static void requireRoom(CGFloat corner, CGFloat side) {
    if (corner >= 0 && 2 * corner <= side) {
        return;
    }
    core_graphics::logError("CGPathAddRoundedRect", "a corner is larger than half of the rectangle, or negative.");
    std::abort();
}

void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform* m, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight) {
    if (!starts(path, __func__) || CGRectIsNull(rect)) {
        return;
    }
    requireRoom(cornerWidth, CGRectGetWidth(rect));
    requireRoom(cornerHeight, CGRectGetHeight(rect));
    const CGSize radii{cornerWidth, cornerHeight};
    const CGFloat left = CGRectGetMinX(rect), right = CGRectGetMaxX(rect);
    const CGFloat top = CGRectGetMinY(rect), bottom = CGRectGetMaxY(rect);
    constexpr CGFloat quarter = std::numbers::pi / 2;
    append(path, kCGPathElementMoveToPoint, {mapped(m, {left + cornerWidth, top})});
    appendCorner(path, m, {right - cornerWidth, top + cornerHeight}, radii, -quarter);
    appendCorner(path, m, {right - cornerWidth, bottom - cornerHeight}, radii, 0);
    appendCorner(path, m, {left + cornerWidth, bottom - cornerHeight}, radii, quarter);
    appendCorner(path, m, {left + cornerWidth, top + cornerHeight}, radii, 2 * quarter);
    append(path, kCGPathElementCloseSubpath, {});
}

void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise) {
    if (!starts(path, __func__)) {
        return;
    }
    CGAffineTransform unit{radius, 0, 0, radius, x, y};
    unit = m == nullptr ? unit : CGAffineTransformConcat(unit, *m);
    const CGPoint first = mapped(&unit, {std::cos(startAngle), std::sin(startAngle)});
    append(path, CGPathIsEmpty(path) ? kCGPathElementMoveToPoint : kCGPathElementAddLineToPoint, {first});
    appendUnitArc(path, unit, startAngle, core_graphics::arcSweep(startAngle, endAngle, clockwise));
}

void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform* m, CGFloat x1, CGFloat y1, CGFloat x2,
                         CGFloat y2, CGFloat radius) {
    if (!continues(path, __func__)) {
        return;
    }
    const CGPoint current = object(path)->currentPoint;
    const CGPoint from = m == nullptr ? current : CGPointApplyAffineTransform(current, CGAffineTransformInvert(*m));
    const auto arc = core_graphics::tangentArc(from, {x1, y1}, {x2, y2}, radius);
    if (arc.exists) {
        CGPathAddArc(path, m, arc.center.x, arc.center.y, radius, arc.start, arc.end, arc.clockwise);
    } else {
        CGPathAddLineToPoint(path, m, x1, y1);
    }
}

void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* m, CGPathRef other) {
    if (!starts(path, __func__) || other == nullptr) {
        return;
    }
    const std::vector<CGPathNode> added = *object(other)->nodes;  // a path may be added to itself
    for (const CGPathNode& node : added) {
        switch (pointCount(node.type)) {
            case 0:
                append(path, node.type, {});
                break;
            case 1:
                append(path, node.type, {mapped(m, node.points[0])});
                break;
            case 2:
                append(path, node.type, {mapped(m, node.points[0]), mapped(m, node.points[1])});
                break;
            default:
                append(path, node.type,
                       {mapped(m, node.points[0]), mapped(m, node.points[1]), mapped(m, node.points[2])});
        }
    }
}

CGPoint CGPathGetCurrentPoint(CGPathRef path) { return CGPathIsEmpty(path) ? CGPointZero : object(path)->currentPoint; }

CGRect CGPathGetBoundingBox(CGPathRef path) {
    CGRect box = CGRectNull;
    if (path != nullptr) {
        for (const CGPathNode& node : *object(path)->nodes) {
            for (size_t i = 0; i < pointCount(node.type); ++i) {
                box = CGRectUnion(box, {node.points[i], CGSizeZero});
            }
        }
    }
    return box;
}

void CGPathApply(CGPathRef path, void* info, CGPathApplierFunction function) {
    if (path == nullptr || function == nullptr) {
        return;
    }
    for (CGPathNode node : *object(path)->nodes) {
        const CGPathElement element{node.type, pointCount(node.type) == 0 ? nullptr : node.points};
        function(info, &element);
    }
}
