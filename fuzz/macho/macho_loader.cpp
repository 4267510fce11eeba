// Any bytes as a library in the phone's binary format: reading ends within them, and what is read stays in the image.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "simulator/runtime/macho/image_reader.h"
#include "simulator/runtime/macho/unwind.h"

namespace {

using phone::macho::Image;

void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "== WRONG: %s\n", what);
    std::abort();
}

void checkPlaces(const Image& image) {
    for (std::uint64_t address : image.rebases) {
        require(image.segmentOf(address, sizeof(void*)) != nullptr, "a pointer to move lies outside the image");
    }
    for (const auto& bind : image.binds) {
        require(image.segmentOf(bind.address, sizeof(void*)) != nullptr, "a pointer to bind lies outside the image");
    }
    for (const auto& range : image.initialisers) {
        require(image.segmentOf(range.address, range.size) != nullptr, "the initialisers lie outside the image");
    }
}

// Unwind information is read from the image in memory, of exactly its size.
void translate(const Image& image) {
    constexpr std::uint64_t kLargest = std::uint64_t{16} << 20;
    const std::uint64_t begin = image.segments.front().address;
    const std::uint64_t end = image.segments.back().address + image.segments.back().size;
    if (end - begin > kLargest) return;
    std::vector<std::uint8_t> memory(end - begin);
    for (const auto& segment : image.segments) {
        std::copy(segment.contents.begin(), segment.contents.end(),
                  memory.begin() + static_cast<std::ptrdiff_t>(segment.address - begin));
    }
    static_cast<void>(phone::macho::translateUnwindInfo(image, reinterpret_cast<const char*>(memory.data())));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const phone::Result<Image> image = phone::macho::readImage({data, size});
    if (!image) return 0;
    checkPlaces(*image);
    translate(*image);
    return 0;
}
