#include "simulator/runtime/macho/unwind.h"

#include <algorithm>
#include <map>
#include <utility>

#include "simulator/runtime/macho/bytes.h"

// The section __unwind_info: a header names common encodings, personality functions and an index; each index entry
// covers functions from its own to the next entry's, in a page of (function, encoding) pairs.
namespace phone::macho {
namespace {

struct SectionHead {
    std::uint32_t version, encodingsOffset, encodingsCount, personalitiesOffset, personalitiesCount, indexOffset,
        indexCount;
};

struct IndexEntry {
    std::uint32_t function, pageOffset, landingOffset;
};

struct Landing {
    std::uint32_t function, data;
};

struct PageHead {
    std::uint32_t kind;
    std::uint16_t entriesOffset, entriesCount, encodingsOffset, encodingsCount;
};

struct RegularEntry {
    std::uint32_t function, encoding;
};

constexpr std::uint32_t kRegularPage = 2, kCompressedPage = 3;
constexpr std::uint32_t kHasLanding = 0x40000000, kPersonalityMask = 0x30000000, kModeMask = 0x0f000000;
constexpr const char* kWhat = "the unwind information";

// One function's row; `end` is the next one's begin.
struct Function {
    std::uint32_t begin, end, encoding;
};

class Table {
  public:
    explicit Table(Bytes bytes) : bytes_(bytes), head_(at<SectionHead>(0)) {
        if (head_.version != 1) throw Malformed("the unwind information is of an unknown version");
    }

    std::vector<Function> functions() const {
        std::vector<Function> found;
        for (std::uint32_t i = 0; i + 1 < head_.indexCount; ++i) {
            if (const IndexEntry entry = index(i); entry.pageOffset != 0) readPage(entry, found);
            // Pages may be shared in a damaged file.
            if (found.size() > bytes_.size()) throw Malformed("the unwind information lists too many functions");
        }
        if (found.empty()) return found;
        const std::uint32_t end = index(head_.indexCount - 1).function;
        for (std::size_t i = 0; i < found.size(); ++i) {
            found[i].end = i + 1 < found.size() ? found[i + 1].begin : end;
            if (found[i].end < found[i].begin) throw Malformed("the unwind information is not in order");
        }
        return found;
    }

    // Where the landing pads of each function are described.
    std::map<std::uint32_t, std::uint32_t> landings() const {
        std::map<std::uint32_t, std::uint32_t> found;
        if (head_.indexCount == 0) return found;
        const std::uint32_t begin = index(0).landingOffset, end = index(head_.indexCount - 1).landingOffset;
        for (std::uint64_t offset = begin; offset + sizeof(Landing) <= end; offset += sizeof(Landing)) {
            const auto landing = at<Landing>(offset);
            found[landing.function] = landing.data;
        }
        return found;
    }

    // The place of the pointer to the personality function, by its number from 1.
    std::uint32_t personality(std::uint32_t number) const {
        if (number == 0 || number > head_.personalitiesCount) {
            throw Malformed("the unwind information names a personality function that does not exist");
        }
        return at<std::uint32_t>(head_.personalitiesOffset + std::uint64_t{number - 1} * sizeof(std::uint32_t));
    }

  private:
    template <class T>
    T at(std::uint64_t offset) const {
        return valueAt<T>(bytes_, offset, kWhat);
    }

    IndexEntry index(std::uint64_t i) const { return at<IndexEntry>(head_.indexOffset + i * sizeof(IndexEntry)); }

    void readPage(const IndexEntry& entry, std::vector<Function>& found) const {
        const std::uint64_t page = entry.pageOffset;
        const auto head = at<PageHead>(page);
        if (head.kind != kRegularPage && head.kind != kCompressedPage) {
            throw Malformed("the unwind information has a page of an unknown kind");
        }
        for (std::uint64_t i = 0; i < head.entriesCount; ++i) {
            if (head.kind == kRegularPage) {
                const auto row = at<RegularEntry>(page + head.entriesOffset + i * sizeof(RegularEntry));
                found.push_back({row.function, 0, row.encoding});
            } else {
                const auto row = at<std::uint32_t>(page + head.entriesOffset + i * sizeof(std::uint32_t));
                found.push_back({entry.function + (row & 0xffffff), 0, encoding(page, head, row >> 24)});
            }
        }
    }

