#include "simulator/runtime/macho/fixups.h"

#include <array>
#include <vector>

namespace phone::macho {
namespace {

constexpr std::uint8_t kImmediateMask = 0x0f;
constexpr std::uint8_t kTypePointer = 1;

// Where the codes stand: an offset in a segment that moves forward, and sometimes back by wrapping around.
class Place {
  public:
    explicit Place(const Image& image) : image_(image) {
        for (const Segment& segment : image.segments)
            slots_ += segment.writable ? segment.contents.size() / pointer() : 0;
    }

    // In bytes.
    std::uint64_t pointer() const { return image_.pointerBytes; }

    void set(std::uint64_t segment, std::uint64_t offset) {
        if (segment >= image_.segments.size()) throw Malformed("a fix-up names a segment that does not exist");
        segment_ = &image_.segments[segment];
        offset_ = wrapped(offset);
    }

    void move(std::uint64_t distance) { offset_ = wrapped(offset_ + distance); }

    // The address of the pointer to fix up, after which the place moves past it.
    std::uint64_t take() {
        if (segment_ == nullptr) throw Malformed("a fix-up comes before its segment is named");
        if (!segment_->writable)
            throw Malformed("a fix-up lies in segment " + segment_->name + ", which is not writable");
        if (offset_ > segment_->contents.size() || pointer() > segment_->contents.size() - offset_) {
            throw Malformed("a fix-up lies outside the contents of segment " + segment_->name);
        }
        if (taken_++ == slots_) throw Malformed("there are more fix-ups than places for them");
        const std::uint64_t address = segment_->address + offset_;
        offset_ += pointer();
        return address;
    }

  private:
    // Offsets are as wide as pointers.
    std::uint64_t wrapped(std::uint64_t offset) const {
        return pointer() == 4 ? static_cast<std::uint32_t>(offset) : offset;
    }

    const Image& image_;
    const Segment* segment_ = nullptr;
    std::uint64_t offset_ = 0, slots_ = 0, taken_ = 0;
};

// What one code asks for. Both lists are programs of one kind of machine, with other numbers for the same operations.
enum class Operation : std::uint8_t {
    unknown,
    end,
    requirePointer,      // the immediate is the kind of what is fixed up
    setPlace,            // the immediate is a segment, a number its offset
    move,                // by a number
    moveScaled,          // by the immediate, in pointers
    once,                // fixes up one pointer
    onceAndMove,         // then moves by a number
    onceAndMoveScaled,   // then moves by the immediate, in pointers
    timesImmediate,      // fixes up as many pointers as the immediate says
    times,               // as a number says
    timesSkipping,       // as a number says, moving by another after each
    setSymbol,           // the immediate is flags, a text the name
    setAddend,           // to a signed number
    setLibrary,          // to the immediate; which library offers a symbol does not matter: the process is asked
    setLibraryByNumber,  // the same to a number
};

// By the code's upper four bits.
using Operations = std::array<Operation, 16>;

constexpr Operations kRebaseOperations = {Operation::end,   Operation::requirePointer, Operation::setPlace,
                                          Operation::move,  Operation::moveScaled,     Operation::timesImmediate,
                                          Operation::times, Operation::onceAndMove,    Operation::timesSkipping};

constexpr Operations kBindOperations = {Operation::end,          Operation::setLibrary,  Operation::setLibraryByNumber,
                                        Operation::setLibrary,   Operation::setSymbol,   Operation::requirePointer,
                                        Operation::setAddend,    Operation::setPlace,    Operation::move,
                                        Operation::once,         Operation::onceAndMove, Operation::onceAndMoveScaled,
                                        Operation::timesSkipping};

// Runs one list of codes. What is fixed up at an address is for the list's own reader.
class CodeReader {
  public:
    CodeReader(const CodeReader&) = delete;
    CodeReader& operator=(const CodeReader&) = delete;

    void run() {
        while (!codes_.atEnd()) {
            const std::uint8_t code = codes_.byte();
            const Operation operation = operations_[code >> 4];
            if (operation == Operation::end && end()) return;
            step(operation, code & kImmediateMask);
        }
    }

