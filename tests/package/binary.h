// The binaries that the build makes for phones, one processor's part at a time.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace test {

// What a binary is, whichever processor it is for.
struct Product {
    const char* installName;
    const char* identifier;                 // the signature's
    std::vector<std::string> exports;       // without the format's underscore
    std::vector<std::string> initialisers;  // parts of their names, in their order
};

struct Binary {
    const char* name;
    const Product* product;
    const char* path;        // the file: one part, or several of which `slice` names one
    const char* slice;       // as llvm-lipo names it; nullptr when the file is the part
    const char* processor;   // as llvm-otool's header has it
    const char* stubTarget;  // as the link stubs have it
    const char* map;         // the list of its functions with their addresses, made while linking
    std::uint64_t pointerBytes;
};

// The library for phones, and its twin for this machine's processor; the settings page likewise.
extern const Binary kArm64, kArmv7, kTwin, kPageArm64, kPageArmv7, kPageTwin;

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
