// UIKit's classes, as far as the library uses them. Results are unowned (+0) unless they say Owned; sizes are in
// points. Views are the main thread's; pictures, colours, fonts and image contexts may be used on any thread.
#pragma once

#include "src/platform/core_graphics.h"
#include "src/platform/foundation.h"

struct UIResponder : NSObject {};

struct UIColor : NSObject {
    static UIColor withComponents(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
        return send<UIColor, "colorWithRed:green:blue:alpha:">(platformClass<"UIColor">(), red, green, blue, alpha);
    }
    static UIColor white() { return send<UIColor, "whiteColor">(platformClass<"UIColor">()); }
    CGColorRef cgColor() const { return send<CGColorRef, "CGColor">(*this); }
};

struct UIFont : NSObject {
    static UIFont system(CGFloat size) { return send<UIFont, "systemFontOfSize:">(platformClass<"UIFont">(), size); }
    CGFloat pointSize() const { return send<CGFloat, "pointSize">(*this); }
};

struct UIImage : NSObject {
    // The picture in the file, at the scale that its name tells (+0); nil when there is none.
    static UIImage fromFile(NSString path) {
        return send<UIImage, "imageWithContentsOfFile:">(platformClass<"UIImage">(), path);
    }
    // The decoded picture (+0); nil when the bytes are no picture.
    static UIImage fromData(NSData data) { return send<UIImage, "imageWithData:">(platformClass<"UIImage">(), data); }
    // The pixels as a picture of scale 1 (+0).
    static UIImage fromCGImage(CGImageRef image) {
        return send<UIImage, "imageWithCGImage:">(platformClass<"UIImage">(), image);
    }
    CGSize size() const { return send<CGSize, "size">(*this); }
    CGImageRef cgImage() const { return send<CGImageRef, "CGImage">(*this); }
    // Draws into the current image context.
    void drawInRect(CGRect rect) const { send<void, "drawInRect:">(*this, rect); }
};

struct UIBezierPath : NSObject {
    static UIBezierPath roundedRect(CGRect rect, CGFloat radius) {
        return send<UIBezierPath, "bezierPathWithRoundedRect:cornerRadius:">(platformClass<"UIBezierPath">(), rect,
                                                                             radius);
    }
    // Clips the current image context.
    void addClip() const { send<void, "addClip">(*this); }
};

extern "C" {
void UIGraphicsBeginImageContext(CGSize size);
void UIGraphicsBeginImageContextWithOptions(CGSize size, BOOL opaque, CGFloat scale);
CGContextRef UIGraphicsGetCurrentContext();
id UIGraphicsGetImageFromCurrentImageContext();
void UIGraphicsEndImageContext();
}

// The scale of the main screen, in the language of image contexts.
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

struct CALayer : NSObject {
    void setCornerRadius(CGFloat radius) const { send<void, "setCornerRadius:">(*this, radius); }
    void renderIn(CGContextRef context) const { send<void, "renderInContext:">(*this, context); }
};

struct UIView : UIResponder {
    CGRect frame() const { return send<CGRect, "frame">(*this); }
    void setFrame(CGRect frame) const { send<void, "setFrame:">(*this, frame); }
    NSInteger tag() const { return send<NSInteger, "tag">(*this); }
    void setTag(NSInteger tag) const { send<void, "setTag:">(*this, tag); }
    // The receiver or its first descendant, depth first, with that tag.
    template <ObjectHandle T>
    T withTag(NSInteger tag) const {
        return send<T, "viewWithTag:">(*this, tag);
    }
    NSArray subviews() const { return send<NSArray, "subviews">(*this); }
    UIView superview() const { return send<UIView, "superview">(*this); }
    void addSubview(UIView view) const { send<void, "addSubview:">(*this, view); }
    void removeFromSuperview() const { send<void, "removeFromSuperview">(*this); }
    void setBackgroundColor(UIColor color) const { send<void, "setBackgroundColor:">(*this, color); }
    void setClipsToBounds(bool clips) const { send<void, "setClipsToBounds:">(*this, clips); }
    void sizeToFit() const { send<void, "sizeToFit">(*this); }
    CALayer layer() const { return send<CALayer, "layer">(*this); }
};

struct UIImageView : UIView {
    static Owned<UIImageView> withFrame(CGRect frame) {
        auto allocated = send<UIImageView, "alloc">(platformClass<"UIImageView">());
        return Owned<UIImageView>::adopt(send<UIImageView, "initWithFrame:">(allocated, frame));
    }
    void setImage(UIImage image) const { send<void, "setImage:">(*this, image); }
};

struct UILabel : UIView {
    NSString text() const { return send<NSString, "text">(*this); }
};

struct UITableView : UIView {
    bool isEditing() const { return send<bool, "isEditing">(*this); }
};

struct UITableViewCell : UIView {
    UIView contentView() const { return send<UIView, "contentView">(*this); }
    bool isEditing() const { return send<bool, "isEditing">(*this); }
    // The cell's built-in accessory view; private to UIKit.
    UIView defaultAccessoryView() const { return send<UIView, "_defaultAccessoryView">(*this); }
};

// An index path in a table view's terms.
struct NSIndexPath : NSObject {
    NSInteger row() const { return send<NSInteger, "row">(*this); }
};

struct UIScreen : NSObject {
    static UIScreen main() { return send<UIScreen, "mainScreen">(platformClass<"UIScreen">()); }
    CGRect bounds() const { return send<CGRect, "bounds">(*this); }
    // In pixels.
    CGRect nativeBounds() const { return send<CGRect, "nativeBounds">(*this); }
    CGFloat nativeScale() const { return send<CGFloat, "nativeScale">(*this); }
    CGFloat scale() const { return send<CGFloat, "scale">(*this); }
};

struct UIDevice : NSObject {
    static UIDevice current() { return send<UIDevice, "currentDevice">(platformClass<"UIDevice">()); }
    NSString systemVersion() const { return send<NSString, "systemVersion">(*this); }
    NSInteger userInterfaceIdiom() const { return send<NSInteger, "userInterfaceIdiom">(*this); }
};

struct UIApplication : NSObject {
    static UIApplication shared() { return send<UIApplication, "sharedApplication">(platformClass<"UIApplication">()); }
    NSInteger statusBarOrientation() const { return send<NSInteger, "statusBarOrientation">(*this); }
    // UIUserInterfaceLayoutDirectionRightToLeft is 1.
    bool isRightToLeft() const { return send<NSInteger, "userInterfaceLayoutDirection">(*this) == 1; }
};

// The text-drawing message that UIKit adds to strings. The rect is in points; the text is drawn in the current image
// context's fill colour.
enum class LineBreakMode : NSInteger { truncateTail = 4 };
enum class TextAlignment : NSInteger { center = 1 };

inline void drawText(NSString text, CGRect rect, UIFont font, LineBreakMode mode, TextAlignment alignment) {
    send<CGSize, "drawInRect:withFont:lineBreakMode:alignment:">(text, rect, font, static_cast<NSInteger>(mode),
                                                                 static_cast<NSInteger>(alignment));
}
