// The code for 32-bit phones, read back: what the linker and the compiler for them may get wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "tests/package/binary.h"
#include "tests/package/command.h"

namespace {

// The code as a processor of the name would read it. All of them have the vector instructions that are named.
std::vector<std::string> codeFor(const std::string& processor) {
    return test::linesOf(
        test::Part(test::kArmv7).read("llvm-objdump-19 -d --no-show-raw-insn --mattr=+neon --mcpu=" + processor));
}

bool isUnknown(const std::string& line) { return line.find("<unknown>") != std::string::npos; }

// The iPhone 4 has a Cortex-A8. Tables between functions are no instructions to any processor.
TEST(Armv7Code, RunsOnTheFirstPhoneWithSystem7) {
    const std::vector<std::string> oldest = codeFor("cortex-a8"), newer = codeFor("cortex-a15");
    EXPECT_EQ(std::count_if(oldest.begin(), oldest.end(), isUnknown),
              std::count_if(newer.begin(), newer.end(), isUnknown));
    const auto isBarrier = [](const std::string& line) { return line.find("dmb\tish") != std::string::npos; };
    EXPECT_TRUE(
        std::any_of(oldest.begin(), oldest.end(), isBarrier));  // it is a disassembly of code with atomic writes
}

// Phones let functions change r9, other systems of this processor do not. Code that leaves it alone is right on both.
// The assembly is read, in which constants are no instructions.
TEST(Armv7Code, LeavesRegister9Alone) {
    const std::regex uses(R"(^\t[a-z][^@]*[^a-z_]r9\b)");
    int instructions = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(ZELKA_ARMV7_OBJECTS)) {
        if (file.path().extension() != ".s") continue;
        for (const std::string& line : test::linesOf(test::bytesOf(file.path()))) {
            instructions += line.rfind("\tmov\t", 0) == 0 ? 1 : 0;
            EXPECT_FALSE(std::regex_search(line, uses)) << file.path() << ": " << line;
        }
    }
    EXPECT_GT(instructions, 1000);
}

// Phones align 64-bit values and the stack to 4 bytes only. Instructions that ask for more use r4, and only after it
// has been rounded down, or counted from a stack pointer that has been.
TEST(Armv7Code, AsksForNoAlignmentThatPhonesDoNotGive) {
    const std::regex aligned(R"(\tv(ld|st)[1-4]\S*\t.*\[(\w+):\d+\](!?)$)"),
        rounded(R"(\t(bfc\tr4, #0, #4|mov\tr4, sp)$)"), counted(R"(\tadd\tr4, sp, #(\d+)$)"),
        other(R"(\t(?!str|cmp|cmn|tst|push|vst|vld)[a-z]+\t(r4,|\{.*r4))");
    bool isRounded = false;
    int checked = 0;
    for (const std::string& line : codeFor("cortex-a8")) {
        std::smatch match;
        EXPECT_EQ(line.find("ldrexd"), std::string::npos) << line;
        EXPECT_EQ(line.find("strexd"), std::string::npos) << line;
        if (std::regex_search(line, match, aligned)) {
            ++checked;
            EXPECT_EQ(match[2], "r4") << line;
            EXPECT_TRUE(isRounded) << line;
        } else if (std::regex_search(line, rounded)) {
            isRounded = true;
        } else if (std::regex_search(line, match, counted)) {
            isRounded = std::stoi(match[1]) % 16 == 0;
        } else if (std::regex_search(line, other)) {
            isRounded = false;
        }
    }
    EXPECT_GT(checked, 100);
}

// Structs come back through memory, for which messages have an entry of their own; x86-64, with larger registers,
// returns only rectangles that way.
TEST(Armv7Code, AsksForStructsThroughMemory) {
    const auto calls = [](const test::Binary& binary, const char* function) {
        const std::string code = test::Part(binary).read("llvm-objdump-19 --macho -d --no-show-raw-insn");
        const std::regex call(std::string(R"(symbol stub for: )") + function + "$");
        int found = 0;
        for (const std::string& line : test::linesOf(code)) found += std::regex_search(line, call) ? 1 : 0;
        return found;
    };
    EXPECT_GT(calls(test::kArmv7, "_objc_msgSend_stret"), calls(test::kTwin, "_objc_msgSend_stret"));
    EXPECT_EQ(calls(test::kArm64, "_objc_msgSend_stret"), 0);
    EXPECT_GT(calls(test::kArmv7, "_objc_msgSend"), calls(test::kArmv7, "_objc_msgSend_stret"));
}

}  // namespace
