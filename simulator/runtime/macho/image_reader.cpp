#include "simulator/runtime/macho/image_reader.h"

#include <optional>

#include "simulator/runtime/macho/bytes.h"
#include "simulator/runtime/macho/fixups.h"
#include "simulator/runtime/macho/format.h"

namespace phone::macho {
namespace {

// A library takes a megabyte or two.
constexpr std::uint64_t kLargestImage = std::uint64_t{1} << 30;

const char* cpuName(std::uint32_t cpu) {
    switch (cpu) {
        case kCpuX86_64:
            return "x86-64";
        case kCpuArm64:
            return "arm64";
        case kCpuArm:
            return "armv7";
        case 7:
            return "32-bit x86";
        default:
            return "an unknown processor";
    }
}

// The part of a fat file for a processor; a thin file as it is.
Bytes sliceFor(std::uint32_t cpu, Bytes file) {
    const auto fat = valueAt<std::uint32_t>(file, 0, "the header");
    if (fat != kFatMagicSwapped) return file;
    const std::uint32_t count = __builtin_bswap32(valueAt<FatHeader>(file, 0, "the fat header").count);
    for (std::uint32_t i = 0; i < count; ++i) {
        // Past the end of the file, this ends an absurd count.
        const auto part = valueAt<FatSlice>(file, sizeof(FatHeader) + i * sizeof(FatSlice), "the list of processors");
        if (__builtin_bswap32(part.cpu) == cpu) {
            return slice(file, __builtin_bswap32(part.offset), __builtin_bswap32(part.size), "this processor's part");
        }
    }
    throw Malformed(std::string("is not for this machine's processor, ") + cpuName(cpu));
}

void checkHeader(const Header32& header, std::uint32_t cpu) {
    if (header.magic != kMagic32 && header.magic != kMagic64) throw Malformed("is not a Mach-O file");
    if (header.cpu != cpu) {
        throw Malformed(std::string("is for ") + cpuName(header.cpu) + ", this machine runs " + cpuName(cpu));
    }
    if (header.fileType != kTypeDylib && header.fileType != kTypeBundle) {
        throw Malformed("is neither a dynamic library nor a bundle");
    }
}

template <class Format>
class ImageReader {
  public:
    ImageReader(Bytes file, Image& image) : file_(file), image_(image) { image.pointerBytes = Format::kPointerBytes; }

    void read() {
        const auto header = valueAt<typename Format::Header>(file_, 0, "the header");
        if (header.magic != Format::kMagic) throw Malformed(std::string("is not a ") + Format::kName + " Mach-O file");
        readCommands(header);
        checkSegments();
        checkRanges();
        if (!fixups_) throw Malformed("has no fix-up codes, which libraries for systems before 13.4 have");
        readRebases(part(fixups_->rebaseOffset, fixups_->rebaseSize, "the rebase codes"), image_);
        const DyldInfoCommand& info = *fixups_;
        readBinds(part(info.bindOffset, info.bindSize, "the bind codes"), Binding::eager, image_);
        readBinds(part(info.lazyBindOffset, info.lazyBindSize, "the lazy bind codes"), Binding::lazy, image_);
        readBinds(part(info.weakBindOffset, info.weakBindSize, "the weak bind codes"), Binding::weak, image_);
        readExports(part(info.exportOffset, info.exportSize, "the exports"), image_);
        placeExports();
    }

  private:
    using Section = typename Format::Section;

    Bytes part(std::uint64_t offset, std::uint64_t size, const char* what) const {
        return slice(file_, offset, size, what);
    }

    void readCommands(const Header32& header) {
        const Bytes commands = part(sizeof(typename Format::Header), header.commandSize, "the list of load commands");
        std::uint64_t at = 0;
        for (std::uint32_t i = 0; i < header.commandCount; ++i) {
            const auto command = valueAt<LoadCommand>(commands, at, "a load command");
            if (command.size < sizeof command) throw Malformed("a load command is smaller than its own head");
            readCommand(command.command, slice(commands, at, command.size, "a load command"));
            at += command.size;
        }
    }

