// Pango, set up for pictures that look the same everywhere: the stand-in's typeface, no hinting. Every thread has
// a context of its own, since a font map serves one thread at a time.
#pragma once

#include <pango/pangocairo.h>

#include <string>
#include <string_view>
#include <vector>

#include "simulator/frameworks/core_graphics/geometry.h"

namespace uikit {

struct FontMetrics {
    double ascender, descender;  // of a font of size 1; descender is positive
};

FontMetrics systemFontMetrics(bool bold);

enum class Truncation { none, head, middle, tail };

struct TextRequest {
    std::string text;  // valid UTF-8 without zero bytes
    double fontSize;   // points
    bool bold;
    double width;  // points; below 0: any
    int maxLines;
    Truncation truncation;
    bool breaksInsideWords;
};

struct TextLine {
    PangoLayoutLine* line;  // one reference
    double width;           // points
    bool rightToLeft;
};

/// A text broken into lines. Belongs to the thread that made it.
class TextLines {
  public:
    explicit TextLines(const TextRequest& request);
    ~TextLines();
    TextLines(const TextLines&) = delete;
    TextLines& operator=(const TextLines&) = delete;
    const std::vector<TextLine>& lines() const { return lines_; }
    double width() const;  // of the widest line

  private:
    bool addParagraph(const TextRequest& request, std::string_view paragraph);
    std::vector<TextLine> lines_;
};

/// UTF-16 as UTF-8; half a surrogate pair becomes U+FFFD, a zero a zero-width space.
std::string utf8FromUtf16(const uint16_t* units, size_t count);

}  // namespace uikit
