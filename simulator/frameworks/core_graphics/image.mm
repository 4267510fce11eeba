#include "simulator/frameworks/core_graphics/image.h"

#include <cstring>

#import "simulator/frameworks/core_graphics/objects.h"

using core_graphics::object;

@implementation CGImageObject
- (void)dealloc {
    if (store != nullptr) {
        store->release();
    }
    [super dealloc];
}
@end

namespace core_graphics {

PixelReader::PixelReader(PixelStore* store) : store_(store), locked_(store->contextDraws.load()) {
    if (locked_) {
        store_->lock.lock_shared();
    }
}

PixelReader::~PixelReader() {
    if (locked_) {
        store_->lock.unlock_shared();
    }
}

CGImageRef createImage(PixelStore* store, cairo_surface_t* surface) {
    CGImageObject* image = [[CGImageObject alloc] init];
    image->store = store;
    image->width = cairo_image_surface_get_width(surface);
    image->height = cairo_image_surface_get_height(surface);
    image->alphaInfo = cairo_image_surface_get_format(surface) == CAIRO_FORMAT_RGB24 ? kCGImageAlphaNoneSkipFirst
                                                                                     : kCGImageAlphaPremultipliedFirst;
    return reinterpret_cast<CGImageRef>(image);
}

CGImageRef createImage(cairo_surface_t* adopted) {
    return adopted == nullptr ? nullptr : createImage(new PixelStore(adopted, false), adopted);
}

cairo_surface_t* copySurface(cairo_surface_t* source, int x, int y, int width, int height) {
    cairo_surface_flush(source);
    cairo_surface_t* copy = cairo_image_surface_create(cairo_image_surface_get_format(source), width, height);
    if (cairo_surface_status(copy) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(copy);
        return nullptr;
    }
    const size_t sourceStride = cairo_image_surface_get_stride(source);
    const size_t copyStride = cairo_image_surface_get_stride(copy);
    const uint8_t* from = cairo_image_surface_get_data(source) + y * sourceStride + size_t(x) * 4;
    uint8_t* to = cairo_image_surface_get_data(copy);
    for (int row = 0; row < height; ++row, from += sourceStride, to += copyStride) {
        std::memcpy(to, from, size_t(width) * 4);
    }
    cairo_surface_mark_dirty(copy);
    return copy;
}

}  // namespace core_graphics

CGImageRef CGImageCreateWithImageInRect(CGImageRef image, CGRect rect) {
    const CGRect whole = CGRectMake(0, 0, CGFloat(CGImageGetWidth(image)), CGFloat(CGImageGetHeight(image)));
    const CGRect part = CGRectIntersection(CGRectIntegral(rect), whole);
    if (CGRectIsEmpty(part)) {
        return nullptr;
    }
    const core_graphics::PixelReader pixels(object(image)->store);
    return core_graphics::createImage(core_graphics::copySurface(
        pixels.surface(), int(part.origin.x), int(part.origin.y), int(part.size.width), int(part.size.height)));
}

CGImageRef CGImageRetain(CGImageRef image) {
    [reinterpret_cast<id>(image) retain];
    return image;
}

void CGImageRelease(CGImageRef image) { [reinterpret_cast<id>(image) release]; }

size_t CGImageGetWidth(CGImageRef image) { return image == nullptr ? 0 : size_t(object(image)->width); }

size_t CGImageGetHeight(CGImageRef image) { return image == nullptr ? 0 : size_t(object(image)->height); }

size_t CGImageGetBitsPerComponent(CGImageRef image) { return image == nullptr ? 0 : 8; }

size_t CGImageGetBitsPerPixel(CGImageRef image) { return image == nullptr ? 0 : 32; }

size_t CGImageGetBytesPerRow(CGImageRef image) { return CGImageGetWidth(image) * 4; }

CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef image) {
    return image == nullptr ? kCGImageAlphaNone : object(image)->alphaInfo;
}

CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image) {
    return image == nullptr ? 0 : kCGBitmapByteOrder32Little | CGImageGetAlphaInfo(image);
}
