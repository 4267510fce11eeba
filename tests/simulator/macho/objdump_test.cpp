// The reader against LLVM's: what llvm-objdump prints of a library is what was read from it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <list>
#include <map>
#include <ostream>
#include <regex>
#include <set>
#include <sstream>
#include <tuple>

#include "simulator/runtime/macho/format.h"
#include "simulator/runtime/macho/image_reader.h"
#include "simulator/runtime/macho/unwind_table.h"
#include "tests/package/command.h"
#include "tests/support/parameter_name.h"

namespace {

using namespace phone::macho;

using File = std::vector<std::uint8_t>;

File bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

struct Library {
    std::string name, path;
};

void PrintTo(const Library& library, std::ostream* out) { *out << library.name; }

// Whatever processor it is for.
phone::Result<Image> readThin(const File& file) {
    Header32 header{};
    if (file.size() >= sizeof header) std::memcpy(&header, file.data(), sizeof header);
    return readImage(file, header.cpu);
}

// What the build makes, and what is sound of the fuzz target's corpus.
std::vector<Library> libraries() {
    std::vector<Library> found;
    std::istringstream made(MADE_LIBRARIES);
    for (std::string path; std::getline(made, path, '|');) {
        const std::filesystem::path file = path;
        found.push_back({file.parent_path().filename().string() + "_" + file.stem().string(), path});
    }
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLE_LIBRARIES)) {
        if (readThin(bytesOf(entry.path())))
            found.push_back({"corpus_" + entry.path().filename().string(), entry.path()});
    }
    return found;
}

class ReaderAgainstObjdump : public testing::TestWithParam<Library> {
  protected:
    void SetUp() override {
        const phone::Result<Image> image = readThin(file_);
        ASSERT_EQ(phone::problemOf(image), "");
        image_ = *image;
    }

    // The matches of a line's pattern in what the tool prints.
    std::vector<std::smatch> printed(const std::string& option, const std::string& pattern) {
        text_.push_back(test::outputOf("llvm-objdump-19 --macho " + option + " '" + GetParam().path + "'"));
        const std::regex line(pattern, std::regex::multiline);
        const std::string& text = text_.back();
        return {std::sregex_iterator(text.begin(), text.end(), line), std::sregex_iterator()};
    }

    const File file_ = bytesOf(GetParam().path);
    Image image_;

  private:
    std::list<std::string> text_;  // which the matches point into
};

std::uint64_t hexadecimal(const std::string& digits) { return std::stoull(digits, nullptr, 16); }

TEST_P(ReaderAgainstObjdump, PointersThatMove) {
    std::multiset<std::uint64_t> expected;
    for (const std::smatch& match : printed("--rebase", R"(^\S+ +\S+ +0x(\w+) +pointer$)"))
        expected.insert(hexadecimal(match[1]));
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ((std::multiset(image_.rebases.begin(), image_.rebases.end())), expected);
}

// Address, symbol, addend, whether it may be missing, whether it is of the weak table.
using Row = std::tuple<std::uint64_t, std::string, std::int64_t, bool, bool>;

TEST_P(ReaderAgainstObjdump, Binds) {
    std::multiset<Row> expected, read;
    const std::string place = R"(^\S+ +\S+ +0x(\w+) +)", symbol = R"(([^\s(]\S*)( \(weak_import\))?$)";
    for (const std::smatch& match : printed("--bind", place + R"(pointer +(-?\d+) +.* )" + symbol))
        expected.emplace(hexadecimal(match[1]), match[3], std::stoll(match[2]), match[4].matched, false);
    for (const std::smatch& match : printed("--lazy-bind", place + ".* " + symbol))
        expected.emplace(hexadecimal(match[1]), match[2], 0, match[3].matched, false);
    for (const std::smatch& match : printed("--weak-bind", place + R"(pointer +(-?\d+) +)" + symbol))
        expected.emplace(hexadecimal(match[1]), match[3], std::stoll(match[2]), true, true);
    for (const Bind& bind : image_.binds)
        read.emplace(bind.address, bind.symbol, bind.addend, bind.optional, bind.coalesced);
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(read, expected);
}

TEST_P(ReaderAgainstObjdump, Exports) {
    std::map<std::string, std::uint64_t> expected, read;
    for (const std::smatch& match : printed("--exports-trie", R"(^0x(\w+) +(\S+)$)"))
        expected[match[2]] = hexadecimal(match[1]);
    for (const Export& symbol : image_.exports) read[symbol.symbol] = symbol.address;
    EXPECT_EQ(read, expected);
}

TEST_P(ReaderAgainstObjdump, UnwindInformation) {
    if (image_.unwindInfo.size == 0) {
        EXPECT_TRUE(printed("--unwind-info", "function offset=").empty());
        EXPECT_EQ(image_.pointerBytes, 4u);  // 32-bit phones have none of it
        return;
    }
    const Segment& segment = *image_.segmentOf(image_.unwindInfo.address, image_.unwindInfo.size);
    const UnwindTable table =
        readUnwindTable(segment.contents.subspan(image_.unwindInfo.address - segment.address, image_.unwindInfo.size));
    std::vector<std::pair<std::uint64_t, std::uint64_t>> expected, read;
    for (const std::smatch& match :
         printed("--unwind-info", R"(function offset=0x(\w+), encoding(?:\[\d+\])?=0x(\w+)$)"))
        expected.emplace_back(hexadecimal(match[1]), hexadecimal(match[2]));
    for (const UnwindRow& row : table.functions) read.emplace_back(row.begin, row.encoding);
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(read, expected);

    std::map<std::uint32_t, std::uint32_t> landings;
    for (const std::smatch& match : printed("--unwind-info", R"(function offset=0x(\w+), LSDA offset=0x(\w+)$)"))
        landings[static_cast<std::uint32_t>(hexadecimal(match[1]))] = static_cast<std::uint32_t>(hexadecimal(match[2]));
    EXPECT_EQ(table.landings, landings);

    std::vector<std::uint32_t> personalities;
    for (const std::smatch& match : printed("--unwind-info", R"(personality\[\d+\]: 0x(\w+)$)"))
        personalities.push_back(static_cast<std::uint32_t>(hexadecimal(match[1])));
    EXPECT_EQ(table.personalities, personalities);
}

INSTANTIATE_TEST_SUITE_P(Libraries, ReaderAgainstObjdump, testing::ValuesIn(libraries()), test::ParameterName());

}  // namespace
