// What stands behind CoreGraphics' references: Foundation objects around cairo's. For the frameworks' own use.
#pragma once

#import <Foundation/Foundation.h>
#include <cairo.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <shared_mutex>
#include <vector>

#include "simulator/frameworks/core_graphics/geometry.h"

namespace core_graphics {

/// An image's pixels. Taking an image of a context copies nothing: both hold one store until the context draws again
/// (then the image gets a copy) or goes away.
struct PixelStore {
    std::atomic<int> references{1};
    std::atomic<bool> contextDraws;  // never set again once cleared
    std::shared_mutex lock;          // held by readers only while contextDraws
    cairo_surface_t* surface;        // owned

    PixelStore(cairo_surface_t* adopted, bool shared) : contextDraws(shared), surface(adopted) {}
    ~PixelStore() { cairo_surface_destroy(surface); }
    void release() {
        if (references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete this;
        }
    }
};

/// Keeps an image's pixels unchanged for as long as it lives.
class PixelReader {
  public:
    explicit PixelReader(PixelStore* store);
    ~PixelReader();
    PixelReader(const PixelReader&) = delete;
    PixelReader& operator=(const PixelReader&) = delete;
    cairo_surface_t* surface() const { return store_->surface; }

  private:
    PixelStore* store_;
    bool locked_;
};

struct GraphicsState {
    CGAffineTransform ctm = CGAffineTransformIdentity;
    double fill[4] = {0, 0, 0, 1};
    double stroke[4] = {0, 0, 0, 1};
    double alpha = 1;
    cairo_filter_t filter = CAIRO_FILTER_GOOD;
    bool drawable = true;    // false while the transformation flattens everything, which cairo cannot hold
    bool ownsLayer = false;  // saved by CGContextBeginTransparencyLayer
};

/// A context's memory in the layout its creator asked for, where cairo cannot draw in that layout itself.
struct MirroredMemory {
    uint8_t* bytes;
    bool owned;
};

}  // namespace core_graphics

@interface CGColorSpaceObject : NSObject {
  @public
    CGColorSpaceModel model;
}
@end

@interface CGColorObject : NSObject {
  @public
    CGColorSpaceModel model;
    CGFloat components[4];
    double rgba[4];
}
@end

@interface CGImageObject : NSObject {
  @public
    core_graphics::PixelStore* store;
    int width, height;
    CGImageAlphaInfo alphaInfo;
}
@end

@interface CGContextObject : NSObject {
  @public
    cairo_t* cairo;
    cairo_surface_t* surface;
    core_graphics::PixelStore* snapshot;     // the last image taken, while nothing was drawn since
    core_graphics::MirroredMemory mirrored;  // bytes NULL when cairo draws in the memory itself
    bool othersWrite;                        // a caller holds the memory's address
    size_t width, height, bytesPerRow;
    CGBitmapInfo bitmapInfo;
    core_graphics::GraphicsState state;
    std::vector<core_graphics::GraphicsState>* saved;
    bool hasCurrentPoint;
    CGPoint currentPoint, subpathStart;  // device space, in full precision: cairo rounds its own
}
@end

struct CGPathNode {
    CGPathElementType type;
    CGPoint points[3];
};

@interface CGPathObject : NSObject {
  @public
    std::vector<CGPathNode>* nodes;
    CGPoint currentPoint, subpathStart;
}
@end

namespace core_graphics {

inline CGColorObject* object(CGColorRef color) { return reinterpret_cast<CGColorObject*>(color); }
inline CGImageObject* object(CGImageRef image) { return reinterpret_cast<CGImageObject*>(image); }
inline CGContextObject* object(CGContextRef context) { return reinterpret_cast<CGContextObject*>(context); }
inline CGPathObject* object(CGPathRef path) {
    return reinterpret_cast<CGPathObject*>(const_cast<struct CGPath*>(path));
}

/// Writes "<Error>: FUNCTION: TEXT" to standard error.
void logError(const char* function, const char* text);

/// The context's object, or nil after the report that CoreGraphics makes of a NULL context.
CGContextObject* checked(CGContextRef context, const char* function);

/// False, and the report CoreGraphics makes of it, when a number is not finite.
bool areFinite(std::initializer_list<CGFloat> numbers);

/// Brackets one drawing: gives images taken before their own pixels, and keeps mirrored memory in step.
class Drawing {
  public:
    Drawing(CGContextRef context, const char* function);
    ~Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    explicit operator bool() const { return context_ != nil; }
    CGContextObject* operator->() const { return context_; }
    CGContextObject* get() const { return context_; }
    cairo_t* cairo() const { return context_->cairo; }
    void useFillColor() const;
    void useStrokeColor() const;

  private:
    CGContextObject* context_;
};

/// +1 and adopts the surface (ARGB32 or RGB24); NULL for NULL.
CGImageRef createImage(cairo_surface_t* adopted);
/// +1 and takes over one reference to the store; the surface is the store's.
CGImageRef createImage(PixelStore* adopted, cairo_surface_t* surface);
/// +1 or nullptr: a copy of a whole image surface, or of a part of it.
cairo_surface_t* copySurface(cairo_surface_t* source, int x, int y, int width, int height);
/// Draws the image into the area that is its pixels' rectangle under `pixelsToUser`, edges as opaque as the middle.
void drawImage(const Drawing& drawing, CGImageRef image, const CGAffineTransform& pixelsToUser);

}  // namespace core_graphics
