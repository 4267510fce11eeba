#include "simulator/frameworks/uikit/graphics/picture_format.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace uikit {
namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view start;
    const char* type;
};

constexpr Signature signatures[] = {
    {"\x89PNG\r\n\x1a\n"sv, "png"},
    {"\xff\xd8\xff"sv, "jpeg"},
    {"GIF87a"sv, "gif"},
    {"GIF89a"sv, "gif"},
    {"II*\0"sv, "tiff"},
    {"MM\0*"sv, "tiff"},
    {"BM"sv, "bmp"},
};

// 0 beyond the data's end.
uint8_t byteAt(std::string_view data, size_t at) { return at < data.size() ? uint8_t(data[at]) : 0; }

uint32_t bigEndian(std::string_view data, size_t at, size_t bytes) {
    uint32_t value = 0;
    for (size_t i = 0; i < bytes; ++i) {
        value = value << 8 | byteAt(data, at + i);
    }
    return value;
}

uint32_t littleEndian(std::string_view data, size_t at, size_t bytes) {
    uint32_t value = 0;
    for (size_t i = bytes; i-- > 0;) {
        value = value << 8 | byteAt(data, at + i);
    }
    return value;
}

bool pngReachesEnd(std::string_view data) {
    constexpr size_t frame = 12;  // length, type and checksum around a chunk's contents
    for (size_t at = 8; at + frame <= data.size();) {
        const size_t next = at + frame + bigEndian(data, at, 4);
        if (data.substr(at + 4, 4) == "IEND"sv) {
            return next <= data.size();
        }
        at = next;
    }
    return false;
}

// The next marker at or after `at`; in compressed data, FF is followed by 0 or a restart number.
size_t nextMarker(std::string_view data, size_t at) {
    while ((at = data.find('\xff', at)) != std::string_view::npos && at + 1 < data.size()) {
        const uint8_t code = byteAt(data, at + 1);
        if (code != 0 && code != 0xFF && (code < 0xD0 || code > 0xD7)) {
            return at;
        }
        ++at;
    }
    return std::string_view::npos;
}

bool jpegReachesEnd(std::string_view data) {
    constexpr uint8_t endOfImage = 0xD9;
    for (size_t at = nextMarker(data, 2); at != std::string_view::npos;) {
        if (byteAt(data, at + 1) == endOfImage) {
            return true;
        }
        at = nextMarker(data, at + 2 + bigEndian(data, at + 2, 2));
    }
    return false;
}

bool bmpReachesEnd(std::string_view data) {
    const bool firstVersion = littleEndian(data, 14, 4) == 12;
    const uint64_t width = littleEndian(data, 18, firstVersion ? 2 : 4);
    const uint32_t storedHeight = littleEndian(data, firstVersion ? 20 : 22, firstVersion ? 2 : 4);
    const uint64_t height = firstVersion ? storedHeight : uint64_t(std::abs(int64_t(int32_t(storedHeight))));
    const uint64_t bits = littleEndian(data, firstVersion ? 24 : 28, 2);
    const uint32_t compression = firstVersion ? 0 : littleEndian(data, 30, 4);
    constexpr uint32_t uncompressed = 0, bitFields = 3;
    if (width > INT32_MAX || bits > 32) {
        return false;
    }
    if (compression != uncompressed && compression != bitFields) {
        return littleEndian(data, 2, 4) <= data.size();
    }
    return littleEndian(data, 10, 4) + (width * bits + 31) / 32 * 4 * height <= data.size();
}

}  // namespace

const char* pictureType(std::string_view data) {
    const auto* found = std::find_if(std::begin(signatures), std::end(signatures), [&](const Signature& signature) {
        return data.substr(0, signature.start.size()) == signature.start;
    });
    return found == std::end(signatures) ? nullptr : found->type;
}

bool reachesEnd(std::string_view type, std::string_view data) {
    if (type == "png"sv) {
        return pngReachesEnd(data);
    }
    if (type == "jpeg"sv) {
        return jpegReachesEnd(data);
    }
    return type != "bmp"sv || bmpReachesEnd(data);
}

}  // namespace uikit
