#include "simulator/maker/contacts/photo.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <cstdint>

#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

using Pixbuf = phone::GObjectPointer<GdkPixbuf>;

std::string takeMessage(GError* error) {
    std::string message = error ? error->message : "unknown reason";
    g_clear_error(&error);
    return message;
}

// Decoding at this size keeps enormous pictures cheap and leaves enough for a sharp thumbnail.
constexpr int kDecodedSide = 4 * kThumbnailSide;

// Not every format is decoded at another size than its own. More than any camera's.
constexpr std::int64_t kGreatestArea = 200'000'000;

struct PictureSize {
    int width = 0, height = 0;
    bool isTooLarge() const { return static_cast<std::int64_t>(width) * height > kGreatestArea; }
};

void limitSize(GdkPixbufLoader* loader, int width, int height, gpointer data) {
    auto* size = static_cast<PictureSize*>(data);
    *size = {width, height};
    if (size->isTooLarge()) {
        gdk_pixbuf_loader_set_size(loader, 0, 0);  // makes the format's loader stop
        return;
    }
    int shorter = std::min(width, height);
    if (shorter <= kDecodedSide) return;
    double scale = static_cast<double>(kDecodedSide) / shorter;
    gdk_pixbuf_loader_set_size(loader, std::max(1, static_cast<int>(width * scale)),
                               std::max(1, static_cast<int>(height * scale)));
}

// Big-endian.
std::size_t numberAt(std::string_view bytes, std::size_t place, std::size_t length) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < length; ++i) number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
    return number;
}

// Whether a JPEG's segments lead to the picture's data, and these to the mark of their end, which they cannot contain
// (ISO/IEC 10918-1, B.1.1).
bool isWholeJpeg(std::string_view bytes) {
    constexpr std::size_t markLength = 2;
    constexpr std::size_t startOfData = 0xFFDA;
    for (std::size_t place = markLength; place + 2 * markLength <= bytes.size();) {
        const std::size_t mark = numberAt(bytes, place, markLength);
        if (mark == startOfData) return bytes.find("\xFF\xD9", place) != std::string_view::npos;
        place += markLength + numberAt(bytes, place + markLength, 2);
    }
    return false;
}

// Whether a PNG's chunks lead to the last one (RFC 2083, 3.2).
bool isWholePng(std::string_view bytes) {
    constexpr std::size_t signature = 8, frame = 12;
    for (std::size_t place = signature; place + frame <= bytes.size();) {
        if (bytes.substr(place + 4, 4) == "IEND") return true;
        place += frame + numberAt(bytes, place, 4);
    }
    return false;
}

// The decoders fill up with grey what is missing.
bool isCutShort(std::string_view bytes) {
    if (bytes.substr(0, 2) == "\xFF\xD8") return !isWholeJpeg(bytes);
    return bytes.substr(0, 4) == "\x89PNG" && !isWholePng(bytes);
}

Result<Pixbuf> decode(std::string_view encoded, PictureSize& size) {
    if (encoded.empty()) return failure("no bytes");
    const phone::GObjectPointer<GdkPixbufLoader> loader(gdk_pixbuf_loader_new());
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(limitSize), &size);
    GError* error = nullptr;
    bool written =
        gdk_pixbuf_loader_write(loader.get(), reinterpret_cast<const guchar*>(encoded.data()), encoded.size(), &error);
    bool closed = gdk_pixbuf_loader_close(loader.get(), written ? &error : nullptr);
    if (size.isTooLarge()) {
        g_clear_error(&error);
        return failure("too large, " + std::to_string(size.width) + " x " + std::to_string(size.height) + " pixels");
    }
    if (!written || !closed) return failure(takeMessage(error));
    GdkPixbuf* decoded = gdk_pixbuf_loader_get_pixbuf(loader.get());
    if (!decoded) return failure("no picture in it");
    return Pixbuf(gdk_pixbuf_apply_embedded_orientation(decoded));
}

Result<std::string> encode(GdkPixbuf* pixbuf) {
    gchar* bytes = nullptr;
    gsize length = 0;
    GError* error = nullptr;
    bool saved = gdk_pixbuf_get_has_alpha(pixbuf)
                     ? gdk_pixbuf_save_to_buffer(pixbuf, &bytes, &length, "png", &error, nullptr)
                     : gdk_pixbuf_save_to_buffer(pixbuf, &bytes, &length, "jpeg", &error, "quality", "90", nullptr);
    if (!saved) return failure(takeMessage(error));
    const phone::GText saver(bytes);
    return std::string(bytes, length);
}

}  // namespace

Result<Photo> makePhoto(std::string_view encoded) {
    if (isCutShort(encoded)) return failure("not a picture: it is cut short");
    PictureSize size;
    Result<Pixbuf> decoded = decode(encoded, size);
    if (!decoded) return failure("not a picture: " + decoded.error().message);
    GdkPixbuf* picture = decoded->get();
    int width = gdk_pixbuf_get_width(picture);
    int height = gdk_pixbuf_get_height(picture);
    int side = std::min(width, height);
    int x = (width - side) / 2;
    int y = (height - side) / 2;
    Pixbuf square(gdk_pixbuf_new_subpixbuf(picture, x, y, side, side));
    Pixbuf scaled(gdk_pixbuf_scale_simple(square.get(), kThumbnailSide, kThumbnailSide, GDK_INTERP_BILINEAR));
    if (!scaled) return failure("not enough memory for a thumbnail");
    const double enlarged = static_cast<double>(std::min(size.width, size.height)) / side;
    return encode(scaled.get()).map([&](std::string thumbnail) {
        return Photo{std::move(thumbnail), static_cast<int>(x * enlarged), static_cast<int>(y * enlarged),
                     std::min(size.width, size.height)};
    });
}

std::string plainThumbnail(unsigned colour) {
    Pixbuf picture(gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, kThumbnailSide, kThumbnailSide));
    gdk_pixbuf_fill(picture.get(), (colour << 8) | 0xFF);
    guchar* pixels = gdk_pixbuf_get_pixels(picture.get());
    int stride = gdk_pixbuf_get_rowstride(picture.get());
    constexpr int centre = kThumbnailSide / 2;
    constexpr int radius = kThumbnailSide / 4;
    for (int y = centre - radius; y < centre + radius; ++y) {
        for (int x = centre - radius; x < centre + radius; ++x) {
            if ((x - centre) * (x - centre) + (y - centre) * (y - centre) > radius * radius) continue;
            guchar* pixel = pixels + static_cast<std::ptrdiff_t>(y) * stride + static_cast<std::ptrdiff_t>(x) * 3;
            for (int channel = 0; channel < 3; ++channel) {
                pixel[channel] = static_cast<guchar>(pixel[channel] + (255 - pixel[channel]) / 2);
            }
        }
    }
    return encode(picture.get()).value();
}

}  // namespace maker
