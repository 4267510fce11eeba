#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>
#include <ostream>

#include "simulator/runtime/macho/format.h"
#include "simulator/runtime/macho/image_reader.h"
#include "tests/support/parameter_name.h"

namespace {

using namespace phone::macho;
using testing::Contains;
using testing::Field;
using testing::HasSubstr;
using testing::Not;

using File = std::vector<std::uint8_t>;

constexpr std::uint32_t kCpuElsewhere = kCpuHere == kCpuArm64 ? kCpuX86_64 : kCpuArm64;

File fixture() {
    std::ifstream file(FIXTURE, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// A copy on the heap of exactly its size, so that the address sanitizer sees any reading past it.
std::string problemOf(const File& bytes) {
    const File exact(bytes.begin(), bytes.end());
    return phone::problemOf(readImage(exact));
}

template <class T>
T& at(File& file, std::size_t offset) {
    return *reinterpret_cast<T*>(&file[offset]);
}

FormatHere::Header& header(File& file) { return at<FormatHere::Header>(file, 0); }

// The load command of that kind, from the given one on.
template <class T>
T& command(File& file, std::uint32_t kind, int which = 0) {
    std::size_t offset = sizeof(FormatHere::Header);
    for (std::uint32_t i = 0; i < header(file).commandCount; ++i) {
        auto& head = at<LoadCommand>(file, offset);
        if (head.command == kind && which-- == 0) return at<T>(file, offset);
        offset += head.size;
    }
    throw std::runtime_error("the fixture lacks a load command");
}

FormatHere::Segment& segment(File& file, int which) {
    return command<FormatHere::Segment>(file, FormatHere::kSegment, which);
}

TEST(MachoImage, TellsSegmentsFixupsInitialisersAndExports) {
    const File file = fixture();
    const Image image = readImage(file).value();
    ASSERT_EQ(image.segments.size(), 3u);
    EXPECT_EQ(image.segments[0].name, "__TEXT");
    EXPECT_TRUE(image.segments[0].executable);
    EXPECT_FALSE(image.segments[0].writable);
    EXPECT_TRUE(image.segments[1].writable);
    EXPECT_GE(image.rebases.size(), 5u);  // three names and two initialisers
    EXPECT_THAT(image.binds, Contains(Field(&Bind::symbol, "_fixtureNumber")));
    EXPECT_THAT(image.binds, Contains(Field(&Bind::symbol, "_fixtureRaise")));
    ASSERT_EQ(image.initialisers.size(), 1u);
    EXPECT_EQ(image.initialisers[0].size, 2 * sizeof(void*));
    EXPECT_EQ(image.unwindInfo.size > 0, sizeof(void*) == 8);  // 32-bit phones have none
    EXPECT_THAT(image.exports, Contains(Field(&Export::symbol, "_fixtureName")));
    EXPECT_THAT(image.exports, Not(Contains(Field(&Export::symbol, "_fixtureNote"))));
}

#ifndef __arm__  // whose linker knows no optional symbols
TEST(MachoImage, OnlyTheWeakImportIsOptional) {
    const File file = fixture();
    const Image image = readImage(file).value();
    for (const Bind& bind : image.binds) EXPECT_EQ(bind.optional, bind.symbol == "_fixtureMayBeMissing") << bind.symbol;
}
#endif

TEST(MachoImage, FindsThisProcessorsPartOfAFatFile) {
    const File thin = fixture();
    const auto swapped = [](std::uint32_t value) { return __builtin_bswap32(value); };
    const FatHeader head{swapped(0xcafebabe), swapped(2)};
    const auto size = static_cast<std::uint32_t>(thin.size());
    const FatSlice slices[] = {{swapped(kCpuElsewhere), 0, swapped(4096), swapped(16), 0},
                               {swapped(kCpuHere), 0, swapped(4096), swapped(size), 0}};
    File fat(4096 + thin.size());
    std::memcpy(fat.data(), &head, sizeof head);
    std::memcpy(fat.data() + sizeof head, slices, sizeof slices);
    std::copy(thin.begin(), thin.end(), fat.begin() + 4096);
    EXPECT_EQ(readImage(fat).value().segments.size(), 3u);

    at<FatSlice>(fat, sizeof head + sizeof(FatSlice)).size = swapped(size + 1);
    EXPECT_THAT(problemOf(fat), HasSubstr("past the end"));
    at<FatHeader>(fat, 0).count = swapped(1);
    EXPECT_THAT(problemOf(fat), HasSubstr("not for this machine's processor"));
    at<FatHeader>(fat, 0).count = 0xffffffff;
    at<FatSlice>(fat, sizeof head + sizeof(FatSlice)).cpu = 0;
    EXPECT_THAT(problemOf(fat), HasSubstr("past the end"));
}

struct Damage {
    const char* name;
    std::function<void(File&)> apply;
    const char* message;
};

void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }

class DamagedImage : public testing::TestWithParam<Damage> {};

TEST_P(DamagedImage, IsRefusedWithAMessage) {
    File file = fixture();
    GetParam().apply(file);
    EXPECT_THAT(problemOf(file), HasSubstr(GetParam().message));
}

DyldInfoCommand& codes(File& file) { return command<DyldInfoCommand>(file, kDyldInfoOnly); }

// Puts codes in place of the file's own rebase codes.
void setRebases(File& file, std::initializer_list<int> bytes) {
    codes(file).rebaseSize = static_cast<std::uint32_t>(bytes.size());
    codes(file).rebaseOffset = static_cast<std::uint32_t>(file.size());
    file.insert(file.end(), bytes.begin(), bytes.end());
}

void setBinds(File& file, std::initializer_list<int> bytes) {
    codes(file).bindSize = static_cast<std::uint32_t>(bytes.size());
    codes(file).bindOffset = static_cast<std::uint32_t>(file.size());
    file.insert(file.end(), bytes.begin(), bytes.end());
}

void setExports(File& file, std::initializer_list<int> bytes) {
    codes(file).exportSize = static_cast<std::uint32_t>(bytes.size());
    codes(file).exportOffset = static_cast<std::uint32_t>(file.size());
    file.insert(file.end(), bytes.begin(), bytes.end());
}

using Word = decltype(FormatHere::Segment::address);

const Damage kDamages[] = {
    {"Empty", [](File& file) { file.clear(); }, "past the end"},
    {"WrongMagic", [](File& file) { header(file).magic ^= 1; }, "-bit Mach-O file"},
    {"NoMagic", [](File& file) { header(file).magic = 0; }, "is not a Mach-O file"},
    {"WrongProcessor", [](File& file) { header(file).cpu = kCpuElsewhere; }, ", this machine runs "},
    {"Executable", [](File& file) { header(file).fileType = 2; }, "neither a dynamic library nor a bundle"},
    {"AbsurdCommandCount", [](File& file) { header(file).commandCount = 0xffffffff; }, "past the end"},
    {"AbsurdCommandsSize", [](File& file) { header(file).commandSize = 0xffffffff; }, "past the end"},
    {"NoCommands", [](File& file) { header(file).commandCount = 0; }, "no segments"},
    {"CommandWithoutSize", [](File& file) { segment(file, 0).size = 0; }, "smaller than its own head"},
    {"CommandPastTheEnd", [](File& file) { segment(file, 0).size = 0x7fffffff; }, "past the end"},
    {"UnknownCommand", [](File& file) { codes(file).command = 0x80000034; }, "does not know: 52"},
    {"SegmentContentsPastTheEnd", [](File& file) { segment(file, 0).fileOffset = ~Word{0} - 10; }, "past the end"},
    {"SegmentSizeWrapsAround", [](File& file) { segment(file, 1).memorySize = ~Word{0}; }, "absurdly large"},
    {"SegmentFarAway", [](File& file) { segment(file, 2).address = Word{1} << (8 * sizeof(Word) - 1); },
     "absurdly large"},
    {"SegmentBetweenPages", [](File& file) { segment(file, 1).address += 8; }, "does not begin at a page"},
    {"SegmentsOverlap", [](File& file) { segment(file, 1).address = segment(file, 0).address; }, "outside segment"},
    {"LastSegmentsOverlap", [](File& file) { segment(file, 2).address = segment(file, 1).address; }, "overlap"},
    {"MoreContentsThanRoom", [](File& file) { segment(file, 0).memorySize = 1; }, "more contents than room"},
    {"SegmentsShareContents",
     [](File& file) {
         segment(file, 2).memorySize = segment(file, 2).fileSize = file.size();
         segment(file, 2).fileOffset = 0;
     },
     "share contents"},
    {"AbsurdSectionCount", [](File& file) { segment(file, 0).sectionCount = 0xffffffff; }, "past the end"},
    {"CodesPastTheEnd", [](File& file) { codes(file).bindSize = 0x7fffffff; }, "bind codes reaches past the end"},
    {"FixupBeforeItsSegment",
     [](File& file) {
         setRebases(file, {0x11, 0x51});
     },
     "before its segment"},
    {"FixupInAnUnknownSegment",
     [](File& file) {
         setRebases(file, {0x11, 0x2f, 0x00, 0x51});
     },
     "does not exist"},
    {"FixupInCode",
     [](File& file) {
         setRebases(file, {0x11, 0x20, 0x00, 0x51});
     },
     "not writable"},
    {"FixupOutsideItsSegment",
     [](File& file) {
         setRebases(file, {0x11, 0x21, 0xff, 0xff, 0xff, 0x7f, 0x51});
     },
     "outside the contents"},
    {"AbsurdFixupCount",
     [](File& file) {
         setRebases(file, {0x11, 0x21, 0x00, 0x60, 0xff, 0xff, 0xff, 0xff, 0x0f});
     },
     "outside the contents"},
    // Steps back by a pointer after each one stay at one place for ever.
    {"FixupsWithoutEnd",
     [](File& file) {
         setRebases(
             file,
             {0x11, 0x21, 0x00, 0x80, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x7f, sizeof(Word) == 8 ? 0xf8 : 0xfc,
              0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01});
     },
     "more fix-ups than places"},
    {"UnknownFixupKind", [](File& file) { setRebases(file, {0x12}); }, "another kind than a pointer"},
    {"UnknownRebaseCode", [](File& file) { setRebases(file, {0xf0}); }, "unknown one"},
    {"CutOffNumber",
     [](File& file) {
         setRebases(file, {0x21, 0x80});
     },
     "cut off"},
    {"NumberTooBig",
     [](File& file) {
         setRebases(file, {0x21, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01});
     },
     "more than 64 bits"},
    {"BindingWithoutSymbol",
     [](File& file) {
         setBinds(file, {0x51, 0x71, 0x00, 0x90});
     },
     "before its symbol"},
    {"CutOffSymbol",
     [](File& file) {
         setBinds(file, {0x40, 'a', 'b'});
     },
     "cut off"},
    {"UnknownBindCode", [](File& file) { setBinds(file, {0xd0}); }, "unknown one"},
    {"ExportsWithACycle",
     [](File& file) {
         setExports(file, {0x00, 0x01, 'a', 0x00, 0x00});
     },
     "no tree"},
    {"ExportsOutsideThemselves",
     [](File& file) {
         setExports(file, {0x00, 0x01, 'a', 0x00, 0x7f});
     },
     "outside itself"},
    {"ExportOutsideTheImage",
     [](File& file) {
         setExports(file, {0x00, 0x01, 'a', 0x00, 0x05, 0x05, 0x00, 0xff, 0xff, 0xff, 0x7f, 0x00});
     },
     "outside its segments: a"},
};

INSTANTIATE_TEST_SUITE_P(Damages, DamagedImage, testing::ValuesIn(kDamages), test::ParameterName());

TEST(DamagedImage, NoBeginningOfAFileIsTakenForTheWhole) {
    const File file = fixture();
    for (std::size_t size = 0; size < file.size(); size += size < 4096 ? 1 : 61) {
        EXPECT_NE(problemOf({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)}), "") << size;
    }
}

// Whatever a byte becomes, reading ends, within the file.
TEST(DamagedImage, AnyChangedByteIsReadSafely) {
    File file = fixture();
    int refused = 0;
    const std::size_t commandsEnd = sizeof(FormatHere::Header) + header(file).commandSize;
    for (std::size_t i = 0; i < file.size(); i += i < commandsEnd ? 1 : 97) {
        const std::uint8_t before = file[i];
        for (int value : {0x00, 0x7f, 0xff}) {
            file[i] = static_cast<std::uint8_t>(value);
            refused += !problemOf(file).empty();
        }
        file[i] = before;
    }
    EXPECT_GT(refused, 100);
}

}  // namespace
