#include "simulator/frameworks/core_graphics/context.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>

#import "simulator/frameworks/core_graphics/objects.h"

namespace {

const char* alphaName(uint32_t info) {
    static constexpr const char* names[] = {
        "kCGImageAlphaNone",  "kCGImageAlphaPremultipliedLast", "kCGImageAlphaPremultipliedFirst", "kCGImageAlphaLast",
        "kCGImageAlphaFirst", "kCGImageAlphaNoneSkipLast",      "kCGImageAlphaNoneSkipFirst",      "kCGImageAlphaOnly"};
    info &= kCGBitmapAlphaInfoMask;
    return info < std::size(names) ? names[info] : "unknown alpha info";
}

bool isAlphaFirst(CGBitmapInfo info) {
    const uint32_t alpha = info & kCGBitmapAlphaInfoMask;
    return alpha == kCGImageAlphaPremultipliedFirst || alpha == kCGImageAlphaNoneSkipFirst;
}

bool isOpaque(CGBitmapInfo info) {
    const uint32_t alpha = info & kCGBitmapAlphaInfoMask;
    return alpha == kCGImageAlphaNoneSkipFirst || alpha == kCGImageAlphaNoneSkipLast;
}

bool isSupported(size_t bitsPerComponent, CGColorSpaceRef space, CGBitmapInfo info) {
    const uint32_t alpha = info & kCGBitmapAlphaInfoMask, order = info & kCGBitmapByteOrderMask;
    return bitsPerComponent == 8 && CGColorSpaceGetModel(space) == kCGColorSpaceModelRGB &&
           (info & kCGBitmapFloatComponents) == 0 &&
           (order == kCGBitmapByteOrderDefault || order == kCGBitmapByteOrder32Little ||
            order == kCGBitmapByteOrder32Big) &&
           (alpha == kCGImageAlphaPremultipliedFirst || alpha == kCGImageAlphaPremultipliedLast || isOpaque(info));
}

// Cairo's pixels are native 32-bit words with alpha in the top byte.
bool isCairosLayout(CGBitmapInfo info) {
    return isAlphaFirst(info) && (info & kCGBitmapByteOrderMask) == kCGBitmapByteOrder32Little;
}

cairo_format_t cairoFormat(CGBitmapInfo info) { return isOpaque(info) ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32; }

// Where alpha, red, green and blue lie in a pixel's four bytes.
struct ByteOrder {
    unsigned a, r, g, b;
};

ByteOrder byteOrder(CGBitmapInfo info) {
    const bool little = (info & kCGBitmapByteOrderMask) == kCGBitmapByteOrder32Little;
    if (isAlphaFirst(info)) {
        return little ? ByteOrder{3, 2, 1, 0} : ByteOrder{0, 1, 2, 3};
    }
    return little ? ByteOrder{0, 3, 2, 1} : ByteOrder{3, 0, 1, 2};
}

template <class Row>
void forEachRow(CGContextObject* context, Row row) {
    uint8_t* pixels = cairo_image_surface_get_data(context->surface);
    const size_t stride = size_t(cairo_image_surface_get_stride(context->surface));
    for (size_t y = 0; y < context->height; ++y) {
        row(reinterpret_cast<uint32_t*>(pixels + y * stride), context->mirrored.bytes + y * context->bytesPerRow);
    }
}

void loadMirrored(CGContextObject* context) {
    const ByteOrder order = byteOrder(context->bitmapInfo);
    const size_t width = context->width;
    forEachRow(context, [&](uint32_t* word, const uint8_t* byte) {
        for (size_t x = 0; x < width; ++x, byte += 4) {
            word[x] = uint32_t(byte[order.a]) << 24 | uint32_t(byte[order.r]) << 16 | uint32_t(byte[order.g]) << 8 |
                      byte[order.b];
        }
    });
}

void storeMirrored(CGContextObject* context) {
    const ByteOrder order = byteOrder(context->bitmapInfo);
    const size_t width = context->width;
    cairo_surface_flush(context->surface);
    forEachRow(context, [&](const uint32_t* word, uint8_t* byte) {
        for (size_t x = 0; x < width; ++x, byte += 4) {
            byte[order.a] = uint8_t(word[x] >> 24);
            byte[order.r] = uint8_t(word[x] >> 16);
            byte[order.g] = uint8_t(word[x] >> 8);
            byte[order.b] = uint8_t(word[x]);
        }
    });
}

}  // namespace

