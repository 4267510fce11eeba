// The binaries that the build makes for phones, one processor's part at a time.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace test {

struct Binary {
    const char* name;
    const char* path;        // the file: one part, or several of which `slice` names one
    const char* slice;       // as llvm-lipo names it; nullptr when the file is the part
    const char* processor;   // as llvm-otool's header has it
    const char* stubTarget;  // as the link stubs have it
    const char* map;         // the list of its functions with their addresses, made while linking
    std::uint64_t pointerBytes;
};

// What phones get, and its twin for this machine's processor.
inline constexpr Binary kArm64{"Arm64", ZELKA_PHONE, "arm64", "ARM64", "arm64-ios", ZELKA_ARM64 ".map", 8};
inline constexpr Binary kArmv7{"Armv7", ZELKA_PHONE, "armv7", "ARM", "armv7-ios", ZELKA_ARMV7 ".map", 4};
inline constexpr Binary kTwin{"Twin", ZELKA_TWIN, nullptr, "X86_64", "x86_64-ios-simulator", ZELKA_TWIN ".map", 8};

void PrintTo(const Binary& binary, std::ostream* out);

struct Range {
    std::uint64_t address = 0, size = 0;
    bool holds(std::uint64_t place) const { return place >= address && place - address < size; }
};

// The names that the linker's list has for addresses of a binary.
std::multimap<std::uint64_t, std::string> linkedNames(const Binary& binary);

// A part as a file of its own, which lives as long as the object. Making it fails the test when the part is not there.
class Part {
  public:
    explicit Part(const Binary& binary);
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;
    ~Part();

    const std::string& path() const { return path_; }
    // What a command writes that is given the part as its last argument.
    std::string read(const std::string& command) const;
    // A section by its name, which must be the only one of that name; all zero when there is none.
    Range section(const std::string& name) const;
    // The pointer at an address of the segment __DATA.
    std::uint64_t pointerAt(std::uint64_t address) const;
    std::vector<std::uint64_t> pointersIn(const Range& range) const;

  private:
    std::string path_, commands_, bytes_;
    std::uint64_t pointerBytes_;
};

}  // namespace test
