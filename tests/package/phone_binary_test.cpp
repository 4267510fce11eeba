// The library's binaries for phones, read back from their files: what phones run cannot run here.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <ostream>
#include <regex>
#include <set>

#include "tests/package/code_signature.h"
#include "tests/package/command.h"
#include "tests/package/link_stub.h"
#include "tests/support/parameter_name.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSubsetOf;
using testing::Not;

struct Binary {
    const char* name;
    const char* path;
    const char* processor;
    const char* stubTarget;
    const char* objects;
    const char* page;
};

const Binary kPhone{"Phone", ZELKA_PHONE, "ARM64", "arm64-ios", ZELKA_OBJECTS "/arm64", ZELKA_PAGE_PHONE};
const Binary kTwin{"Twin", ZELKA_TWIN, "X86_64", "x86_64-ios-simulator", ZELKA_OBJECTS "/x86_64", ZELKA_PAGE_TWIN};

void PrintTo(const Binary& binary, std::ostream* out) { *out << binary.name; }

class PhoneBinary : public testing::TestWithParam<Binary> {
  protected:
    std::string read(const std::string& command) const {
        return test::outputOf(command + " '" + GetParam().path + "'");
    }
    std::string loadCommands() const { return read("llvm-otool-19 -l"); }
};

INSTANTIATE_TEST_SUITE_P(Binaries, PhoneBinary, testing::Values(kPhone, kTwin), test::ParameterName());

TEST_P(PhoneBinary, IsALibraryForItsProcessor) {
    const std::string header = test::linesOf(read("llvm-otool-19 -hv")).back();
    EXPECT_THAT(header, AllOf(HasSubstr("MH_MAGIC_64"), HasSubstr(GetParam().processor), HasSubstr(" DYLIB ")));
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
    EXPECT_THAT(found, IsSubsetOf({"LC_SEGMENT_64", "LC_DYLD_INFO_ONLY", "LC_SYMTAB", "LC_DYSYMTAB", "LC_ID_DYLIB",
                                   "LC_UUID", "LC_VERSION_MIN_IPHONEOS", "LC_LOAD_DYLIB", "LC_FUNCTION_STARTS",
                                   "LC_DATA_IN_CODE", "LC_CODE_SIGNATURE"}));
}

TEST_P(PhoneBinary, IsNamedAsItIsInstalled) {
    EXPECT_EQ(test::linesOf(read("llvm-otool-19 -D")).back(),
              "/Library/MobileSubstrate/DynamicLibraries/ZelkaCB.dylib");
}

using Symbols = std::map<std::string, std::set<std::string>>;

// The symbols that a binary wants of each library.
Symbols importsOf(const std::string& path) {
    Symbols imported;
    const std::regex line(R"(\(undefined\).* external (\S+) \(from (.*)\))");
    for (const std::string& text : test::linesOf(test::outputOf("llvm-nm-19 -m -u '" + path + "'"))) {
        std::smatch match;
        EXPECT_TRUE(std::regex_search(text, match, line)) << text;
        imported[match[2]].insert(match[1]);
    }
    return imported;
}

// The library and the settings page together: a stub that neither uses any more is one too many.
TEST_P(PhoneBinary, TheTwoImportWhatTheStubsListAndNothingElse) {
    Symbols imported = importsOf(GetParam().path), listed;
    for (auto& [library, symbols] : importsOf(GetParam().page)) imported[library].merge(symbols);
    for (const auto& [library, symbols] : test::stubSymbols(ZELKA_STUBS, GetParam().stubTarget)) {
        const std::string file = std::filesystem::path(library).filename();
        listed[file.substr(0, file.find('.'))] = symbols;
    }
    EXPECT_EQ(imported, listed);
}