    void readCommand(std::uint32_t command, Bytes bytes) {
        switch (command) {
            case Format::kSegment:
                return readSegment(bytes);
            case kDyldInfo:
            case kDyldInfoOnly:
                fixups_ = valueAt<DyldInfoCommand>(bytes, 0, "the fix-up command");
                return;
            case kEncryptionInfo32:
            case kEncryptionInfo64:
                if (valueAt<EncryptionCommand>(bytes, 0, "the encryption command").scheme != 0) {
                    throw Malformed("is encrypted");
                }
                return;
            // Which libraries it wants does not matter: the process is asked for every symbol.
            case kLoadWeakDylib:
            case kLoadUpwardDylib:
            case kReexportDylib:
            case kRpath:
                return;
            default:
                break;
        }
        if ((command & kMustUnderstand) != 0) {
            throw Malformed("has a load command that this loader does not know: " + std::to_string(command & 0xffff));
        }
    }

    void readSegment(Bytes bytes) {
        const auto head = valueAt<typename Format::Segment>(bytes, 0, "a segment command");
        Segment segment;
        segment.name = fixedName(head.name);
        segment.address = head.address;
        segment.size = (head.memorySize + kPage - 1) / kPage * kPage;
        segment.contents = part(head.fileOffset, head.fileSize, "a segment");
        segment.writable = (head.protection & kWrite) != 0;
        segment.executable = (head.protection & kExecute) != 0;
        if (head.address % kPage != 0) throw Malformed("segment " + segment.name + " does not begin at a page");
        if (segment.size < head.memorySize || segment.size > kLargestImage || head.address > kLargestImage) {
            throw Malformed("segment " + segment.name + " is absurdly large or far away");
        }
        if (head.fileSize > head.memorySize) {
            throw Malformed("segment " + segment.name + " has more contents than room");
        }
        contentsSize_ += head.fileSize;
        for (std::uint32_t i = 0; i < head.sectionCount; ++i) {
            readSection(valueAt<Section>(bytes, sizeof head + i * sizeof(Section), "a section"), segment);
        }
        image_.segments.push_back(std::move(segment));
    }

    void readSection(const Section& section, const Segment& segment) {
        const std::string name = fixedName(section.name);
        if (!segment.contains(section.address, section.size)) {
            throw Malformed("section " + name + " lies outside segment " + segment.name);
        }
        const std::uint32_t type = section.flags & kSectionTypeMask;
        if (type >= kThreadLocalFirst && type <= kThreadLocalLast) throw Malformed("uses thread-local variables");
        if (type == kInitOffsets) throw Malformed("lists its initialisers in the way of systems since 15");
        if (type == kModInitPointers) image_.initialisers.push_back({section.address, section.size});
        if (name == "__unwind_info") image_.unwindInfo = {section.address, section.size};
        if (name == "__eh_frame") image_.frames = {section.address, section.size};
    }

    void checkSegments() {
        if (image_.segments.empty()) throw Malformed("has no segments");
        if (contentsSize_ > file_.size()) throw Malformed("has segments that share contents");
        const std::vector<Segment>& segments = image_.segments;
        for (std::size_t i = 1; i < segments.size(); ++i) {
            // The codes name segments by their number in the file, so they must stay in the file's order.
            if (segments[i].address < segments[i - 1].address + segments[i - 1].size) {
                throw Malformed("segments " + segments[i - 1].name + " and " + segments[i].name +
                                " overlap or are out of order");
            }
        }
    }

    void checkRanges() const {
        for (const Range& range : image_.initialisers) {
            if (range.size % image_.pointerBytes != 0 || range.address % image_.pointerBytes != 0) {
                throw Malformed("has a list of initialisers that is no list of pointers");
            }
        }
    }

    // Exports count from the image's beginning.
    void placeExports() {
        const std::uint64_t begin = image_.segments.front().address;
        for (Export& symbol : image_.exports) {
            symbol.address += begin;
            if (image_.segmentOf(symbol.address, 1) == nullptr) {
                throw Malformed("exports a symbol outside its segments: " + symbol.symbol);
            }
        }
    }

    Bytes file_;
    Image& image_;
    std::optional<DyldInfoCommand> fixups_;
    std::uint64_t contentsSize_ = 0;
};

}  // namespace

Result<Image> readImage(Bytes file, std::uint32_t cpu) {
    try {
        Image image;
        const Bytes part = sliceFor(cpu, file);
        checkHeader(valueAt<Header32>(part, 0, "the header"), cpu);
        if ((cpu & kCpuIs64Bit) != 0) {
            ImageReader<Format64>(part, image).read();
        } else {
            ImageReader<Format32>(part, image).read();
        }
        return image;
    } catch (const Malformed& problem) {
        return failure(problem.what());
    }
}

}  // namespace phone::macho
