#include "simulator/frameworks/core_graphics/data_provider.h"

#import "simulator/frameworks/core_graphics/objects.h"

// Every provider here is an image's: the image itself, under another name.
static CGImageRef imageOf(CGDataProviderRef provider) { return reinterpret_cast<CGImageRef>(provider); }

CGDataProviderRef CGImageGetDataProvider(CGImageRef image) { return reinterpret_cast<CGDataProviderRef>(image); }

CGDataProviderRef CGDataProviderRetain(CGDataProviderRef provider) {
    CGImageRetain(imageOf(provider));
    return provider;
}

void CGDataProviderRelease(CGDataProviderRef provider) { CGImageRelease(imageOf(provider)); }

CFDataRef CGDataProviderCopyData(CGDataProviderRef provider) {
    const CGImageRef image = imageOf(provider);
    if (image == nullptr) {
        return nil;
    }
    const core_graphics::PixelReader pixels(core_graphics::object(image)->store);
    cairo_surface_t* surface = pixels.surface();
    cairo_surface_flush(surface);
    const size_t stride = size_t(cairo_image_surface_get_stride(surface));
    const size_t length = CGImageGetBytesPerRow(image);
    NSMutableData* copy = [[NSMutableData alloc] initWithCapacity:length * CGImageGetHeight(image)];
    const uint8_t* row = cairo_image_surface_get_data(surface);
    for (size_t y = 0; y < CGImageGetHeight(image); ++y, row += stride) {
        [copy appendBytes:row length:length];
    }
    return copy;
}
