#include "simulator/frameworks/core_graphics/arc_geometry.h"
#include "simulator/frameworks/core_graphics/context.h"
#import "simulator/frameworks/core_graphics/objects.h"

using core_graphics::areFinite;
using core_graphics::checked;
using core_graphics::logError;

namespace {

// Remembers where the path is, in the device's space: the transformation may change before the path goes on.
void arriveAt(CGContextObject* context, CGPoint user) {
    context->currentPoint = CGPointApplyAffineTransform(user, context->state.ctm);
}

void startAt(CGContextObject* context, CGPoint user) {
    arriveAt(context, user);
    context->subpathStart = context->currentPoint;
    context->hasCurrentPoint = true;
}

CGPoint currentUserPoint(CGContextObject* context) {
    return CGPointApplyAffineTransform(context->currentPoint, CGAffineTransformInvert(context->state.ctm));
}

/// The context if a path may be built in it.
CGContextObject* building(CGContextRef context, const char* function, std::initializer_list<CGFloat> numbers) {
    CGContextObject* target = checked(context, function);
    return target != nil && areFinite(numbers) && target->state.drawable ? target : nil;
}

/// The context if a path that has begun may be continued in it.
CGContextObject* continuing(CGContextRef context, const char* function, std::initializer_list<CGFloat> numbers) {
    CGContextObject* target = building(context, function, numbers);
    if (target != nil && !target->hasCurrentPoint) {
        logError(function, "no current point.");
        return nil;
    }
    return target;
}

void addArc(CGContextObject* context, CGPoint center, CGFloat radius, CGFloat start, CGFloat sweep) {
    const CGPoint first{center.x + radius * std::cos(start), center.y + radius * std::sin(start)};
    if (!context->hasCurrentPoint) {
        startAt(context, first);
    }
    if (radius == 0) {
        cairo_line_to(context->cairo, center.x, center.y);
    } else if (sweep < 0) {
        cairo_arc_negative(context->cairo, center.x, center.y, radius, start, start + sweep);
    } else {
        cairo_arc(context->cairo, center.x, center.y, radius, start, start + sweep);
    }
    arriveAt(context, {center.x + radius * std::cos(start + sweep), center.y + radius * std::sin(start + sweep)});
}

void addElement(void* info, const CGPathElement* element) {
    const CGContextRef context = static_cast<CGContextRef>(info);
    const CGPoint* p = element->points;
    switch (element->type) {
        case kCGPathElementMoveToPoint:
            return CGContextMoveToPoint(context, p[0].x, p[0].y);
        case kCGPathElementAddLineToPoint:
            return CGContextAddLineToPoint(context, p[0].x, p[0].y);
        case kCGPathElementAddQuadCurveToPoint:
            return CGContextAddQuadCurveToPoint(context, p[0].x, p[0].y, p[1].x, p[1].y);
        case kCGPathElementAddCurveToPoint:
            return CGContextAddCurveToPoint(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
        case kCGPathElementCloseSubpath:
            return CGContextClosePath(context);
    }
}

}  // namespace

void CGContextBeginPath(CGContextRef context) {
    if (CGContextObject* target = checked(context, __func__)) {
        cairo_new_path(target->cairo);
        target->hasCurrentPoint = false;
    }
}

void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    if (CGContextObject* target = building(context, __func__, {x, y})) {
        cairo_move_to(target->cairo, x, y);
        startAt(target, {x, y});
    }
}

void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    if (CGContextObject* target = continuing(context, __func__, {x, y})) {
        cairo_line_to(target->cairo, x, y);
        arriveAt(target, {x, y});
    }
}

void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y) {
    if (CGContextObject* target = continuing(context, __func__, {cpx, cpy, x, y})) {
        const CGPoint from = currentUserPoint(target);
        cairo_curve_to(target->cairo, from.x + (cpx - from.x) * 2 / 3, from.y + (cpy - from.y) * 2 / 3,
                       x + (cpx - x) * 2 / 3, y + (cpy - y) * 2 / 3, x, y);
        arriveAt(target, {x, y});
    }
}

void CGContextAddCurveToPoint(CGContextRef context, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x, CGFloat cp2y, CGFloat x,
                              CGFloat y) {
    if (CGContextObject* target = continuing(context, __func__, {cp1x, cp1y, cp2x, cp2y, x, y})) {
        cairo_curve_to(target->cairo, cp1x, cp1y, cp2x, cp2y, x, y);
        arriveAt(target, {x, y});
    }
}

