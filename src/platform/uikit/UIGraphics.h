// Image contexts, and text drawn into them. Any thread; a context belongs to the thread that opened it.
#pragma once

#include "src/platform/core_graphics.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UIImage.h"

extern "C" {
void UIGraphicsBeginImageContext(CGSize size);
void UIGraphicsBeginImageContextWithOptions(CGSize size, BOOL opaque, CGFloat scale);
CGContextRef UIGraphicsGetCurrentContext();
id UIGraphicsGetImageFromCurrentImageContext();
void UIGraphicsEndImageContext();
}

namespace zelka {

// The scale of the main screen, as image contexts name it.
constexpr CGFloat kMainScreenScale = 0.0;

// An image context of this thread, open for the life of this object; its origin is at the top left.
class ImageContext {
  public:
    // Transparent, at the given scale.
    ImageContext(CGSize size, CGFloat scale) { UIGraphicsBeginImageContextWithOptions(size, false, scale); }
    // Transparent, one pixel a point.
    explicit ImageContext(CGSize size) { UIGraphicsBeginImageContext(size); }
    ImageContext(const ImageContext&) = delete;
    ImageContext& operator=(const ImageContext&) = delete;
    ~ImageContext() { UIGraphicsEndImageContext(); }

    CGContextRef context() const { return UIGraphicsGetCurrentContext(); }
    // What has been drawn so far (+0).
    UIImage picture() const { return UIImage{{UIGraphicsGetImageFromCurrentImageContext()}}; }
};

// NSLineBreakMode and NSTextAlignment.
enum class LineBreakMode : NSInteger { truncateTail = 4 };
enum class TextAlignment : NSInteger { center = 1 };

// Draws the text into the rect (in points) in the current image context's fill colour.
inline void drawText(NSString text, CGRect rect, UIFont font, LineBreakMode mode, TextAlignment alignment) {
    send<CGSize, "drawInRect:withFont:lineBreakMode:alignment:">(text, rect, font, static_cast<NSInteger>(mode),
                                                                 static_cast<NSInteger>(alignment));
}

}  // namespace zelka
