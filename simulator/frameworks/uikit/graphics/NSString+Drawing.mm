#import "simulator/frameworks/uikit/graphics/NSString+Drawing.h"

#include <cmath>

#import "simulator/frameworks/core_graphics/objects.h"
#import "simulator/frameworks/uikit/graphics/UIGraphics.h"
#include "simulator/frameworks/uikit/graphics/text_engine.h"
#include "simulator/runtime/process/device.h"

namespace {

constexpr CGFloat anyWidth = -1;

std::string utf8(NSString* string) {
    std::vector<unichar> units([string length]);
    [string getCharacters:units.data() range:NSMakeRange(0, units.size())];
    return uikit::utf8FromUtf16(units.data(), units.size());
}

uikit::Truncation truncation(NSLineBreakMode mode) {
    switch (mode) {
        case NSLineBreakByTruncatingHead:
            return uikit::Truncation::head;
        case NSLineBreakByTruncatingMiddle:
            return uikit::Truncation::middle;
        case NSLineBreakByTruncatingTail:
            return uikit::Truncation::tail;
        default:
            return uikit::Truncation::none;
    }
}

uikit::TextRequest request(NSString* string, UIFont* font, CGFloat width, int maxLines, NSLineBreakMode mode) {
    // Text that is clipped runs on past the width instead of breaking.
    width = mode == NSLineBreakByClipping ? anyWidth : std::isnan(width) ? 0 : width;
    return {utf8(string), [font pointSize], [[font fontName] hasSuffix:@"Bold"] != NO, width,
            maxLines,     truncation(mode), mode == NSLineBreakByCharWrapping};
}

int linesWithin(CGFloat height, UIFont* font) {
    constexpr CGFloat slack = 0.01, most = 10000;
    return int(std::clamp<CGFloat>(std::floor(height / [font lineHeight] + slack), 1, most));
}

// Rounded up to whole pixels: a box made to measure must not cut its text.
CGSize measured(const uikit::TextLines& text, UIFont* font) {
    const CGFloat scale = phone::device().scale;
    return CGSizeMake(std::ceil(text.width() * scale) / scale,
                      std::ceil(CGFloat(text.lines().size()) * [font lineHeight] * scale) / scale);
}

CGFloat leadingSpace(const uikit::TextLine& line, CGFloat width, NSTextAlignment alignment) {
    switch (alignment) {
        case NSTextAlignmentCenter:
            return (width - line.width) / 2;
        case NSTextAlignmentRight:
            return width - line.width;
        case NSTextAlignmentNatural:
            return line.rightToLeft ? width - line.width : 0;
        default:
            return 0;
    }
}

void draw(const uikit::TextLines& text, CGRect rect, UIFont* font, NSTextAlignment alignment) {
    const core_graphics::Drawing drawing(UIGraphicsGetCurrentContext(), "CGContextShowGlyphs");
    if (!drawing || !drawing->state.drawable ||
        !core_graphics::areFinite({rect.origin.x, rect.origin.y, rect.size.width})) {
        return;
    }
    cairo_t* cairo = drawing.cairo();
    drawing.useFillColor();
    CGFloat baseline = rect.origin.y + [font ascender];
    for (const uikit::TextLine& line : text.lines()) {
        cairo_move_to(cairo, rect.origin.x + leadingSpace(line, rect.size.width, alignment), baseline);
        pango_cairo_show_layout_line(cairo, line.line);
        baseline += [font lineHeight];
    }
    cairo_new_path(cairo);
    drawing->hasCurrentPoint = false;
}

}  // namespace

@implementation NSString (UIStringDrawing)

- (CGSize)sizeWithFont:(UIFont*)font {
    return [self sizeWithFont:font forWidth:anyWidth lineBreakMode:NSLineBreakByTruncatingTail];
}

- (CGSize)sizeWithFont:(UIFont*)font forWidth:(CGFloat)width lineBreakMode:(NSLineBreakMode)mode {
    return font == nil ? CGSizeZero : measured(uikit::TextLines(request(self, font, width, 1, mode)), font);
}

- (CGSize)sizeWithFont:(UIFont*)font constrainedToSize:(CGSize)size {
    return [self sizeWithFont:font constrainedToSize:size lineBreakMode:NSLineBreakByWordWrapping];
}

- (CGSize)sizeWithFont:(UIFont*)font constrainedToSize:(CGSize)size lineBreakMode:(NSLineBreakMode)mode {
    if (font == nil) {
        return CGSizeZero;
    }
    return measured(uikit::TextLines(request(self, font, size.width, linesWithin(size.height, font), mode)), font);
}

- (CGSize)drawAtPoint:(CGPoint)point withFont:(UIFont*)font {
    return [self drawAtPoint:point forWidth:anyWidth withFont:font lineBreakMode:NSLineBreakByTruncatingTail];
}

- (CGSize)drawAtPoint:(CGPoint)point
             forWidth:(CGFloat)width
             withFont:(UIFont*)font
        lineBreakMode:(NSLineBreakMode)mode {
    if (font == nil) {
        return CGSizeZero;
    }
    const uikit::TextLines text(request(self, font, width, 1, mode));
    draw(text, {point, CGSizeZero}, font, NSTextAlignmentLeft);
    return measured(text, font);
}

- (CGSize)drawInRect:(CGRect)rect withFont:(UIFont*)font {
    return [self drawInRect:rect withFont:font lineBreakMode:NSLineBreakByWordWrapping];
}

- (CGSize)drawInRect:(CGRect)rect withFont:(UIFont*)font lineBreakMode:(NSLineBreakMode)mode {
    return [self drawInRect:rect withFont:font lineBreakMode:mode alignment:NSTextAlignmentLeft];
}

- (CGSize)drawInRect:(CGRect)rect
            withFont:(UIFont*)font
       lineBreakMode:(NSLineBreakMode)mode
           alignment:(NSTextAlignment)alignment {
    if (font == nil) {
        return CGSizeZero;
    }
    rect = CGRectStandardize(rect);
    const int lines = linesWithin(rect.size.height, font);
    const uikit::TextLines text(request(self, font, rect.size.width, lines, mode));
    if (mode != NSLineBreakByClipping) {
        draw(text, rect, font, alignment);
        return measured(text, font);
    }
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSaveGState(context);
    CGContextClipToRect(context, rect);
    draw(text, rect, font, alignment);
    CGContextRestoreGState(context);
    return measured(text, font);
}

@end
