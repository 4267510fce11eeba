#include "simulator/frameworks/uikit/graphics/pixels.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#import "simulator/frameworks/core_graphics/objects.h"

namespace phone {

std::optional<Pixel> pixelAt(CGImageRef image, size_t x, size_t y) {
    if (x >= CGImageGetWidth(image) || y >= CGImageGetHeight(image)) {
        return std::nullopt;
    }
    const core_graphics::PixelReader pixels(core_graphics::object(image)->store);
    cairo_surface_t* surface = pixels.surface();
    cairo_surface_flush(surface);
    const uint8_t* row = cairo_image_surface_get_data(surface) + y * size_t(cairo_image_surface_get_stride(surface));
    uint32_t word;
    std::memcpy(&word, row + x * 4, sizeof word);
    const bool opaque = cairo_image_surface_get_format(surface) == CAIRO_FORMAT_RGB24;
    return Pixel{uint8_t(word >> 16), uint8_t(word >> 8), uint8_t(word), opaque ? uint8_t(255) : uint8_t(word >> 24)};
}

static cairo_status_t writeBytes(void* file, const unsigned char* bytes, unsigned length) {
    return std::fwrite(bytes, 1, length, static_cast<std::FILE*>(file)) == length ? CAIRO_STATUS_SUCCESS
                                                                                  : CAIRO_STATUS_WRITE_ERROR;
}

Status writePng(CGImageRef image, const std::string& hostPath) {
    if (image == nullptr) {
        return failure(hostPath + ": there is no picture to write");
    }
    const std::string unfinished = hostPath + ".part";
    std::FILE* file = std::fopen(unfinished.c_str(), "wbe");
    if (file == nullptr) {
        return failure(hostPath + ": " + std::strerror(errno));
    }
    const core_graphics::PixelReader pixels(core_graphics::object(image)->store);
    errno = 0;
    const cairo_status_t status = cairo_surface_write_to_png_stream(pixels.surface(), writeBytes, file);
    const bool closed = std::fclose(file) == 0;
    if (status == CAIRO_STATUS_SUCCESS && closed && std::rename(unfinished.c_str(), hostPath.c_str()) == 0) {
        return {};
    }
    const char* why = errno != 0 ? std::strerror(errno) : cairo_status_to_string(status);
    std::remove(unfinished.c_str());
    return failure(hostPath + ": " + why);
}

}  // namespace phone
