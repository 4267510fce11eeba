#include "simulator/runtime/macho/unwind.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "simulator/runtime/macho/bytes.h"
#include "simulator/runtime/macho/unwind_table.h"

#if !defined(__arm__)

// Of libgcc's unwinder: takes an .eh_frame section for the process's life.
extern "C" void __register_frame(void* frames);

namespace phone::macho {
namespace {

constexpr std::uint32_t kDwarfOffset = 0x00ffffff;
constexpr std::uint32_t kHasLanding = 0x40000000, kPersonalityMask = 0x30000000, kModeMask = 0x0f000000;

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
constexpr std::uint32_t kFrameMode = 0x01000000, kDwarfMode = 0x04000000;

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
constexpr std::uint32_t kFrameMode = 0x04000000, kFramelessMode = 0x02000000, kDwarfMode = 0x03000000;

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

// The image's own frames, as the unwinder will read them.
class OwnFrames {
  public:
    OwnFrames(const Image& image, const char* begin) : image_(image), begin_(begin) {}

    // Whether one of its records begins there.
    bool hasRecordAt(std::uint64_t offset) {
        if (records_.empty() && image_.frames.size != 0) readRecords();
        return records_.count(offset) != 0;
    }

  private:
    void readRecords() {
        const std::uint64_t size = image_.frames.size;
        const Segment* segment = image_.segmentOf(image_.frames.address, size + sizeof(std::uint32_t));
        if (segment == nullptr) throw Malformed("the frames of the image do not end");
        const auto* first =
            reinterpret_cast<const std::uint8_t*>(begin_) + (image_.frames.address - image_.segments.front().address);
        const Bytes bytes{first, size + sizeof(std::uint32_t)};
        std::uint64_t offset = 0;
        while (offset < size) {
            const auto length = valueAt<std::uint32_t>(bytes, offset, kOwn);
            if (length < sizeof(std::uint32_t) || length > size - offset)
                throw Malformed("a frame has no sound length");
            records_.insert(offset);
            offset += sizeof length + length;
        }
        // What follows the section is the rest of its page; the unwinder reads up to a length of zero.
        if (offset != size || valueAt<std::uint32_t>(bytes, size, kOwn) != 0) {
            throw Malformed("the frames of the image do not end");
        }
    }

    static constexpr const char* kOwn = "the frames of the image";
    const Image& image_;
    const char* begin_;
    std::set<std::uint64_t> records_;
};

class Translator {
  public:
    Translator(const Image& image, const char* begin, UnwindFrames& frames)
        : image_(image),
          begin_(begin),
          first_(image.segments.front().address),
          own_(image, begin),
          frames_(frames),
          out_(frames.translated) {}

    void run() {
        table_ = readUnwindTable(section());
        for (const UnwindRow& function : table_.functions) {
            const std::uint32_t mode = function.encoding & kModeMask;
            if (mode == kDwarfMode) {
                useOwnFrame(function.encoding & kDwarfOffset);
            } else if (mode != 0) {  // a function without an encoding never lets an exception through
                write(function);
            }
        }
        if (out_.size() > 0) out_.value<std::uint32_t>(0);
    }

  private:
    void useOwnFrame(std::uint32_t offset) {
        if (!own_.hasRecordAt(offset)) throw Malformed("the unwind information names a frame that does not exist");
        frames_.needsOwn = true;
    }

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

    std::uintptr_t personalityOf(std::uint32_t encoding) const {
        const std::uint32_t number = (encoding & kPersonalityMask) >> 28;
        if (number == 0) return 0;
        if (number > table_.personalities.size()) {
            throw Malformed("the unwind information names a personality function that does not exist");
        }
        std::uintptr_t function;
        std::memcpy(&function, place(table_.personalities[number - 1], sizeof function), sizeof function);
        return function;
    }

    std::uintptr_t landingOf(const UnwindRow& function) const {
        if ((function.encoding & kHasLanding) == 0) return 0;
        const auto found = table_.landings.find(function.begin);
        if (found == table_.landings.end()) throw Malformed("the unwind information lacks a function's landing pads");
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

    void write(const UnwindRow& function) {
        const std::uintptr_t personality = personalityOf(function.encoding);
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
    OwnFrames own_;
    UnwindFrames& frames_;
    Writer out_;
    UnwindTable table_;
    std::map<std::uintptr_t, std::size_t> common_;
};

}  // namespace

Result<UnwindFrames> translateUnwindInfo(const Image& image, const char* begin) {
    UnwindFrames frames;
    if (image.unwindInfo.size == 0) return frames;
    try {
        Translator(image, begin, frames).run();
        return frames;
    } catch (const Malformed& problem) {
        return failure(problem.what());
    }
}

void registerFrames(UnwindFrames& frames, const Image& image, char* begin) {
    if (!frames.translated.empty()) __register_frame(frames.translated.data());
    if (frames.needsOwn) __register_frame(begin + (image.frames.address - image.segments.front().address));
}

}  // namespace phone::macho

#endif