    std::uint32_t encoding(std::uint64_t page, const PageHead& head, std::uint32_t number) const {
        if (number < head_.encodingsCount) return at<std::uint32_t>(head_.encodingsOffset + std::uint64_t{number} * 4);
        const std::uint32_t own = number - head_.encodingsCount;
        if (own >= head.encodingsCount) throw Malformed("the unwind information names an encoding that does not exist");
        return at<std::uint32_t>(page + head.encodingsOffset + std::uint64_t{own} * 4);
    }

    Bytes bytes_;
    SectionHead head_;
};

// The call frame instructions of DWARF used here.
enum CallFrame : std::uint8_t { kDefineFrame = 0x0c, kSaved = 0x80, kSavedExtended = 0x05, kNothing = 0x00 };

class Writer {
  public:
    explicit Writer(std::vector<std::uint8_t>& out) : out_(out) {}

    void byte(unsigned value) { out_.push_back(static_cast<std::uint8_t>(value)); }
    template <class T>
    void value(T number) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(&number);
        out_.insert(out_.end(), bytes, bytes + sizeof number);
    }
    void uleb(std::uint64_t number) {
        for (; number >= 0x80; number >>= 7) byte((number & 0x7f) | 0x80);
        byte(static_cast<unsigned>(number));
    }

    // A record: its length, then what `body` writes, then filling up to the next eight bytes.
    template <class Body>
    void record(Body body) {
        const std::size_t begin = out_.size();
        value<std::uint32_t>(0);
        body();
        while ((out_.size() - begin) % 8 != 0) byte(kNothing);
        const auto length = static_cast<std::uint32_t>(out_.size() - begin - 4);
        std::memcpy(&out_[begin], &length, sizeof length);
    }

    std::size_t size() const { return out_.size(); }

  private:
    std::vector<std::uint8_t>& out_;
};

// A register is saved that many words below the frame's beginning (the caller's stack pointer).
void saved(Writer& out, unsigned dwarfRegister, unsigned words) {
    out.byte(kSaved | dwarfRegister);
    out.uleb(words);
}

void frame(Writer& out, unsigned dwarfRegister, unsigned bytes) {
    out.byte(kDefineFrame);
    out.uleb(dwarfRegister);
    out.uleb(bytes);
}

[[noreturn]] void refuseMode(std::uint32_t mode) {
    throw Malformed("has functions that cannot be unwound here (mode " + std::to_string(mode >> 24) +
                    "): it must be built with frame pointers");
}

#if defined(__x86_64__)
constexpr unsigned kReturnAddress = 16;
constexpr std::uint32_t kFrameMode = 0x01000000;

void writeFrame(Writer& out, std::uint32_t encoding) {
    constexpr unsigned kFramePointer = 6;
    // By the compact form's numbers: none, rbx, r12, r13, r14, r15.
    constexpr unsigned kRegisters[] = {0, 3, 12, 13, 14, 15};
    if ((encoding & kModeMask) != kFrameMode) refuseMode(encoding & kModeMask);
    frame(out, kFramePointer, 16);
    saved(out, kReturnAddress, 1);
    saved(out, kFramePointer, 2);
    const unsigned lowest = (encoding >> 16) & 0xff;
    for (unsigned i = 0; i < 5; ++i) {
        const unsigned number = (encoding >> (3 * i)) & 0x7;
        if (number == 0) continue;
        if (number > 5 || i >= lowest) throw Malformed("the unwind information saves a register that does not exist");
        saved(out, kRegisters[number], lowest - i + 2);
    }
}
#elif defined(__aarch64__)
constexpr unsigned kReturnAddress = 30;
constexpr std::uint32_t kFrameMode = 0x04000000, kFramelessMode = 0x02000000;

void writeFrame(Writer& out, std::uint32_t encoding) {
    constexpr unsigned kFramePointer = 29, kStackPointer = 31, kFirstVector = 72;
    // Pairs of registers below the frame pointer, in this order: x19 to x28, then d8 to d15.
    constexpr unsigned kPairs[] = {
        19, 21, 23, 25, 27, kFirstVector, kFirstVector + 2, kFirstVector + 4, kFirstVector + 6};
    const bool frameless = (encoding & kModeMask) == kFramelessMode;
    if (!frameless && (encoding & kModeMask) != kFrameMode) refuseMode(encoding & kModeMask);
    const unsigned framelessBytes = ((encoding >> 12) & 0xfff) * 16;
    frame(out, frameless ? kStackPointer : kFramePointer, frameless ? framelessBytes : 16);
    unsigned words = 0;
    if (!frameless) {
        saved(out, kReturnAddress, 1);
        saved(out, kFramePointer, 2);
        words = 2;
    }
    for (unsigned i = 0; i < 9; ++i) {
        if ((encoding & (1u << i)) == 0) continue;
        for (unsigned next = 0; next < 2; ++next) {
            const unsigned number = kPairs[i] + next;
            ++words;
            if (number < 64) {
                saved(out, number, words);
            } else {
                out.byte(kSavedExtended);
                out.uleb(number);
                out.uleb(words);
            }
        }
    }
}
#endif

class Translator {
  public:
    Translator(const Image& image, const char* begin, std::vector<std::uint8_t>& frames)
        : image_(image), begin_(begin), first_(image.segments.front().address), out_(frames) {}

