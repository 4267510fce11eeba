#include "tests/package/code_signature.h"

#include <endian.h>
#include <glib.h>

#include <cstdint>
#include <cstring>

namespace test {
namespace {

constexpr uint32_t kDirectoryMagic = 0xfade0c02, kSignatureCommand = 0x1d, kMagic32 = 0xfeedface;
constexpr size_t kPageBytes = 4096;

// Bounds are checked by the library's own: a damaged file ends the test.
template <class T>
T valueAt(const std::string& bytes, size_t offset) {
    T value;
    std::memcpy(&value, bytes.substr(offset, sizeof value).c_str(), sizeof value);
    return value;
}

uint32_t big32(const std::string& bytes, size_t offset) { return be32toh(valueAt<uint32_t>(bytes, offset)); }

// Where the signature begins; 0 when there is none.
size_t signatureOffset(const std::string& file) {
    size_t at = valueAt<uint32_t>(file, 0) == kMagic32 ? 28 : 32;
    for (uint32_t left = valueAt<uint32_t>(file, 16); left > 0; --left) {
        if (valueAt<uint32_t>(file, at) == kSignatureCommand) return valueAt<uint32_t>(file, at + 8);
        at += valueAt<uint32_t>(file, at + 4);
    }
    return 0;
}

std::string hashOf(const std::string& bytes, size_t width) {
    GChecksum* checksum = g_checksum_new(width == 20 ? G_CHECKSUM_SHA1 : G_CHECKSUM_SHA256);
    g_checksum_update(checksum, reinterpret_cast<const guchar*>(bytes.data()), static_cast<gssize>(bytes.size()));
    std::string digest(64, '\0');
    gsize size = digest.size();
    g_checksum_get_digest(checksum, reinterpret_cast<guint8*>(digest.data()), &size);
    g_checksum_free(checksum);
    digest.resize(size);
    return digest;
}

bool pagesMatch(const std::string& file, const std::string& directory, size_t width) {
    const size_t hashes = big32(directory, 16), pages = big32(directory, 28), limit = big32(directory, 32);
    if (limit != signatureOffset(file) || pages != (limit + kPageBytes - 1) / kPageBytes) return false;
    const std::string code = file.substr(0, limit);
    for (size_t page = 0; page < pages; ++page) {
        const std::string hash = hashOf(code.substr(page * kPageBytes, kPageBytes), width);
        if (directory.substr(hashes + page * width, width) != hash) return false;
    }
    return true;
}

CodeDirectory describe(const std::string& file, const std::string& directory) {
    CodeDirectory found;
    found.identifier = directory.substr(big32(directory, 20)).c_str();
    found.hashBytes = static_cast<unsigned char>(directory.at(36));
    found.adHoc = (big32(directory, 12) & 0x2) != 0;
    found.matches = pagesMatch(file, directory, static_cast<size_t>(found.hashBytes));
    return found;
}

}  // namespace

std::vector<CodeDirectory> codeDirectories(const std::string& file) {
    std::vector<CodeDirectory> found;
    const size_t begin = signatureOffset(file);
    if (begin == 0) return found;
    const std::string signature = file.substr(begin);
    for (uint32_t i = 0; i < big32(signature, 8); ++i) {
        const size_t offset = big32(signature, 12 + i * 8 + 4);
        if (big32(signature, offset) != kDirectoryMagic) continue;
        found.push_back(describe(file, signature.substr(offset, big32(signature, offset + 4))));
    }
    return found;
}

}  // namespace test
