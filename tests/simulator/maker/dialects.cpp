#include "tests/simulator/maker/dialects.h"

#include <glib.h>
#include <zlib.h>

#include <cstdio>
#include <stdexcept>

namespace test {

std::string encoded(const std::string& utf8, const char* charset) {
    gsize length = 0;
    gchar* bytes =
        g_convert(utf8.data(), static_cast<gssize>(utf8.size()), charset, "UTF-8", nullptr, &length, nullptr);
    if (bytes == nullptr) throw std::runtime_error(std::string(charset) + " has no " + utf8);
    std::string result(bytes, length);
    g_free(bytes);
    return result;
}

std::string quotedPrintable(const std::string& bytes) {
    std::string result;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        char coded[4] = {c, 0};
        if (byte >= 0x80 || c == '=') std::snprintf(coded, sizeof coded, "=%02X", byte);
        result += coded;
    }
    return result;
}

std::string gzipped(const std::string& bytes) {
    z_stream stream{};
    constexpr int gzip = 16 + MAX_WBITS;
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, gzip, 8, Z_DEFAULT_STRATEGY);
    std::string result(deflateBound(&stream, bytes.size()) + 32, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.resize(stream.total_out);
    deflateEnd(&stream);
    return result;
}

std::string withLineEnds(const std::string& text, const std::string& end) {
    std::string result;
    for (const char c : text) {
        if (c == '\n') {
            result += end;
        } else {
            result += c;
        }
    }
    return result;
}

std::string folded(const std::string& text, const std::string& indent) {
    std::string result;
    for (std::size_t start = 0; start < text.size(); start += 60)
        result += (start > 0 ? "\n" + indent : "") + text.substr(start, 60);
    return result;
}

}  // namespace test