void CGContextClosePath(CGContextRef context) {
    if (CGContextObject* target = continuing(context, __func__, {})) {
        cairo_close_path(target->cairo);
        target->currentPoint = target->subpathStart;
    }
}

void CGContextAddRect(CGContextRef context, CGRect rect) {
    if (CGRectIsNull(rect)) {
        return;
    }
    if (CGContextObject* target =
            building(context, __func__, {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height})) {
        cairo_rectangle(target->cairo, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
        startAt(target, rect.origin);
    }
}

void CGContextAddEllipseInRect(CGContextRef context, CGRect rect) {
    CGContextObject* target =
        CGRectIsEmpty(rect)
            ? nil
            : building(context, __func__, {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
    if (target == nil) {
        return;
    }
    cairo_matrix_t before;
    cairo_get_matrix(target->cairo, &before);
    cairo_translate(target->cairo, CGRectGetMidX(rect), CGRectGetMidY(rect));
    cairo_scale(target->cairo, CGRectGetWidth(rect) / 2, CGRectGetHeight(rect) / 2);
    cairo_new_sub_path(target->cairo);
    cairo_arc(target->cairo, 0, 0, 1, 0, 2 * std::numbers::pi);
    cairo_close_path(target->cairo);
    cairo_set_matrix(target->cairo, &before);
    startAt(target, {CGRectGetMaxX(rect), CGRectGetMidY(rect)});
}

void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise) {
    CGContextObject* target = building(context, __func__, {x, y, radius, startAngle, endAngle});
    if (target == nil) {
        return;
    }
    if (radius < 0) {
        logError(__func__, "invalid radius: should be nonnegative.");
        return;
    }
    addArc(target, {x, y}, radius, startAngle, core_graphics::arcSweep(startAngle, endAngle, clockwise != 0));
}

void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius) {
    CGContextObject* target = continuing(context, __func__, {x1, y1, x2, y2, radius});
    if (target == nil) {
        return;
    }
    const auto arc = core_graphics::tangentArc(currentUserPoint(target), {x1, y1}, {x2, y2}, radius);
    if (arc.exists) {
        addArc(target, arc.center, radius, arc.start, core_graphics::arcSweep(arc.start, arc.end, arc.clockwise));
    } else {
        CGContextAddLineToPoint(context, x1, y1);
    }
}

void CGContextAddPath(CGContextRef context, CGPathRef path) {
    if (checked(context, __func__) != nil) {
        CGPathApply(path, context, addElement);
    }
}

bool CGContextIsPathEmpty(CGContextRef context) {
    CGContextObject* target = checked(context, __func__);
    return target == nil || !target->hasCurrentPoint;
}

CGPoint CGContextGetPathCurrentPoint(CGContextRef context) {
    CGContextObject* target = checked(context, __func__);
    return target == nil || !target->hasCurrentPoint ? CGPointZero : currentUserPoint(target);
}

static void clip(CGContextRef context, cairo_fill_rule_t rule, const char* function) {
    CGContextObject* target = checked(context, function);
    if (target == nil) {
        return;
    }
    if (!target->hasCurrentPoint) {
        logError("doClip", "empty path.");
        return;
    }
    cairo_set_fill_rule(target->cairo, rule);
    cairo_clip(target->cairo);
    target->hasCurrentPoint = false;
}

void CGContextClip(CGContextRef context) { clip(context, CAIRO_FILL_RULE_WINDING, __func__); }

void CGContextEOClip(CGContextRef context) { clip(context, CAIRO_FILL_RULE_EVEN_ODD, __func__); }

void CGContextClipToRect(CGContextRef context, CGRect rect) {
    CGContextBeginPath(context);
    if (context != nullptr && CGRectIsNull(rect)) {
        rect = CGRectZero;
    }
    CGContextAddRect(context, rect);
    CGContextClip(context);
}

CGRect CGContextGetClipBoundingBox(CGContextRef context) {
    CGContextObject* target = checked(context, __func__);
    if (target == nil || !target->state.drawable) {
        return CGRectZero;
    }
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    cairo_clip_extents(target->cairo, &x1, &y1, &x2, &y2);
    return CGRectMake(x1, y1, x2 - x1, y2 - y1);
}
