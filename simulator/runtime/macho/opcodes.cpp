#include "simulator/runtime/macho/opcodes.h"

#include <vector>

namespace phone::macho {
namespace {

constexpr std::uint64_t kPointer = sizeof(void*);
constexpr std::uint8_t kOperationMask = 0xf0, kImmediateMask = 0x0f;
constexpr std::uint8_t kTypePointer = 1;

// Where the codes stand: an offset in a segment that moves forward, and sometimes back by wrapping around.
class Place {
  public:
    explicit Place(const Image& image) : image_(image) {
        for (const Segment& segment : image.segments)
            slots_ += segment.writable ? segment.contents.size() / kPointer : 0;
    }

    void set(std::uint64_t segment, std::uint64_t offset) {
        if (segment >= image_.segments.size()) throw Malformed("a fix-up names a segment that does not exist");
        segment_ = &image_.segments[segment];
        offset_ = offset;
    }

    void move(std::uint64_t distance) { offset_ += distance; }

    // The address of the pointer to fix up, after which the place moves past it.
    std::uint64_t take() {
        if (segment_ == nullptr) throw Malformed("a fix-up comes before its segment is named");
        if (!segment_->writable)
            throw Malformed("a fix-up lies in segment " + segment_->name + ", which is not writable");
        if (offset_ > segment_->contents.size() || kPointer > segment_->contents.size() - offset_) {
            throw Malformed("a fix-up lies outside the contents of segment " + segment_->name);
        }
        if (taken_++ == slots_) throw Malformed("there are more fix-ups than places for them");
        const std::uint64_t address = segment_->address + offset_;
        offset_ += kPointer;
        return address;
    }

  private:
    const Image& image_;
    const Segment* segment_ = nullptr;
    std::uint64_t offset_ = 0, slots_ = 0, taken_ = 0;
};

void requirePointer(std::uint64_t type) {
    if (type != kTypePointer) throw Malformed("a fix-up is of another kind than a pointer");
}

class RebaseReader {
  public:
    RebaseReader(Bytes codes, Image& image) : codes_(codes, "the rebase codes"), image_(image), place_(image) {}

    void run() {
        while (!codes_.atEnd()) {
            const std::uint8_t code = codes_.byte();
            if ((code & kOperationMask) == kDone) return;
            step(code & kOperationMask, code & kImmediateMask);
        }
    }

  private:
    enum Operation : std::uint8_t {
        kDone = 0x00,
        kSetType = 0x10,
        kSetPlace = 0x20,
        kMove = 0x30,
        kMoveScaled = 0x40,
        kTimesImmediate = 0x50,
        kTimes = 0x60,
        kOnceAndMove = 0x70,
        kTimesSkipping = 0x80,
    };

    void rebase(std::uint64_t times, std::uint64_t skip) {
        for (; times > 0; --times) {
            image_.rebases.push_back(place_.take());
            place_.move(skip);
        }
    }

    void step(std::uint8_t operation, std::uint8_t immediate) {
        switch (operation) {
            case kSetType:
                return requirePointer(immediate);
            case kSetPlace:
                return place_.set(immediate, codes_.uleb());
            case kMove:
                return place_.move(codes_.uleb());
            case kMoveScaled:
                return place_.move(immediate * kPointer);
            case kTimesImmediate:
                return rebase(immediate, 0);
            case kTimes:
                return rebase(codes_.uleb(), 0);
            case kOnceAndMove:
                return rebase(1, codes_.uleb());
            case kTimesSkipping: {
                const std::uint64_t times = codes_.uleb();
                return rebase(times, codes_.uleb());
            }
            default:
                throw Malformed("the rebase codes hold an unknown one");
        }
    }

    Cursor codes_;
    Image& image_;
    Place place_;
};

class BindReader {
  public:
    BindReader(Bytes codes, BindKind kind, Image& image)
        : codes_(codes, "the bind codes"), kind_(kind), image_(image), place_(image) {}

    void run() {
        while (!codes_.atEnd()) {
            const std::uint8_t code = codes_.byte();
            // Lazy bindings are lists of one, each with its own end.
            if ((code & kOperationMask) == kDone && kind_ != BindKind::lazy) return;
            step(code & kOperationMask, code & kImmediateMask);
        }
    }

  private:
    enum Operation : std::uint8_t {
        kDone = 0x00,
        kLibraryImmediate = 0x10,
        kLibrary = 0x20,
        kLibrarySpecial = 0x30,
        kSetSymbol = 0x40,
        kSetType = 0x50,
        kSetAddend = 0x60,
        kSetPlace = 0x70,
        kMove = 0x80,
        kBind = 0x90,
        kBindAndMove = 0xa0,
        kBindAndMoveScaled = 0xb0,
        kTimesSkipping = 0xc0,
    };
    static constexpr std::uint8_t kWeakImport = 0x1;

