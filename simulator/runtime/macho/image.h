// A Mach-O library as its file describes it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace phone::macho {

// Addresses are those of the file, before the image is given a place in memory.
struct Segment {
    std::string name;
    std::uint64_t address = 0, size = 0;
    std::span<const std::uint8_t> contents;  // into the file's bytes; the rest of the segment is zero
    bool writable = false, executable = false;

    bool contains(std::uint64_t begin, std::uint64_t length) const {
        return begin >= address && begin - address <= size && length <= size - (begin - address);
    }
};

struct Range {
    std::uint64_t address = 0, size = 0;
};

// A pointer that gets a symbol's address.
struct Bind {
    std::uint64_t address = 0;
    std::string_view symbol;  // into the file's bytes, with the format's leading underscore
    std::int64_t addend = 0;
    bool optional = false;  // a missing symbol leaves null; for a coalesced one, what is there
    bool coalesced = false;
};

struct Export {
    std::string symbol;
    std::uint64_t address = 0;
};

struct Image {
    std::uint32_t pointerBytes = 8;
    std::vector<Segment> segments;       // in order of address, page-aligned, without overlap
    std::vector<std::uint64_t> rebases;  // addresses of pointers that move with the image
    std::vector<Bind> binds;
    std::vector<Range> initialisers;  // arrays of function pointers
    Range unwindInfo;                 // empty when there is none
    Range frames;                     // __eh_frame, for functions whose row there defers to it; empty likewise
    std::vector<Export> exports;

    // The segment that holds the whole range, or nullptr.
    const Segment* segmentOf(std::uint64_t address, std::uint64_t size) const {
        const auto found = std::find_if(segments.begin(), segments.end(),
                                        [&](const Segment& segment) { return segment.contains(address, size); });
        return found != segments.end() ? &*found : nullptr;
    }
};

// The granularity at which segments are placed.
constexpr std::uint64_t kPage = 4096;

}  // namespace phone::macho
