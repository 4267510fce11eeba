#include "simulator/frameworks/uikit/graphics/picture_decoder.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "simulator/frameworks/uikit/graphics/picture_format.h"
#include "simulator/runtime/glib_pointers.h"

namespace uikit {
namespace {

void refuseHugeSizes(GdkPixbufLoader* loader, int width, int height, gpointer refused) {
    constexpr int greatestSide = 32767;
    constexpr int64_t greatestArea = 64'000'000;
    if (width > greatestSide || height > greatestSide || int64_t(width) * height > greatestArea) {
        *static_cast<bool*>(refused) = true;
        gdk_pixbuf_loader_set_size(loader, 0, 0);  // makes the format's loader stop
    }
}

void noteRows(GdkPixbufLoader*, int, int y, int, int height, gpointer rows) {
    *static_cast<int*>(rows) = std::max(*static_cast<int*>(rows), y + height);
}

// Division by 255, rounded, for products of two bytes.
constexpr uint32_t scaled(uint32_t component, uint32_t alpha) {
    const uint32_t t = component * alpha + 128;
    return (t + (t >> 8)) >> 8;
}

void convertOpaqueRow(const uint8_t* from, uint32_t* to, int width) {
    for (int x = 0; x < width; ++x, from += 3) {
        to[x] = 0xFF000000u | uint32_t(from[0]) << 16 | uint32_t(from[1]) << 8 | from[2];
    }
}

void convertTranslucentRow(const uint8_t* from, uint32_t* to, int width) {
    for (int x = 0; x < width; ++x, from += 4) {
        const uint32_t a = from[3];
        to[x] = a << 24 | scaled(from[0], a) << 16 | scaled(from[1], a) << 8 | scaled(from[2], a);
    }
}

cairo_surface_t* convert(const GdkPixbuf* picture) {
    const int width = gdk_pixbuf_get_width(picture), height = gdk_pixbuf_get_height(picture);
    const bool alpha = gdk_pixbuf_get_has_alpha(picture) != 0;
    cairo_surface_t* surface =
        cairo_image_surface_create(alpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24, width, height);
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        return nullptr;
    }
    const uint8_t* from = gdk_pixbuf_read_pixels(picture);
    uint8_t* to = cairo_image_surface_get_data(surface);
    const auto convertRow = alpha ? convertTranslucentRow : convertOpaqueRow;
    for (int y = 0; y < height; ++y) {
        convertRow(from, reinterpret_cast<uint32_t*>(to), width);
        from += gdk_pixbuf_get_rowstride(picture);
        to += cairo_image_surface_get_stride(surface);
    }
    cairo_surface_mark_dirty(surface);
    return surface;
}

}  // namespace

DecodedPicture decodePicture(const void* bytes, size_t length) {
    const std::string_view data(static_cast<const char*>(bytes), length);
    const char* type = pictureType(data);
    if (type == nullptr || !reachesEnd(type, data)) {
        return {};
    }
    const phone::GObjectPointer<GdkPixbufLoader> loader(gdk_pixbuf_loader_new_with_type(type, nullptr));
    if (loader == nullptr) {
        return {};
    }
    bool refused = false;
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(refuseHugeSizes), &refused);
    int pngRows = 0;
    const bool isPng = std::string_view(type) == "png";
    if (isPng) {
        // Compressed data that stop short leave rows of whatever memory held before, and no error.
        g_signal_connect(loader.get(), "area-updated", G_CALLBACK(noteRows), &pngRows);
    }
    const bool written = gdk_pixbuf_loader_write(loader.get(), static_cast<const guchar*>(bytes), length, nullptr) != 0;
    const bool closed = gdk_pixbuf_loader_close(loader.get(), nullptr) != 0;
    GdkPixbuf* picture = gdk_pixbuf_loader_get_pixbuf(loader.get());
    if (!written || !closed || refused || picture == nullptr || (isPng && pngRows < gdk_pixbuf_get_height(picture))) {
        return {};
    }
    DecodedPicture decoded{convert(picture)};
    if (const char* orientation = gdk_pixbuf_get_option(picture, "orientation")) {
        decoded.exifOrientation = std::clamp(std::atoi(orientation), 1, 8);
    }
    return decoded;
}

}  // namespace uikit
