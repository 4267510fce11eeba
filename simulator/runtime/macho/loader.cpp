#include "simulator/runtime/macho/loader.h"

#include <sys/mman.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <utility>

#include "simulator/runtime/macho/image_reader.h"
#include "simulator/runtime/macho/symbols.h"
#include "simulator/runtime/macho/unwind.h"

namespace phone::macho {
namespace {

// What stays of a loaded library.
struct Library {
    UnwindFrames unwind;
    std::map<std::string, void*> exports;
    std::vector<char*> initialisers;
};

std::vector<LoadedImage>& images() {
    static auto* all = new std::vector<LoadedImage>;
    return *all;
}

// By path. Never destroyed: code of the libraries may run to the process's very end.
std::map<std::string, Library>& libraries() {
    static auto* all = new std::map<std::string, Library>;
    return *all;
}

// Address space for an image, given back unless it is kept.
class Memory {
  public:
    explicit Memory(std::size_t size) : size_(size) {
        void* place = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        begin_ = place != MAP_FAILED ? static_cast<char*>(place) : nullptr;
    }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;
    ~Memory() {
        if (begin_ != nullptr) munmap(begin_, size_);
    }

    char* begin() const { return begin_; }
    char* keep() { return std::exchange(begin_, nullptr); }

  private:
    char* begin_ = nullptr;
    std::size_t size_;
};

std::uint64_t firstAddress(const Image& image) { return image.segments.front().address; }

std::size_t sizeOf(const Image& image) {
    const Segment& last = image.segments.back();
    return last.address + last.size - firstAddress(image);
}

// An image that has a place in memory.
class Placed {
  public:
    Placed(const Image& image, char* begin) : image_(image), begin_(begin) {}

    char* at(std::uint64_t address) const { return begin_ + (address - firstAddress(image_)); }

    void copySegments() const {
        for (const Segment& segment : image_.segments) {
            if (!segment.contents.empty()) {
                std::memcpy(at(segment.address), segment.contents.data(), segment.contents.size());
            }
        }
    }

    void rebase() const {
        for (std::uint64_t address : image_.rebases) writePointer(address, readPointer(address) + base());
    }

    // Fails with the names of the symbols that the process lacks.
    Status bind() const {
        std::string missing;
        std::string_view before;
        for (const Bind& place : image_.binds) {
            void* symbol = findSymbol(place.symbol);
            if (symbol != nullptr) {
                writePointer(place.address,
                             reinterpret_cast<std::uintptr_t>(symbol) + static_cast<std::uintptr_t>(place.addend));
            } else if (!place.optional) {
                if (place.symbol != before) missing += (missing.empty() ? "" : ", ") + std::string(place.symbol);
                before = place.symbol;
            } else if (!place.coalesced) {
                writePointer(place.address, 0);
            }
        }
        if (!missing.empty()) return failure("this process does not offer " + missing);
        return {};
    }

    Status protect() const {
        std::uint64_t end = firstAddress(image_);
        for (const Segment& segment : image_.segments) {
            int protection = PROT_READ;
            if (segment.writable) protection |= PROT_WRITE;
            if (segment.executable) protection |= PROT_EXEC;
            if (protectRange(end, segment.address - end, PROT_NONE) != 0 ||
                protectRange(segment.address, segment.size, protection) != 0) {
                return failure("segment " + segment.name + ": " + std::strerror(errno));
            }
            end = segment.address + segment.size;
        }
#if defined(__aarch64__) || defined(__arm__)
        __builtin___clear_cache(at(firstAddress(image_)), at(end));
#endif
        return {};
    }

    // The functions to run, in order.
    Result<std::vector<char*>> initialisers() const {
        std::vector<char*> functions;
        for (const Range& range : image_.initialisers) {
            for (std::uint64_t offset = 0; offset < range.size; offset += sizeof(void*)) {
                const std::uint64_t function = readPointer(range.address + offset) - base();
                const Segment* segment = image_.segmentOf(function, 1);
                if (segment == nullptr || !segment->executable) return failure("an initialiser lies outside the code");
                functions.push_back(at(function));
            }
        }
        return functions;
    }

    std::map<std::string, void*> exports() const {
        std::map<std::string, void*> found;
        for (const Export& symbol : image_.exports) found[symbol.symbol] = at(symbol.address);
        return found;
    }

  private:
    // 0, or -1 with errno. An empty range is left alone: the kernel accepts one, QEMU's user mode refuses it.
    int protectRange(std::uint64_t address, std::uint64_t size, int protection) const {
        return size == 0 ? 0 : mprotect(at(address), size, protection);
    }

    // What the file's addresses grow by.
    std::uintptr_t base() const { return reinterpret_cast<std::uintptr_t>(begin_) - firstAddress(image_); }

    std::uintptr_t readPointer(std::uint64_t address) const {
        std::uintptr_t value;
        std::memcpy(&value, at(address), sizeof value);
        return value;
    }
    void writePointer(std::uint64_t address, std::uintptr_t value) const {
        std::memcpy(at(address), &value, sizeof value);
    }

    const Image& image_;
    char* begin_;
};

void run(const std::vector<char*>& initialisers) {
    // The arguments are the program's own on a phone; nothing here reads them.
    using Initialiser = void (*)(int, const char**, const char**, const char**);
    const char* none[] = {nullptr};
    for (char* function : initialisers) reinterpret_cast<Initialiser>(function)(0, none, none, none);
}

// Everything up to running the initialisers.
Result<Library> prepare(const Placed& placed, const Image& image) {
    Library library;
    placed.copySegments();
    placed.rebase();
    return placed.bind()
        .and_then([&] { return translateUnwindInfo(image, placed.at(firstAddress(image))); })
        .and_then([&](UnwindFrames frames) {
            library.unwind = std::move(frames);
            return placed.initialisers();
        })
        .and_then([&](std::vector<char*> functions) {
            library.initialisers = std::move(functions);
            return placed.protect();
        })
        .map([&] {
            library.exports = placed.exports();
            return std::move(library);
        });
}

Status loadImage(const std::string& path, const Image& image) {
    Memory memory(sizeOf(image));
    if (memory.begin() == nullptr) return failure(std::string("no room in memory: ") + std::strerror(errno));
    Result<Library> library = prepare(Placed(image, memory.begin()), image);
    if (!library) return failure(library);
    images().push_back({path, memory.keep(), sizeOf(image)});
    Library& kept = libraries()[path] = std::move(*library);
    registerFrames(kept.unwind, image, images().back().begin);
    run(kept.initialisers);
    return {};
}

}  // namespace

const std::vector<LoadedImage>& loadedImages() { return images(); }

Status loadLibrary(const std::string& path) {
    if (libraries().count(path) != 0) return {};  // like a second dlopen
    std::ifstream file(path, std::ios::binary);
    if (!file) return failure("cannot be opened");
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad()) return failure("cannot be read");
    return readImage(bytes).and_then([&](const Image& image) { return loadImage(path, image); });
}

void* symbolOf(const std::string& path, const std::string& name) {
    const auto library = libraries().find(path);
    if (library == libraries().end()) return nullptr;
    const auto found = library->second.exports.find("_" + name);
    return found != library->second.exports.end() ? found->second : nullptr;
}

}  // namespace phone::macho