TEST_P(PhoneBinary, FindsItsLibrariesWhereAPhoneHasThem) {
    std::set<std::string> loaded, listed;
    const std::string commands = read("llvm-otool-19 -L");
    const std::vector<std::string> lines = test::linesOf(commands);
    // The first line is the file, the second the library itself.
    for (size_t i = 2; i < lines.size(); ++i) loaded.insert(lines[i].substr(1, lines[i].find(" (") - 1));
    for (const auto& [library, symbols] : test::stubSymbols(ZELKA_STUBS, GetParam().stubTarget)) listed.insert(library);
    EXPECT_EQ(loaded, listed);
    // The injection framework's own version is 0: asking for more would refuse it.
    EXPECT_THAT(commands, HasSubstr("CydiaSubstrate (compatibility version 0.0.0"));
}

TEST_P(PhoneBinary, ExportsCreateRoundedCornerPathAndNothingElse) {
    std::vector<std::string> exports;
    for (const std::string& line : test::linesOf(read("llvm-objdump-19 --macho --exports-trie"))) {
        if (line.find("0x") == 0) exports.push_back(line.substr(line.find("  ") + 2));
    }
    EXPECT_THAT(exports, ElementsAre("_createRoundedCornerPath"));
}

TEST_P(PhoneBinary, HasTwoInitialisersInTheirOrder) {
    const std::string commands = loadCommands();
    const size_t section = commands.find("sectname __mod_init_func");
    ASSERT_NE(section, std::string::npos);
    EXPECT_EQ(test::valueAfter(commands.substr(section), "size "), "0x0000000000000010");
    EXPECT_THAT(commands, Not(HasSubstr("__mod_term_func")));

    // Names are gone from the library, so their order is read from the object that has both.
    const std::string object = std::string(GetParam().objects) + "/src/bootstrap/initialisers.cpp.o";
    std::map<std::string, std::string> byOffset;
    for (const std::string& line :
         test::linesOf(test::outputOf("llvm-objdump-19 -r --section=__mod_init_func '" + object + "'"))) {
        if (line.find("RELOC_UNSIGNED") != std::string::npos) byOffset[line.substr(0, 16)] = line;
    }
    ASSERT_EQ(byOffset.size(), 2u);
    EXPECT_THAT(byOffset.begin()->second, HasSubstr("bootstrap"));
    EXPECT_THAT(byOffset.rbegin()->second, HasSubstr("hookHost"));
}

TEST_P(PhoneBinary, IsSignedForOldAndNewSystems) {
    const std::vector<test::CodeDirectory> directories = test::codeDirectories(test::bytesOf(GetParam().path));
    ASSERT_EQ(directories.size(), 2u);
    for (const test::CodeDirectory& directory : directories) {
        EXPECT_EQ(directory.identifier, "com.norvex.ZelkaCB");
        EXPECT_TRUE(directory.adHoc);
        EXPECT_TRUE(directory.matches);
    }
    EXPECT_EQ(directories[0].hashBytes, 20);  // the one that old systems read
    EXPECT_EQ(directories[1].hashBytes, 32);
}

TEST_P(PhoneBinary, TellsNothingOfTheMachineThatBuiltIt) {
    const std::string bytes = test::bytesOf(GetParam().path);
    for (const char* trace : {ZELKA_SOURCES, "node_modules", "/home/", "/root/", "/usr/include"}) {
        EXPECT_EQ(bytes.find(trace), std::string::npos) << trace;
    }
}

std::string phoneCode() { return test::outputOf(std::string("llvm-objdump-19 --macho -d '") + ZELKA_PHONE + "'"); }

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

// No linker for 32-bit phones is to be had; their objects are kept buildable.
TEST(ObjectsFor32BitPhones, AreMadeOfEverySource) {
    int objects = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(ZELKA_OBJECTS "/armv7")) {
        if (file.path().extension() != ".o") continue;
        ++objects;
        const std::string header =
            test::linesOf(test::outputOf("llvm-otool-19 -hv '" + file.path().string() + "'")).back();
        EXPECT_THAT(header, AllOf(HasSubstr("MH_MAGIC "), HasSubstr("ARM "), HasSubstr("V7 "), HasSubstr("OBJECT")));
    }
    EXPECT_GT(objects, 30);
}

}  // namespace
