#include "src/render/drawing.h"

#include "src/platform/owned.h"
#include "src/platform/quartz_core/CALayer.h"
#include "src/platform/uikit/UIBezierPath.h"
#include "src/platform/uikit/UIGraphics.h"
#include "src/platform/uikit/UIImageView.h"

namespace zelka {
namespace {

constexpr float kSquareCorner = 5.0F;
constexpr float kRoundCorner = 40.0F;

// A bitmap context of 8 bits a component that keeps its own memory; nothing when there is none of that size.
Owned<CGContextRef> createBitmap(std::size_t width, std::size_t height) {
    auto space = adopt(CGColorSpaceCreateDeviceRGB());
    return adopt(CGBitmapContextCreate(nullptr, width, height, 8, width * 4, space.get(), kAlphaPremultipliedFirst));
}

// White letters in capitals over the disc or square, in a context of the style's size that is already open.
void drawInitialsIn(CGContextRef context, NSString text, const DrawnStyle& style, Shape shape) {
    CGRect bounds = boundsOf(style.size);
    CGContextSaveGState(context);
    CGContextSetFillColorWithColor(context, style.color.cgColor());
    if (shape == Shape::round) {
        CGContextFillEllipseInRect(context, bounds);
    } else {
        CGContextFillRect(context, bounds);
    }
    CGContextSetFillColorWithColor(context, UIColor::white().cgColor());
    CGFloat lineHeight = style.font.pointSize() + 4;
    CGRect line = makeRect(0, (bounds.size.height - lineHeight) / 2, bounds.size.width, lineHeight);
    drawText(text.uppercase(), line, style.font, LineBreakMode::truncateTail, TextAlignment::center);
    CGContextRestoreGState(context);
}

}  // namespace

UIImage imageWithRoundedCornersRadius(UIImage picture, float radius) {
    CGSize size = picture.size();
    ImageContext context(size, kMainScreenScale);
    UIBezierPath::roundedRect(boundsOf(size), static_cast<CGFloat>(radius)).addClip();
    picture.drawInRect(boundsOf(size));
    return context.picture();
}

UIImage cutOut(UIImage picture, std::size_t width, std::size_t height, Shape shape) {
    Owned<CGContextRef> bitmap = createBitmap(width, height);
    if (!bitmap) return {};
    CGContextRef context = bitmap.get();
    CGRect bounds = makeRect(0, 0, static_cast<CGFloat>(width), static_cast<CGFloat>(height));
    float corner = shape == Shape::round ? kRoundCorner : kSquareCorner;
    CGContextBeginPath(context);
    addRoundedRectPath(context, bounds, corner, corner);
    CGContextClosePath(context);
    CGContextClip(context);
    if (CGImageRef source = picture.cgImage()) CGContextDrawImage(context, bounds, source);
    auto image = adopt(CGBitmapContextCreateImage(context));
    return UIImage::fromCGImage(image.get());
}

UIImage drawInitials(NSString text, const DrawnStyle& style, Shape shape) {
    UIImage drawn;
    {
        ImageContext image(style.size, kMainScreenScale);
        drawInitialsIn(image.context(), text, style, shape);
        drawn = image.picture();
    }
    return drawn ? imageWithRoundedCornersRadius(drawn, kSquareCorner) : drawn;
}

UIImage renderOverColor(UIImage source, CGSize size, UIColor color, Shape shape) {
    Owned<UIImageView> view = UIImageView::withFrame(boundsOf(size));
    view->setBackgroundColor(color);
    view->setImage(source);
    CALayer layer = view->layer();
    if (shape == Shape::round) {
        layer.setCornerRadius(size.width / 2);
        view->setClipsToBounds(true);
    } else {
        layer.setCornerRadius(kSquareCorner);
    }
    ImageContext image(source.size(), kMainScreenScale);
    layer.renderIn(image.context());
    return image.picture();
}

void addRoundedRectPath(CGContextRef context, CGRect rect, float ovalWidth, float ovalHeight) {
    if (ovalWidth == 0 || ovalHeight == 0) {
        CGContextAddRect(context, rect);
        return;
    }
    CGFloat width = rect.size.width / static_cast<CGFloat>(ovalWidth);
    CGFloat height = rect.size.height / static_cast<CGFloat>(ovalHeight);
    CGFloat middleX = width * static_cast<CGFloat>(0.5);
    CGFloat middleY = height * static_cast<CGFloat>(0.5);
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, rect.origin.x, rect.origin.y);
    CGContextScaleCTM(context, static_cast<CGFloat>(ovalWidth), static_cast<CGFloat>(ovalHeight));
    CGContextMoveToPoint(context, width, middleY);
    CGContextAddArcToPoint(context, width, height, middleX, height, 1);
    CGContextAddArcToPoint(context, 0, height, 0, middleY, 1);
    CGContextAddArcToPoint(context, 0, 0, middleX, 0, 1);
    CGContextAddArcToPoint(context, width, 0, width, middleY, 1);
    CGContextClosePath(context);
    CGContextRestoreGState(context);
}

}  // namespace zelka
