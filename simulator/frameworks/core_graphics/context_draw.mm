#include "simulator/frameworks/core_graphics/context.h"
#import "simulator/frameworks/core_graphics/objects.h"

using core_graphics::Drawing;
using core_graphics::object;

namespace core_graphics {

static void useColor(CGContextObject* context, const double* color) {
    cairo_set_source_rgba(context->cairo, color[0], color[1], color[2], color[3] * context->state.alpha);
}

void Drawing::useFillColor() const { useColor(context_, context_->state.fill); }

void Drawing::useStrokeColor() const { useColor(context_, context_->state.stroke); }

// Beyond this, cairo's fixed-point coordinates overflow; nothing so far out is visible.
static CGRect reachable(const Drawing& drawing, CGRect rect) {
    constexpr CGFloat far = 1e5;
    rect = CGRectStandardize(rect);
    if (rect.size.width < far && rect.size.height < far && std::abs(rect.origin.x) < far &&
        std::abs(rect.origin.y) < far) {
        return rect;
    }
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    cairo_clip_extents(drawing.cairo(), &x1, &y1, &x2, &y2);
    return CGRectIntersection(rect, CGRectMake(x1 - 1, y1 - 1, x2 - x1 + 2, y2 - y1 + 2));
}

static bool setRectangle(const Drawing& drawing, CGRect rect) {
    cairo_new_path(drawing.cairo());
    drawing->hasCurrentPoint = false;
    if (!drawing->state.drawable || CGRectIsEmpty(rect) ||
        !areFinite({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height})) {
        return false;
    }
    rect = reachable(drawing, rect);
    if (CGRectIsEmpty(rect)) {
        return false;
    }
    cairo_rectangle(drawing.cairo(), rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
    return true;
}

void drawImage(const Drawing& drawing, CGImageRef image, const CGAffineTransform& pixelsToUser) {
    const CGImageObject* source = object(image);
    const CGAffineTransform toPixels = CGAffineTransformInvert(pixelsToUser);
    const CGRect area = CGRectApplyAffineTransform(CGRectMake(0, 0, source->width, source->height), pixelsToUser);
    if (!setRectangle(drawing, area)) {
        return;
    }
    const PixelReader pixels(source->store);
    cairo_t* cairo = drawing.cairo();
    cairo_set_source_surface(cairo, pixels.surface(), 0, 0);
    cairo_pattern_t* pattern = cairo_get_source(cairo);
    const cairo_matrix_t matrix{toPixels.a, toPixels.b, toPixels.c, toPixels.d, toPixels.tx, toPixels.ty};
    cairo_pattern_set_matrix(pattern, &matrix);
    cairo_pattern_set_filter(pattern, drawing->state.filter);
    // Filters reach beyond the picture's edge, where there must be more of the edge and not of nothing.
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
    if (drawing->state.alpha < 1) {
        cairo_save(cairo);
        cairo_clip(cairo);
        cairo_paint_with_alpha(cairo, drawing->state.alpha);
        cairo_restore(cairo);
    } else {
        cairo_fill(cairo);
    }
    // The context must not keep the pixels: an image made from another context gives them up when that one draws.
    cairo_set_source_rgba(cairo, 0, 0, 0, 1);
}

}  // namespace core_graphics

void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image) {
    if (image == nullptr) {
        core_graphics::checked(context, __func__);
        return;
    }
    const Drawing drawing(context, __func__);
    if (!drawing || CGRectIsEmpty(rect)) {
        return;
    }
    rect = CGRectStandardize(rect);
    core_graphics::drawImage(drawing, image,
                             {rect.size.width / object(image)->width, 0, 0, -rect.size.height / object(image)->height,
                              rect.origin.x, rect.origin.y + rect.size.height});
}

void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode) {
    const Drawing drawing(context, __func__);
    if (!drawing) {
        return;
    }
    if (drawing->state.drawable) {
        if (mode != kCGPathStroke) {
            const bool evenOdd = mode == kCGPathEOFill || mode == kCGPathEOFillStroke;
            drawing.useFillColor();
            cairo_set_fill_rule(drawing.cairo(), evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
            cairo_fill_preserve(drawing.cairo());
        }
        if (mode != kCGPathFill && mode != kCGPathEOFill) {
            drawing.useStrokeColor();
            cairo_stroke_preserve(drawing.cairo());
        }
    }
    cairo_new_path(drawing.cairo());
    drawing->hasCurrentPoint = false;
}

void CGContextFillPath(CGContextRef context) { CGContextDrawPath(context, kCGPathFill); }

void CGContextEOFillPath(CGContextRef context) { CGContextDrawPath(context, kCGPathEOFill); }

void CGContextStrokePath(CGContextRef context) { CGContextDrawPath(context, kCGPathStroke); }

void CGContextFillRect(CGContextRef context, CGRect rect) {
    const Drawing drawing(context, __func__);
    if (drawing && core_graphics::setRectangle(drawing, rect)) {
        drawing.useFillColor();
        cairo_fill(drawing.cairo());
    }
}

void CGContextStrokeRect(CGContextRef context, CGRect rect) {
    const Drawing drawing(context, __func__);
    if (drawing && core_graphics::setRectangle(drawing, rect)) {
        drawing.useStrokeColor();
        cairo_stroke(drawing.cairo());
    }
}

void CGContextClearRect(CGContextRef context, CGRect rect) {
    const Drawing drawing(context, __func__);
    if (drawing && core_graphics::setRectangle(drawing, rect)) {
        const cairo_operator_t before = cairo_get_operator(drawing.cairo());
        cairo_set_operator(drawing.cairo(), CAIRO_OPERATOR_CLEAR);
        cairo_fill(drawing.cairo());
        cairo_set_operator(drawing.cairo(), before);
    }
}

void CGContextFillEllipseInRect(CGContextRef context, CGRect rect) {
    if (core_graphics::checked(context, __func__) == nil) {
        return;
    }
    CGContextBeginPath(context);
    CGContextAddEllipseInRect(context, rect);
    CGContextFillPath(context);
}
