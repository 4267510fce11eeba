// The part of the Mach-O file format that the loader reads, with the format's own names where it has short ones. As
// Apple's public headers give it: <mach-o/loader.h> (header, load commands, segments and sections), <mach-o/fat.h>
// (files for several processors) and <mach/machine.h> (processors).
#pragma once

#include <cstdint>
#include <type_traits>

namespace phone::macho {

constexpr std::uint32_t kMagic32 = 0xfeedface, kMagic64 = 0xfeedfacf;
constexpr std::uint32_t kFatMagicSwapped = 0xbebafeca;  // fat headers are big-endian
constexpr std::uint32_t kTypeDylib = 6, kTypeBundle = 8;
constexpr std::uint32_t kCpuX86_64 = 0x01000007;
constexpr std::uint32_t kCpuArm64 = 0x0100000c;
constexpr std::uint32_t kCpuArm = 0x0000000c;
constexpr std::uint32_t kCpuIs64Bit = 0x01000000;
#if defined(__x86_64__)
constexpr std::uint32_t kCpuHere = kCpuX86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kCpuHere = kCpuArm64;
#elif defined(__arm__)
constexpr std::uint32_t kCpuHere = kCpuArm;
#endif

// 64-bit files begin with the header of 32-bit ones.
struct Header32 {
    std::uint32_t magic, cpu, cpuSubtype, fileType, commandCount, commandSize, flags;
};
struct Header64 : Header32 {
    std::uint32_t reserved;
};

struct FatHeader {
    std::uint32_t magic, count;
};

struct FatSlice {
    std::uint32_t cpu, cpuSubtype, offset, size, alignment;
};

// Load commands. Those with the highest bit set must be understood by whoever loads the file.
enum Command : std::uint32_t {
    kSegment32 = 0x01,
    kSegment64 = 0x19,
    kEncryptionInfo32 = 0x21,
    kEncryptionInfo64 = 0x2c,
    kMustUnderstand = 0x80000000,
    kLoadWeakDylib = 0x18 | kMustUnderstand,
    kRpath = 0x1c | kMustUnderstand,
    kReexportDylib = 0x1f | kMustUnderstand,
    kDyldInfo = 0x22,
    kDyldInfoOnly = 0x22 | kMustUnderstand,
    kLoadUpwardDylib = 0x23 | kMustUnderstand,
};

struct LoadCommand {
    std::uint32_t command, size;
};

template <class Word>
struct SegmentOf {
    std::uint32_t command, size;
    char name[16];
    Word address, memorySize, fileOffset, fileSize;
    std::int32_t maximumProtection, protection;
    std::uint32_t sectionCount, flags;
};

template <class Word>
struct SectionOf {
    char name[16], segment[16];
    Word address, size;
    std::uint32_t offset, alignment, relocationOffset, relocationCount, flags, reserved1, reserved2;
};
static_assert(sizeof(SectionOf<std::uint32_t>) == 68 && sizeof(SectionOf<std::uint64_t>) == 80);

// The structures of a width.
struct Format32 {
    using Header = Header32;
    using Segment = SegmentOf<std::uint32_t>;
    using Section = SectionOf<std::uint32_t>;
    static constexpr std::uint32_t kMagic = kMagic32, kSegment = kSegment32, kPointerBytes = 4;
    static constexpr const char* kName = "32-bit";
};
struct Format64 {
    using Header = Header64;
    using Segment = SegmentOf<std::uint64_t>;
    using Section = SectionOf<std::uint64_t>;
    static constexpr std::uint32_t kMagic = kMagic64, kSegment = kSegment64, kPointerBytes = 8;
    static constexpr const char* kName = "64-bit";
};
// That of this process.
using FormatHere = std::conditional_t<sizeof(void*) == 8, Format64, Format32>;

struct DyldInfoCommand {
    std::uint32_t command, size;
    std::uint32_t rebaseOffset, rebaseSize, bindOffset, bindSize, weakBindOffset, weakBindSize, lazyBindOffset,
        lazyBindSize, exportOffset, exportSize;
};

struct EncryptionCommand {
    std::uint32_t command, size, offset, length, scheme;
};

// Segment protections, of <mach/vm_prot.h>.
constexpr std::int32_t kWrite = 2, kExecute = 4;

// Section types, the low byte of a section's flags.
constexpr std::uint32_t kSectionTypeMask = 0xff;
constexpr std::uint32_t kModInitPointers = 0x09;
constexpr std::uint32_t kThreadLocalFirst = 0x11, kThreadLocalLast = 0x15;
constexpr std::uint32_t kInitOffsets = 0x16;

}  // namespace phone::macho