  protected:
    CodeReader(Bytes codes, const char* what, const Operations& operations, const Image& image)
        : codes_(codes, what), what_(what), operations_(operations), place_(image) {}
    virtual ~CodeReader() = default;

    virtual void fixUp(std::uint64_t address) = 0;
    // Whether the list's end code ends all of it.
    virtual bool end() { return true; }
    virtual void requireReady() const {}
    virtual void setSymbol(std::string_view /*name*/, std::uint8_t /*flags*/) {}
    virtual void setAddend(std::int64_t /*addend*/) {}

  private:
    void repeat(std::uint64_t times, std::uint64_t skip) {
        requireReady();
        for (; times > 0; --times) {
            fixUp(place_.take());
            place_.move(skip);
        }
    }

    void step(Operation operation, std::uint8_t immediate) {
        switch (operation) {
            case Operation::end:
            case Operation::setLibrary:
                return;
            case Operation::setLibraryByNumber:
                codes_.uleb();
                return;
            case Operation::requirePointer:
                if (immediate != kTypePointer) throw Malformed("a fix-up is of another kind than a pointer");
                return;
            case Operation::setPlace:
                return place_.set(immediate, codes_.uleb());
            case Operation::move:
                return place_.move(codes_.uleb());
            case Operation::moveScaled:
                return place_.move(immediate * place_.pointer());
            case Operation::once:
                return repeat(1, 0);
            case Operation::onceAndMove:
                return repeat(1, codes_.uleb());
            case Operation::onceAndMoveScaled:
                return repeat(1, immediate * place_.pointer());
            case Operation::timesImmediate:
                return repeat(immediate, 0);
            case Operation::times:
                return repeat(codes_.uleb(), 0);
            case Operation::timesSkipping: {
                const std::uint64_t times = codes_.uleb();
                return repeat(times, codes_.uleb());
            }
            case Operation::setSymbol:
                return setSymbol(codes_.text(), immediate);
            case Operation::setAddend:
                return setAddend(codes_.sleb());
            case Operation::unknown:
                break;
        }
        throw Malformed(std::string(what_) + " hold an unknown one");
    }

    Cursor codes_;
    const char* what_;
    const Operations& operations_;
    Place place_;
};

class RebaseReader : public CodeReader {
  public:
    RebaseReader(Bytes codes, Image& image)
        : CodeReader(codes, "the rebase codes", kRebaseOperations, image), image_(image) {}

  private:
    void fixUp(std::uint64_t address) override { image_.rebases.push_back(address); }

    Image& image_;
};

class BindReader : public CodeReader {
  public:
    BindReader(Bytes codes, Binding binding, Image& image)
        : CodeReader(codes, "the bind codes", kBindOperations, image), binding_(binding), image_(image) {}

  private:
    static constexpr std::uint8_t kWeakImport = 0x1;

    void requireReady() const override {
        if (!symbolKnown_) throw Malformed("a binding comes before its symbol is named");
    }

    void fixUp(std::uint64_t address) override {
        const bool coalesced = binding_ == Binding::weak;
        image_.binds.push_back({address, symbol_, addend_, optional_ || coalesced, coalesced});
    }

    // Lazy bindings are lists of one, each with its own end.
    bool end() override {
        if (binding_ != Binding::lazy) return true;
        addend_ = 0;
        return false;
    }

    void setSymbol(std::string_view name, std::uint8_t flags) override {
        symbol_ = name;
        optional_ = (flags & kWeakImport) != 0;
        symbolKnown_ = true;
    }

    void setAddend(std::int64_t addend) override { addend_ = addend; }

    Binding binding_;
    Image& image_;
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
void readBinds(Bytes codes, Binding binding, Image& image) { BindReader(codes, binding, image).run(); }

void readExports(Bytes trie, Image& image) {
    if (!trie.empty()) ExportReader(trie, image).node(0, "", 0);
}

}  // namespace phone::macho
