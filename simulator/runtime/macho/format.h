// The part of the Mach-O file format that the loader reads, with the format's own names where it has short ones. As
// Apple's public headers give it: <mach-o/loader.h> (header, load commands, segments and sections), <mach-o/fat.h>
// (files for several processors) and <mach/machine.h> (processors).
#pragma once

#include <cstdint>

namespace phone::macho {

constexpr std::uint32_t kMagic64 = 0xfeedfacf;
constexpr std::uint32_t kFatMagicSwapped = 0xbebafeca;  // fat headers are big-endian
constexpr std::uint32_t kTypeDylib = 6, kTypeBundle = 8;
constexpr std::uint32_t kCpuX86_64 = 0x01000007;
constexpr std::uint32_t kCpuArm64 = 0x0100000c;
#if defined(__x86_64__)
constexpr std::uint32_t kCpuHere = kCpuX86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kCpuHere = kCpuArm64;
#endif

struct Header {
    std::uint32_t magic, cpu, cpuSubtype, fileType, commandCount, commandSize, flags, reserved;
};

struct FatHeader {
    std::uint32_t magic, count;
};

struct FatSlice {
    std::uint32_t cpu, cpuSubtype, offset, size, alignment;
};

// Load commands. Those with the highest bit set must be understood by whoever loads the file.
enum Command : std::uint32_t {
    kSegment64 = 0x19,
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

struct SegmentCommand {
    std::uint32_t command, size;
    char name[16];
    std::uint64_t address, memorySize, fileOffset, fileSize;
    std::int32_t maximumProtection, protection;
    std::uint32_t sectionCount, flags;
};

struct SectionHeader {
    char name[16], segment[16];
    std::uint64_t address, size;
    std::uint32_t offset, alignment, relocationOffset, relocationCount, flags, reserved1, reserved2, reserved3;
};

struct DyldInfoCommand {
    std::uint32_t command, size;
    std::uint32_t rebaseOffset, rebaseSize, bindOffset, bindSize, weakBindOffset, weakBindSize, lazyBindOffset,
        lazyBindSize, exportOffset, exportSize;
};

struct EncryptionCommand {
    std::uint32_t command, size, offset, length, scheme, padding;
};

// Segment protections, of <mach/vm_prot.h>.
constexpr std::int32_t kWrite = 2, kExecute = 4;

// Section types, the low byte of a section's flags.
constexpr std::uint32_t kSectionTypeMask = 0xff;
constexpr std::uint32_t kModInitPointers = 0x09;
constexpr std::uint32_t kThreadLocalFirst = 0x11, kThreadLocalLast = 0x15;
constexpr std::uint32_t kInitOffsets = 0x16;

}  // namespace phone::macho
