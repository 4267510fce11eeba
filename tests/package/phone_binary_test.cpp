// The library's binaries for phones, read back from their files: what phones run cannot run here.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "tests/package/binary.h"
#include "tests/package/code_signature.h"
#include "tests/package/command.h"
#include "tests/package/link_stub.h"
#include "tests/support/parameter_name.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsSubsetOf;
using testing::Not;

class PhoneBinary : public testing::TestWithParam<test::Binary> {
  protected:
    std::string read(const std::string& command) const { return part.read(command); }
    std::string loadCommands() const { return read("llvm-otool-19 -l"); }
    bool is64Bit() const { return GetParam().pointerBytes == 8; }

    test::Part part{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Binaries, PhoneBinary,
                         testing::Values(test::kArm64, test::kArmv7, test::kTwin, test::kPageArm64, test::kPageArmv7,
                                         test::kPageTwin),
                         test::ParameterName());

// Phones take the part for their processor from one file, in which each begins on a page of every phone's.
TEST(PhoneFiles, HaveThePartsOfBothProcessors) {
    for (const std::string file : {ZELKA_PHONE, ZELKA_PAGE_PHONE}) {
        EXPECT_THAT(test::outputOf("llvm-lipo-19 -info '" + file + "'"), HasSubstr("are: armv7 arm64"));
        const std::string list = test::outputOf("llvm-objdump-19 --macho --universal-headers '" + file + "'");
        int aligned = 0;
        for (const std::string& line : test::linesOf(list)) {
            if (line.find("align 2^14 (16384)") != std::string::npos) ++aligned;
        }
        EXPECT_EQ(aligned, 2) << list;
    }
}

TEST_P(PhoneBinary, IsALibraryForItsProcessor) {
    const std::string header = test::linesOf(read("llvm-otool-19 -hv")).back();
    EXPECT_THAT(header, AllOf(HasSubstr(is64Bit() ? "MH_MAGIC_64 " : "MH_MAGIC "),
                              HasSubstr(std::string(" ") + GetParam().processor + " "), HasSubstr(" DYLIB ")));
    if (!is64Bit()) EXPECT_THAT(header, HasSubstr(" V7 "));
}

TEST_P(PhoneBinary, AsksForSystem7) {
    const std::string commands = loadCommands();
    const size_t minimum = commands.find("LC_VERSION_MIN_IPHONEOS");
    ASSERT_NE(minimum, std::string::npos);
    EXPECT_EQ(test::valueAfter(commands.substr(minimum), "version "), "7.0");
}

// Anything newer than this list keeps a system 7 from loading the library.
TEST_P(PhoneBinary, HasOnlyLoadCommandsThatSystem7Knows) {
    std::set<std::string> found;
    for (const std::string& line : test::linesOf(loadCommands())) {
        if (const std::string name = test::valueAfter(line, "cmd "); !name.empty()) found.insert(name);
    }
    EXPECT_THAT(found, IsSubsetOf({is64Bit() ? "LC_SEGMENT_64" : "LC_SEGMENT", "LC_DYLD_INFO_ONLY", "LC_SYMTAB",
                                   "LC_DYSYMTAB", "LC_ID_DYLIB", "LC_UUID", "LC_VERSION_MIN_IPHONEOS", "LC_LOAD_DYLIB",
                                   "LC_FUNCTION_STARTS", "LC_DATA_IN_CODE", "LC_SOURCE_VERSION", "LC_CODE_SIGNATURE"}));
}

TEST_P(PhoneBinary, ItsSegmentsFollowOneAnother) {
    std::uint64_t memory = 0, file = 0;
    std::string rest = loadCommands();
    int segments = 0;
    const auto number = [&](const char* field, int base) {
        return std::stoull(test::valueAfter(rest, field), nullptr, base);
    };
    for (size_t at; (at = rest.find("\n   vmaddr ")) != std::string::npos; ++segments) {
        rest = rest.substr(at + 1);
        EXPECT_GE(number("vmaddr ", 16), memory);
        EXPECT_GE(number("fileoff ", 10), file);
        EXPECT_GE(number("vmsize ", 16), number("filesize ", 10));
        memory = number("vmaddr ", 16) + number("vmsize ", 16);
        file = number("fileoff ", 10) + number("filesize ", 10);
    }
    EXPECT_EQ(segments, 3);
    EXPECT_EQ(file, test::bytesOf(part.path()).size());
}

TEST_P(PhoneBinary, IsNamedAsItIsInstalled) {
    EXPECT_EQ(test::linesOf(read("llvm-otool-19 -D")).back(), GetParam().product->installName);
}

using Symbols = std::map<std::string, std::set<std::string>>;

// The symbols that a binary wants of each library, by the library's short name.
Symbols importsOf(const test::Binary& binary) {
    Symbols imported;
    const std::regex line(R"(\(undefined\).* external (\S+) \(from (.*)\))");
    for (const std::string& text : test::linesOf(test::Part(binary).read("llvm-nm-19 -m -u"))) {
        std::smatch match;
        EXPECT_TRUE(std::regex_search(text, match, line)) << text;
        imported[match[2]].insert(match[1]);
    }
    return imported;
}

Symbols listedFor(const std::string& target) {
    Symbols listed;
    for (const auto& [library, symbols] : test::stubSymbols(ZELKA_STUBS, target)) {
        const std::string file = std::filesystem::path(library).filename();
        listed[file.substr(0, file.find('.'))] = symbols;
    }
    return listed;
}

// The library and the settings page together: a stub that neither uses any more is one too many.
TEST(PhoneFiles, ImportWhatTheStubsListAndNothingElse) {
    for (const auto& [library, page] :
         {std::pair(&test::kArm64, &test::kPageArm64), std::pair(&test::kArmv7, &test::kPageArmv7),
          std::pair(&test::kTwin, &test::kPageTwin)}) {
        Symbols imported = importsOf(*library);
        for (auto& [name, symbols] : importsOf(*page)) imported[name].merge(symbols);
        EXPECT_EQ(imported, listedFor(library->stubTarget)) << library->name;
    }
}

TEST_P(PhoneBinary, FindsItsLibrariesWhereAPhoneHasThem) {
    const std::string commands = read("llvm-otool-19 -L");
    const std::vector<std::string> lines = test::linesOf(commands);
    std::set<std::string> loaded, listed, wanted;
    // The first line is the file, the second the binary itself.
    for (size_t i = 2; i < lines.size(); ++i) loaded.insert(lines[i].substr(1, lines[i].find(" (") - 1));
    const Symbols imported = importsOf(GetParam());
    for (const auto& [library, symbols] : test::stubSymbols(ZELKA_STUBS, GetParam().stubTarget)) {
        const std::string file = std::filesystem::path(library).filename();
        listed.insert(library);
        if (imported.count(file.substr(0, file.find('.'))) != 0) wanted.insert(library);
    }
    // A library of which only classes are used has no symbol.
    EXPECT_THAT(loaded, IsSubsetOf(listed));
    EXPECT_THAT(wanted, IsSubsetOf(loaded));
    // The injection framework's own version is 0: asking for more would refuse it.
    if (commands.find("CydiaSubstrate (") != std::string::npos) {
        EXPECT_THAT(commands, HasSubstr("CydiaSubstrate (compatibility version 0.0.0"));
    }
}

TEST_P(PhoneBinary, ExportsWhatItsProductDoesAndNothingElse) {
    std::vector<std::string> exports;
    for (const std::string& line : test::linesOf(read("llvm-objdump-19 --macho --exports-trie"))) {
        if (line.find("0x") == 0) exports.push_back(line.substr(line.find("  ") + 3));
    }
    EXPECT_EQ(exports, GetParam().product->exports);
}

TEST_P(PhoneBinary, HasItsInitialisersInTheirOrder) {
    const std::vector<std::uint64_t> initialisers = part.pointersIn(part.section("__mod_init_func"));
    const auto names = test::linkedNames(GetParam());
    const std::vector<std::string>& expected = GetParam().product->initialisers;
    ASSERT_EQ(initialisers.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        const auto found = names.find(initialisers[i]);
        ASSERT_NE(found, names.end());
        EXPECT_THAT(found->second, HasSubstr(expected[i]));
    }
    EXPECT_THAT(loadCommands(), Not(HasSubstr("__mod_term_func")));
}

// A pointer into the middle of a function is one that the linker got wrong.
// A pointer into the middle of a function is one that a linker got wrong.
TEST_P(PhoneBinary, ItsPointersIntoCodeAreFunctions) {
    const test::Range code = part.section("__text");
    const auto names = test::linkedNames(GetParam());
    int intoCode = 0;
    for (const std::string& line : test::linesOf(read("llvm-objdump-19 --macho --rebase"))) {
        std::smatch match;
        if (!std::regex_match(line, match, std::regex(R"(^__DATA .* 0x([0-9A-F]+)\s+pointer$)"))) continue;
        const std::uint64_t place = std::stoull(match[1], nullptr, 16), function = part.pointerAt(place);
        if (!code.holds(function)) continue;
        ++intoCode;
        EXPECT_GE(names.count(function), 1u) << line << ": " << std::hex << function;
    }
    EXPECT_GT(intoCode, 10);
}

std::string hexadecimal(std::uint64_t number) {
    std::ostringstream text;
    text << std::hex << number;
    return text.str();
}

// What the linker leaves empty, no dynamic linker fills in.
TEST_P(PhoneBinary, EveryPointerToAnotherLibraryIsBound) {
    std::set<std::uint64_t> bound;
    const std::regex row(R"(^__DATA\S* +\S+ +0x([0-9A-F]+) .*)");
    for (const std::string& line : test::linesOf(read("llvm-objdump-19 --macho --bind --lazy-bind"))) {
        std::smatch match;
        if (std::regex_match(line, match, row)) bound.insert(std::stoull(match[1], nullptr, 16));
    }
    EXPECT_EQ(part.section("__nl_symbol_ptr").size, 0u);
    // One word has no symbol: the dynamic linker keeps its own note of the library in it.
    const std::string symbols = read("llvm-objdump-19 --macho --indirect-symbols");
    for (const char* name : {"__got", "__la_symbol_ptr"}) {
        const test::Range pointers = part.section(name);
        EXPECT_GT(pointers.size, 0u) << name;
        for (std::uint64_t at = 0; at < pointers.size; at += GetParam().pointerBytes) {
            const std::uint64_t address = pointers.address + at;
            const std::regex own("0x0*" + hexadecimal(address) + " +(ABSOLUTE|LOCAL)");
            EXPECT_NE(bound.count(address) == 1, std::regex_search(symbols, own)) << name << " " << at;
        }
    }
}

TEST_P(PhoneBinary, IsSignedForOldAndNewSystems) {
    const std::vector<test::CodeDirectory> directories = test::codeDirectories(test::bytesOf(part.path()));
    ASSERT_EQ(directories.size(), 2u);
    for (const test::CodeDirectory& directory : directories) {
        EXPECT_EQ(directory.identifier, GetParam().product->identifier);
        EXPECT_TRUE(directory.adHoc);
        EXPECT_TRUE(directory.matches);
    }
    EXPECT_EQ(directories[0].hashBytes, 20);  // the one that old systems read
    EXPECT_EQ(directories[1].hashBytes, 32);
}

TEST_P(PhoneBinary, TellsNothingOfTheMachineThatBuiltIt) {
    const std::string bytes = test::bytesOf(part.path());
    for (const char* trace : {ZELKA_SOURCES, "node_modules", "/home/", "/root/", "/usr/include"}) {
        EXPECT_EQ(bytes.find(trace), std::string::npos) << trace;
    }
}

std::string phoneCode() { return test::Part(test::kArm64).read("llvm-objdump-19 --macho -d"); }

// Arguments after a variadic function's named ones are passed on the stack on arm64: before each call, in the same
// function, something must be stored at the stack pointer.
TEST(PhoneCode, PassesVariableArgumentsOnTheStack) {
    const std::regex call(R"(\bbl?\b.*symbol stub for: _(NSLog|snprintf)$)");
    const std::regex store(R"(\b(str|stp|stur)\b.*\[sp\])");
    const std::regex end(R"(\t(ret|b|br)\t?)");
    std::map<std::string, int> calls;
    bool stored = false;
    for (const std::string& line : test::linesOf(phoneCode())) {
        std::smatch match;
        if (std::regex_search(line, match, call)) {
            ++calls[match[1]];
            EXPECT_TRUE(stored) << line;
            stored = false;
        } else if (std::regex_search(line, store)) {
            stored = true;
        } else if (std::regex_search(line, end)) {
            stored = false;
        }
    }
    EXPECT_GE(calls["NSLog"], 1);
    EXPECT_GE(calls["snprintf"], 1);
}

// The first 64-bit phone has version 8.0 of the architecture, without the atomic instructions that came after it.
TEST(PhoneCode, RunsOnTheFirst64BitPhone) {
    const std::string code = phoneCode();
    const std::regex newer(R"(\t(cas|swp|ldadd|ldset|ldclr|ldeor|stadd|ldapr|pac|aut|bti|sdot|udot)[a-z]*\t[^\n]*)");
    std::smatch match;
    EXPECT_FALSE(std::regex_search(code, match, newer)) << match.str();
    EXPECT_THAT(code, HasSubstr("ldar"));  // the disassembly is one of code with atomic reads
}

}  // namespace
