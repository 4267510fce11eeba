#include "simulator/frameworks/uikit/graphics/text_engine.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "simulator/runtime/glib_pointers.h"

namespace uikit {
namespace {

struct FreeFont {
    void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};
using Font = std::unique_ptr<PangoFontDescription, FreeFont>;

PangoContext* makeContext() {
    PangoFontMap* map = pango_cairo_font_map_new();
    PangoContext* context = pango_font_map_create_context(map);
    g_object_unref(map);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("en"));
    return context;
}

PangoContext* threadContext() {
    thread_local const phone::GObjectPointer<PangoContext> context(makeContext());
    return context.get();
}

Font makeFont(double size, bool bold) {
    Font font(pango_font_description_new());
    pango_font_description_set_family_static(font.get(), "Inter,Noto Sans");
    pango_font_description_set_weight(font.get(), bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(font.get(), size * PANGO_SCALE);
    return font;
}

FontMetrics measure(bool bold) {
    constexpr double size = 1000;
    PangoFontMetrics* metrics =
        pango_context_get_metrics(threadContext(), makeFont(size, bold).get(), pango_language_from_string("en"));
    const FontMetrics measured{pango_font_metrics_get_ascent(metrics) / (size * PANGO_SCALE),
                               pango_font_metrics_get_descent(metrics) / (size * PANGO_SCALE)};
    pango_font_metrics_unref(metrics);
    return measured;
}

PangoEllipsizeMode ellipsizeMode(Truncation truncation) {
    constexpr PangoEllipsizeMode modes[] = {PANGO_ELLIPSIZE_NONE, PANGO_ELLIPSIZE_START, PANGO_ELLIPSIZE_MIDDLE,
                                            PANGO_ELLIPSIZE_END};
    return modes[size_t(truncation)];
}

}  // namespace

FontMetrics systemFontMetrics(bool bold) {
    static const FontMetrics regular = measure(false);
    static const FontMetrics heavy = measure(true);
    return bold ? heavy : regular;
}

TextLines::TextLines(const TextRequest& request) {
    const std::string_view text = request.text;
    for (size_t start = 0; start < text.size();) {
        int end = 0, next = 0;
        pango_find_paragraph_boundary(text.data() + start, int(text.size() - start), &end, &next);
        const std::string_view paragraph = text.substr(start, size_t(end));
        start += size_t(std::max(next, 1));
        const bool lastLine = int(lines_.size()) + 1 == request.maxLines;
        const bool cutsOff = lastLine && start < text.size() && request.truncation == Truncation::tail;
        if (!addParagraph(request, cutsOff ? std::string(paragraph) + "\u2026" : paragraph)) {
            return;
        }
    }
}

// False when there is no room for another line.
bool TextLines::addParagraph(const TextRequest& request, std::string_view paragraph) {
    const phone::GObjectPointer<PangoLayout> layout(pango_layout_new(threadContext()));
    pango_layout_set_font_description(layout.get(), makeFont(request.fontSize, request.bold).get());
    pango_layout_set_text(layout.get(), paragraph.data(), int(paragraph.size()));
    const int room = request.maxLines - int(lines_.size());
    constexpr double unlimited = 1e6;  // beyond what pango's fixed-point numbers hold
    if (request.width >= 0 && request.width < unlimited) {
        pango_layout_set_width(layout.get(), int(std::lround(request.width * PANGO_SCALE)));
        pango_layout_set_wrap(layout.get(), request.breaksInsideWords ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
        pango_layout_set_height(layout.get(), -room);
        pango_layout_set_ellipsize(layout.get(), ellipsizeMode(request.truncation));
    }
    for (int i = 0; i < room; ++i) {
        PangoLayoutLine* line = pango_layout_get_line_readonly(layout.get(), i);
        if (line == nullptr) {
            break;
        }
        PangoRectangle logical;
        pango_layout_line_get_extents(line, nullptr, &logical);
        lines_.push_back({pango_layout_line_ref(line), double(logical.width) / PANGO_SCALE,
                          pango_layout_line_get_resolved_direction(line) == PANGO_DIRECTION_RTL});
    }
    return int(lines_.size()) < request.maxLines;
}

TextLines::~TextLines() {
    for (const TextLine& line : lines_) {
        pango_layout_line_unref(line.line);
    }
}

double TextLines::width() const {
    double widest = 0;
    for (const TextLine& line : lines_) {
        widest = std::max(widest, line.width);
    }
    return widest;
}

std::string utf8FromUtf16(const uint16_t* units, size_t count) {
    std::string text;
    text.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        uint32_t character = units[i];
        const bool high = character >= 0xD800 && character < 0xDC00;
        if (high && i + 1 < count && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000) {
            character = 0x10000 + ((character - 0xD800) << 10) + (units[++i] - 0xDC00u);
        } else if (character >= 0xD800 && character < 0xE000) {
            character = 0xFFFD;
        } else if (character == 0) {
            character = 0x200B;
        }
        char bytes[6];
        text.append(bytes, size_t(g_unichar_to_utf8(character, bytes)));
    }
    return text;
}

}  // namespace uikit