    void run() {
        const Table table(section());
        landings_ = table.landings();
        for (const Function& function : table.functions()) {
            // A function without an encoding never lets an exception through.
            if ((function.encoding & kModeMask) != 0) write(table, function);
        }
        if (out_.size() > 0) out_.value<std::uint32_t>(0);
    }

  private:
    // Offsets in the section count from the image's beginning.
    const char* place(std::uint32_t offset, std::uint64_t size) const {
        if (image_.segmentOf(first_ + offset, size) == nullptr) {
            throw Malformed("the unwind information points outside the image");
        }
        return begin_ + offset;
    }
    std::uintptr_t address(std::uint32_t offset, std::uint64_t size) const {
        return reinterpret_cast<std::uintptr_t>(place(offset, size));
    }

    Bytes section() const {
        const Range& range = image_.unwindInfo;
        return {reinterpret_cast<const std::uint8_t*>(begin_ + (range.address - first_)), range.size};
    }

    std::uintptr_t personalityOf(const Table& table, std::uint32_t encoding) const {
        const std::uint32_t number = (encoding & kPersonalityMask) >> 28;
        if (number == 0) return 0;
        std::uintptr_t function;
        std::memcpy(&function, place(table.personality(number), sizeof function), sizeof function);
        return function;
    }

    std::uintptr_t landingOf(const Function& function) const {
        if ((function.encoding & kHasLanding) == 0) return 0;
        const auto found = landings_.find(function.begin);
        if (found == landings_.end()) throw Malformed("the unwind information lacks a function's landing pads");
        return address(found->second, 1);
    }

    // The record that functions of one personality share; returns where it is.
    std::size_t commonRecord(std::uintptr_t personality) {
        const auto [known, isNew] = common_.emplace(personality, out_.size());
        if (!isNew) return known->second;
        out_.record([&] {
            out_.value<std::uint32_t>(0);
            out_.byte(1);
            // Everything is pointed to by whole addresses.
            for (const char* letter = personality != 0 ? "zPLR" : "zR"; *letter != '\0'; ++letter) out_.byte(*letter);
            out_.byte(0);
            out_.uleb(1);
            out_.byte(0x78);  // -8
            out_.uleb(kReturnAddress);
            out_.uleb(personality != 0 ? 2 + sizeof personality + 1 : 1);
            if (personality != 0) {
                out_.byte(0);
                out_.value(personality);
                out_.byte(0);
            }
            out_.byte(0);
        });
        return known->second;
    }

    void write(const Table& table, const Function& function) {
        const std::uintptr_t personality = personalityOf(table, function.encoding);
        const std::size_t common = commonRecord(personality);
        const std::uintptr_t landing = landingOf(function);
        const std::uint64_t size = function.end - function.begin;
        out_.record([&] {
            out_.value(static_cast<std::uint32_t>(out_.size() - common));
            out_.value<std::uint64_t>(address(function.begin, size));
            out_.value<std::uint64_t>(size);
            out_.uleb(personality != 0 ? sizeof landing : 0);
            if (personality != 0) out_.value<std::uint64_t>(landing);
            writeFrame(out_, function.encoding);
        });
    }

    const Image& image_;
    const char* begin_;
    std::uint64_t first_;
    Writer out_;
    std::map<std::uint32_t, std::uint32_t> landings_;
    std::map<std::uintptr_t, std::size_t> common_;
};

}  // namespace

Result<std::vector<std::uint8_t>> translateUnwindInfo(const Image& image, const char* begin) {
    std::vector<std::uint8_t> frames;
    if (image.unwindInfo.size == 0) return frames;
    try {
        Translator(image, begin, frames).run();
        return frames;
    } catch (const Malformed& problem) {
        return failure(problem.what());
    }
}

}  // namespace phone::macho
