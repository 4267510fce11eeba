#include "tests/simulator/graphics/encoded_pictures.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <zlib.h>

#include <algorithm>

RawPicture quarters(int width, int height) {
    RawPicture picture{width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            static constexpr uint8_t colors[4][4] = {
                {255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {255, 255, 255, 128}};
            const uint8_t* color = colors[(y * 2 >= height ? 2 : 0) + (x * 2 >= width ? 1 : 0)];
            picture.rgba.insert(picture.rgba.end(), color, color + 4);
        }
    }
    return picture;
}

std::string encode(const RawPicture& picture, const char* format) {
    GdkPixbuf* pixels = gdk_pixbuf_new_from_data(picture.rgba.data(), GDK_COLORSPACE_RGB, TRUE, 8, picture.width,
                                                 picture.height, picture.width * 4, nullptr, nullptr);
    gchar* bytes = nullptr;
    gsize length = 0;
    std::string result;
    if (gdk_pixbuf_save_to_buffer(pixels, &bytes, &length, format, nullptr, nullptr) != 0) {
        result.assign(bytes, length);
        g_free(bytes);
    }
    g_object_unref(pixels);
    return result;
}

std::string withOrientation(const std::string& jpeg, int orientation) {
    std::string exif(
        "\xff\xe1\x00\x22"
        "Exif\0\0"
        "MM\0*\0\0\0\x08"
        "\0\x01"
        "\x01\x12\0\x03\0\0\0\x01\0\0\0\0"
        "\0\0\0\0",
        36);
    exif[4 + 6 + 8 + 2 + 9] = char(orientation);
    return jpeg.substr(0, 2) + exif + jpeg.substr(2);
}

namespace {

void appendLittle(std::string& out, unsigned value) {
    out += char(value & 0xFF);
    out += char(value >> 8);
}

// Codes of three bits, with the table cleared often enough that they never grow.
std::string gifFrame(int width, int height, int color) {
    std::string packed;
    unsigned bits = 0, count = 0;
    const auto put = [&](unsigned code) {
        bits |= code << count;
        for (count += 3; count >= 8; count -= 8, bits >>= 8) {
            packed += char(bits & 0xFF);
        }
    };
    constexpr unsigned clearTable = 4, end = 5;
    for (int i = 0; i < width * height; ++i) {
        if (i % 2 == 0) {
            put(clearTable);
        }
        put(unsigned(color));
    }
    put(end);
    packed += char(bits & 0xFF);
    std::string frame("\x2c\0\0\0\0", 5);
    appendLittle(frame, unsigned(width));
    appendLittle(frame, unsigned(height));
    frame += std::string("\0\x02", 2);
    for (size_t at = 0; at < packed.size(); at += 255) {
        const std::string block = packed.substr(at, 255);
        frame += char(block.size());
        frame += block;
    }
    return frame + '\0';
}

std::string bigEndian(uint32_t value) { return {char(value >> 24), char(value >> 16), char(value >> 8), char(value)}; }

std::string chunk(const std::string& type, const std::string& data) {
    const std::string body = type + data;
    const uLong checksum = crc32(0, reinterpret_cast<const Bytef*>(body.data()), uInt(body.size()));
    return bigEndian(uint32_t(data.size())) + body + bigEndian(uint32_t(checksum));
}

}  // namespace

std::string encodeGif(int width, int height, const std::vector<int>& frameColors) {
    std::string gif = "GIF89a";
    appendLittle(gif, unsigned(width));
    appendLittle(gif, unsigned(height));
    gif += std::string(
        "\xf1\0\0"
        "\xff\0\0"
        "\0\xff\0"
        "\0\0\xff"
        "\0\0\0",
        15);
    for (const int color : frameColors) {
        gif += gifFrame(width, height, color);
    }
    return gif + '\x3b';
}

std::string pngWithRows(uint32_t width, uint32_t height, uint32_t rows) {
    std::string raw;
    for (uint32_t y = 0; y < rows; ++y) {
        raw += '\0' + std::string(size_t(width) * 4, '\xff');
    }
    uLongf length = compressBound(uLong(raw.size()));
    std::string packed(length, '\0');
    compress(reinterpret_cast<Bytef*>(packed.data()), &length, reinterpret_cast<const Bytef*>(raw.data()),
             uLong(raw.size()));
    packed.resize(length);
    return "\x89PNG\r\n\x1a\n" +
           chunk("IHDR", bigEndian(width) + bigEndian(height) + std::string("\x08\x06\0\0\0", 5)) +
           chunk("IDAT", packed) + chunk("IEND", "");
}
