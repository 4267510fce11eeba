#include <cstdio>
#include <cstdlib>

#include "simulator/frameworks/core_graphics/context.h"
#import "simulator/frameworks/core_graphics/objects.h"

using core_graphics::checked;
using core_graphics::object;

void CGContextSaveGState(CGContextRef context) {
    if (CGContextObject* target = checked(context, __func__)) {
        target->saved->push_back(target->state);
        cairo_save(target->cairo);
    }
}

static void restore(CGContextObject* context) {
    context->state = context->saved->back();
    context->state.ownsLayer = false;
    context->saved->pop_back();
    cairo_restore(context->cairo);
}

void CGContextRestoreGState(CGContextRef context) {
    CGContextObject* target = checked(context, __func__);
    if (target == nil) {
        return;
    }
    if (target->saved->empty() || target->saved->back().ownsLayer) {
        core_graphics::logError("CGGStackRestore", "gstack underflow.");
        return;
    }
    restore(target);
}

void CGContextBeginTransparencyLayer(CGContextRef context, const void*) {
    const core_graphics::Drawing drawing(context, __func__);
    if (!drawing) {
        return;
    }
    drawing->saved->push_back(drawing->state);
    drawing->saved->back().ownsLayer = true;
    drawing->state.alpha = 1;
    cairo_save(drawing.cairo());
    cairo_push_group(drawing.cairo());
    cairo_set_operator(drawing.cairo(), CAIRO_OPERATOR_OVER);
}

void CGContextEndTransparencyLayer(CGContextRef context) {
    const core_graphics::Drawing drawing(context, __func__);
    if (!drawing) {
        return;
    }
    while (!drawing->saved->empty() && !drawing->saved->back().ownsLayer) {
        restore(drawing.get());
    }
    if (drawing->saved->empty()) {
        core_graphics::logError("CGGStackRestore", "gstack underflow.");
        return;
    }
    cairo_pattern_t* layer = cairo_pop_group(drawing.cairo());
    restore(drawing.get());
    cairo_set_source(drawing.cairo(), layer);
    cairo_paint_with_alpha(drawing.cairo(), drawing->state.alpha);
    cairo_pattern_destroy(layer);
}

void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform) {
    CGContextObject* target = checked(context, __func__);
    if (target == nil ||
        !core_graphics::areFinite({transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty})) {
        return;
    }
    const CGAffineTransform ctm = CGAffineTransformConcat(transform, target->state.ctm);
    const CGFloat determinant = ctm.a * ctm.d - ctm.b * ctm.c;
    target->state.ctm = ctm;
    target->state.drawable = determinant != 0 && std::isfinite(determinant);
    if (target->state.drawable) {
        const cairo_matrix_t matrix{ctm.a, -ctm.b, ctm.c, -ctm.d, ctm.tx, double(target->height) - ctm.ty};
        cairo_set_matrix(target->cairo, &matrix);
    }
}

void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy) {
    CGContextConcatCTM(context, CGAffineTransformMakeScale(sx, sy));
}

void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty) {
    CGContextConcatCTM(context, CGAffineTransformMakeTranslation(tx, ty));
}

void CGContextRotateCTM(CGContextRef context, CGFloat angle) {
    CGContextConcatCTM(context, CGAffineTransformMakeRotation(angle));
}

CGAffineTransform CGContextGetCTM(CGContextRef context) {
    CGContextObject* target = checked(context, __func__);
    return target == nil ? CGAffineTransformIdentity : target->state.ctm;
}

void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color) {
    CGContextObject* target = checked(context, __func__);
    if (target != nil && color != nullptr) {
        std::copy_n(object(color)->rgba, 4, target->state.fill);
    }
}

void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color) {
    CGContextObject* target = checked(context, __func__);
    if (target != nil && color != nullptr) {
        std::copy_n(object(color)->rgba, 4, target->state.stroke);
    }
}

void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    if (CGContextObject* target = checked(context, __func__)) {
        const double color[] = {red, green, blue, alpha};
        std::copy_n(color, 4, target->state.fill);
    }
}

void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    if (CGContextObject* target = checked(context, __func__)) {
        const double color[] = {red, green, blue, alpha};
        std::copy_n(color, 4, target->state.stroke);
    }
}

void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
    CGContextSetRGBFillColor(context, gray, gray, gray, alpha);
}

void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
    if (CGContextObject* target = checked(context, __func__)) {
        target->state.alpha = std::clamp<CGFloat>(alpha, 0, 1);
    }
}

void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode) {
    CGContextObject* target = checked(context, __func__);
    if (target == nil) {
        return;
    }
    switch (mode) {
        case kCGBlendModeNormal:
            return cairo_set_operator(target->cairo, CAIRO_OPERATOR_OVER);
        case kCGBlendModeClear:
            return cairo_set_operator(target->cairo, CAIRO_OPERATOR_CLEAR);
        case kCGBlendModeCopy:
            return cairo_set_operator(target->cairo, CAIRO_OPERATOR_SOURCE);
    }
    std::fprintf(stderr, "CGContextSetBlendMode: the stand-in has no blend mode %d\n", int(mode));
    std::abort();
}

void CGContextSetLineWidth(CGContextRef context, CGFloat width) {
    CGContextObject* target = checked(context, __func__);
    if (target != nil && core_graphics::areFinite({width})) {
        cairo_set_line_width(target->cairo, std::max<CGFloat>(0, width));
    }
}

void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality) {
    if (CGContextObject* target = checked(context, __func__)) {
        target->state.filter = quality == kCGInterpolationNone   ? CAIRO_FILTER_NEAREST
                               : quality == kCGInterpolationLow  ? CAIRO_FILTER_BILINEAR
                               : quality == kCGInterpolationHigh ? CAIRO_FILTER_BEST
                                                                 : CAIRO_FILTER_GOOD;
    }
}

void CGContextSetShouldAntialias(CGContextRef context, bool antialias) {
    if (CGContextObject* target = checked(context, __func__)) {
        cairo_set_antialias(target->cairo, antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    }
}