@implementation CGContextObject
- (void)dealloc {
    if (snapshot != nullptr) {
        // Nothing draws in these pixels any more: they are the image's.
        snapshot->contextDraws.store(false);
        snapshot->release();
    }
    delete saved;
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    if (mirrored.owned) {
        std::free(mirrored.bytes);
    }
    [super dealloc];
}
@end

namespace core_graphics {

void logError(const char* function, const char* text) { std::fprintf(stderr, "<Error>: %s: %s\n", function, text); }

CGContextObject* checked(CGContextRef context, const char* function) {
    if (context == nullptr) {
        logError(function, "invalid context 0x0");
    }
    return object(context);
}

bool areFinite(std::initializer_list<CGFloat> numbers) {
    const bool all = std::all_of(numbers.begin(), numbers.end(), [](CGFloat n) { return std::isfinite(n); });
    if (!all) {
        std::fputs("<Error>: this application, or a library it uses, has passed an invalid numeric value (NaN, or "
                   "not-a-number) to CoreGraphics API and this value is being ignored.\n",
                   stderr);
    }
    return all;
}

// Images share the pixels that are about to change: leave the old ones with them.
static void detachSnapshot(CGContextObject* context) {
    PixelStore* store = context->snapshot;
    context->snapshot = nullptr;
    {
        const std::unique_lock held(store->lock);
        if (store->references.load(std::memory_order_acquire) > 1) {
            cairo_surface_t* copy = copySurface(store->surface, 0, 0, int(context->width), int(context->height));
            if (copy == nullptr) {
                std::fputs("<Error>: out of memory for a picture that was taken of a drawing\n", stderr);
                std::abort();
            }
            cairo_surface_destroy(store->surface);
            store->surface = copy;
        }
        store->contextDraws.store(false);
    }
    store->release();
}

Drawing::Drawing(CGContextRef context, const char* function) : context_(checked(context, function)) {
    if (context_ == nil) {
        return;
    }
    if (context_->snapshot != nullptr) {
        detachSnapshot(context_);
    }
    if (context_->mirrored.bytes != nullptr) {
        loadMirrored(context_);
    }
    if (context_->othersWrite) {
        cairo_surface_mark_dirty(context_->surface);
    }
}

Drawing::~Drawing() {
    if (context_ != nil && context_->mirrored.bytes != nullptr) {
        storeMirrored(context_);
    }
}

}  // namespace core_graphics

static CGContextRef createContext(cairo_surface_t* surface, size_t width, size_t height, size_t bytesPerRow,
                                  CGBitmapInfo info) {
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        core_graphics::logError("CGBitmapContextCreate", "failed to create delegate.");
        return nullptr;
    }
    CGContextObject* context = [[CGContextObject alloc] init];
    context->surface = surface;
    context->cairo = cairo_create(surface);
    context->width = width;
    context->height = height;
    context->bytesPerRow = bytesPerRow;
    context->bitmapInfo = info;
    context->state = {};
    context->saved = new std::vector<core_graphics::GraphicsState>;
    cairo_set_line_width(context->cairo, 1);
    const cairo_matrix_t yUp{1, 0, 0, -1, 0, double(height)};
    cairo_set_matrix(context->cairo, &yUp);
    return reinterpret_cast<CGContextRef>(context);
}

CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef space, CGBitmapInfo bitmapInfo) {
    const size_t components = CGColorSpaceGetNumberOfComponents(space);
    if (!isSupported(bitsPerComponent, space, bitmapInfo)) {
        std::fprintf(stderr,
                     "<Error>: CGBitmapContextCreate: unsupported parameter combination: %zu integer bits/component; "
                     "%zu bits/pixel; %zu-component color space; %s; %zu bytes/row.\n",
                     bitsPerComponent, bitsPerComponent * (components == 3 ? 4 : components), components,
                     alphaName(bitmapInfo), bytesPerRow);
        return nullptr;
    }
    constexpr size_t greatestSide = 32767;  // of cairo's surfaces
    if (width == 0 || height == 0 || width > greatestSide || height > greatestSide) {
        core_graphics::logError(__func__, "failed to create delegate.");
        return nullptr;
    }
    if (bytesPerRow != 0 && bytesPerRow < width * 4) {
        std::fprintf(stderr,
                     "<Error>: CGBitmapContextCreate: invalid data bytes/row: should be at least %zu for 8 integer "
                     "bits/component, 3 components, %s.\n",
                     width * 4, alphaName(bitmapInfo));
        return nullptr;
    }
    bytesPerRow = bytesPerRow == 0 ? width * 4 : bytesPerRow;
    const cairo_format_t format = cairoFormat(bitmapInfo);
    if (data != nullptr && isCairosLayout(bitmapInfo) && bytesPerRow % 4 == 0 &&
        reinterpret_cast<uintptr_t>(data) % 4 == 0) {
        const CGContextRef context =
            createContext(cairo_image_surface_create_for_data(static_cast<uint8_t*>(data), format, int(width),
                                                              int(height), int(bytesPerRow)),
                          width, height, bytesPerRow, bitmapInfo);
        if (context != nullptr) {
            core_graphics::object(context)->othersWrite = true;
        }
        return context;
    }
    const CGContextRef context = createContext(cairo_image_surface_create(format, int(width), int(height)), width,
                                               height, bytesPerRow, bitmapInfo);
    if (context != nullptr && data != nullptr) {
        core_graphics::object(context)->mirrored = {static_cast<uint8_t*>(data), false};
        core_graphics::object(context)->othersWrite = true;
    }
    return context;
}

CGImageRef CGBitmapContextCreateImage(CGContextRef context) {
    CGContextObject* target = core_graphics::checked(context, __func__);
    if (target == nil) {
        return nullptr;
    }
    if (target->othersWrite) {
        // A caller's writes to its memory go unnoticed: the picture needs its own at once.
        core_graphics::Drawing inStep(context, __func__);
        return core_graphics::createImage(
            core_graphics::copySurface(target->surface, 0, 0, int(target->width), int(target->height)));
    }
    if (target->snapshot == nullptr) {
        target->snapshot = new core_graphics::PixelStore(cairo_surface_reference(target->surface), true);
    }
    target->snapshot->references.fetch_add(1, std::memory_order_relaxed);
    return core_graphics::createImage(target->snapshot, target->surface);
}

void* CGBitmapContextGetData(CGContextRef context) {
    CGContextObject* target = core_graphics::checked(context, __func__);
    if (target == nil) {
        return nullptr;
    }
    if (target->mirrored.bytes != nullptr) {
        return target->mirrored.bytes;
    }
    const core_graphics::Drawing callerMayWrite(context, __func__);
    target->othersWrite = true;
    const size_t stride = size_t(cairo_image_surface_get_stride(target->surface));
    if (isCairosLayout(target->bitmapInfo) && stride == target->bytesPerRow) {
        return cairo_image_surface_get_data(target->surface);
    }
    target->mirrored = {static_cast<uint8_t*>(std::calloc(target->height, target->bytesPerRow)), true};
    return target->mirrored.bytes;  // filled as the drawing ends
}

size_t CGBitmapContextGetWidth(CGContextRef context) {
    CGContextObject* target = core_graphics::checked(context, __func__);
    return target == nil ? 0 : target->width;
}

size_t CGBitmapContextGetHeight(CGContextRef context) {
    CGContextObject* target = core_graphics::checked(context, __func__);
    return target == nil ? 0 : target->height;
}

size_t CGBitmapContextGetBytesPerRow(CGContextRef context) {
    CGContextObject* target = core_graphics::checked(context, __func__);
    return target == nil ? 0 : target->bytesPerRow;
}

CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef context) {
    CGContextObject* target = core_graphics::checked(context, __func__);
    return target == nil ? kCGImageAlphaNone : CGImageAlphaInfo(target->bitmapInfo & kCGBitmapAlphaInfoMask);
}

CGContextRef CGContextRetain(CGContextRef context) {
    [reinterpret_cast<id>(context) retain];
    return context;
}

void CGContextRelease(CGContextRef context) { [reinterpret_cast<id>(context) release]; }