    void bind(std::uint64_t times, std::uint64_t skip) {
        if (!symbolKnown_) throw Malformed("a binding comes before its symbol is named");
        for (; times > 0; --times) {
            const bool coalesced = kind_ == BindKind::weak;
            image_.binds.push_back({place_.take(), symbol_, addend_, optional_ || coalesced, coalesced});
            place_.move(skip);
        }
    }

    void setSymbol(std::uint8_t flags) {
        symbol_ = codes_.text();
        optional_ = (flags & kWeakImport) != 0;
        symbolKnown_ = true;
    }

    void step(std::uint8_t operation, std::uint8_t immediate) {
        switch (operation) {
            case kDone:
                addend_ = 0;
                return;
            // Which library offers the symbol does not matter: the process is asked.
            case kLibraryImmediate:
            case kLibrarySpecial:
                return;
            case kLibrary:
                codes_.uleb();
                return;
            case kSetSymbol:
                return setSymbol(immediate);
            case kSetType:
                return requirePointer(immediate);
            case kSetAddend:
                addend_ = codes_.sleb();
                return;
            case kSetPlace:
                return place_.set(immediate, codes_.uleb());
            case kMove:
                return place_.move(codes_.uleb());
            case kBind:
                return bind(1, 0);
            case kBindAndMove:
                return bind(1, codes_.uleb());
            case kBindAndMoveScaled:
                return bind(1, immediate * kPointer);
            case kTimesSkipping: {
                const std::uint64_t times = codes_.uleb();
                return bind(times, codes_.uleb());
            }
            default:
                throw Malformed("the bind codes hold an unknown one");
        }
    }

    Cursor codes_;
    BindKind kind_;
    Image& image_;
    Place place_;
    std::string_view symbol_;
    std::int64_t addend_ = 0;
    bool optional_ = false, symbolKnown_ = false;
};

// The tree of exported names: each edge adds text, each node may end a name.
class ExportReader {
  public:
    ExportReader(Bytes trie, Image& image) : trie_(trie), image_(image), seen_(trie.size(), false) {}

    void node(std::uint64_t offset, const std::string& name, unsigned depth) {
        if (depth == kDeepest || name.size() > kLongest) throw Malformed("the exports have names without end");
        if (offset >= trie_.size()) throw Malformed("the list of exports points outside itself");
        // Nodes have one parent in a tree; this also ends cycles.
        if (seen_[offset]) throw Malformed("the list of exports is no tree");
        seen_[offset] = true;
        Cursor here(trie_, kWhat, offset);
        const std::uint64_t terminalSize = here.uleb();
        if (terminalSize != 0) terminal(here, name);
        children(offset, terminalSize, name, depth);
    }

  private:
    static constexpr const char* kWhat = "the exports";
    static constexpr unsigned kDeepest = 1000;
    static constexpr std::size_t kLongest = 4096;
    static constexpr std::uint64_t kReexport = 0x8, kResolver = 0x10;

    void terminal(Cursor here, const std::string& name) {
        const std::uint64_t flags = here.uleb();
        if ((flags & (kReexport | kResolver)) != 0) throw Malformed("exports another library's symbol: " + name);
        image_.exports.push_back({name, here.uleb()});
    }

    void children(std::uint64_t offset, std::uint64_t terminalSize, const std::string& name, unsigned depth) {
        Cursor skipSize(trie_, kWhat, offset);
        std::uint64_t lengthBytes = 0;
        while ((skipSize.byte() & 0x80) != 0) ++lengthBytes;
        if (terminalSize > trie_.size()) throw Malformed("the exports are cut off");
        Cursor here(trie_, kWhat, offset + lengthBytes + 1 + terminalSize);
        for (unsigned count = here.byte(); count > 0; --count) {
            std::string longer = name + std::string(here.text());
            node(here.uleb(), longer, depth + 1);
        }
    }

    Bytes trie_;
    Image& image_;
    std::vector<bool> seen_;
};

}  // namespace

void readRebases(Bytes codes, Image& image) { RebaseReader(codes, image).run(); }
void readBinds(Bytes codes, BindKind kind, Image& image) { BindReader(codes, kind, image).run(); }

void readExports(Bytes trie, Image& image) {
    if (!trie.empty()) ExportReader(trie, image).node(0, "", 0);
}

}  // namespace phone::macho
