// Pictures. Results are unowned (+0); any thread.
#pragma once

#include "src/platform/core_graphics.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"

struct UIImage : NSObject {
    // The picture in the file, at the scale that its name gives (+0); nil when there is none.
    static UIImage fromFile(NSString path) {
        return zelka::send<UIImage, "imageWithContentsOfFile:">(zelka::platformClass<UIImage>(), path);
    }
    // The decoded picture (+0); nil when the bytes are no picture.
    static UIImage fromData(NSData data) {
        return zelka::send<UIImage, "imageWithData:">(zelka::platformClass<UIImage>(), data);
    }
    // The pixels as a picture of scale 1 (+0).
    static UIImage fromCGImage(CGImageRef image) {
        return zelka::send<UIImage, "imageWithCGImage:">(zelka::platformClass<UIImage>(), image);
    }
    // In points.
    CGSize size() const { return zelka::send<CGSize, "size">(*this); }
    // Lives as long as the picture.
    CGImageRef cgImage() const { return zelka::send<CGImageRef, "CGImage">(*this); }
    // Draws into the current image context.
    void drawInRect(CGRect rect) const { zelka::send<void, "drawInRect:">(*this, rect); }
};
