#include "tests/package/binary.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <ostream>
#include <regex>

#include "tests/package/command.h"

namespace test {

namespace {

const Product kLibrary{"/Library/MobileSubstrate/DynamicLibraries/ZelkaCB.dylib",
                       "com.norvex.ZelkaCB",
                       {"createRoundedCornerPath"},
                       {"bootstrap", "hookHost"}};
const Product kPage{"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/ZelkaCBSettings",
                    "com.norvex.ZelkaCBSettings",
                    {},
                    {"loadPage"}};

}  // namespace

const Binary kArm64{"Arm64", &kLibrary, ZELKA_PHONE, "arm64", "ARM64", "arm64-ios", ZELKA_ARM64 ".map", 8};
const Binary kArmv7{"Armv7", &kLibrary, ZELKA_PHONE, "armv7", "ARM", "armv7-ios", ZELKA_ARMV7 ".map", 4};
const Binary kTwin{"Twin", &kLibrary, ZELKA_TWIN, nullptr, "X86_64", "x86_64-ios-simulator", ZELKA_TWIN ".map", 8};
const Binary kPageArm64{"PageArm64", &kPage,      ZELKA_PAGE_PHONE,        "arm64",
                        "ARM64",     "arm64-ios", ZELKA_PAGE_ARM64 ".map", 8};
const Binary kPageArmv7{"PageArmv7", &kPage, ZELKA_PAGE_PHONE, "armv7", "ARM", "armv7-ios", ZELKA_PAGE_ARMV7 ".map", 4};
const Binary kPageTwin{
    "PageTwin", &kPage, ZELKA_PAGE_TWIN, nullptr, "X86_64", "x86_64-ios-simulator", ZELKA_PAGE_TWIN ".map", 8};

void PrintTo(const Binary& binary, std::ostream* out) { *out << binary.name; }

Part::Part(const Binary& binary) : path_("/tmp/phone-part-XXXXXX"), pointerBytes_(binary.pointerBytes) {
    close(mkstemp(path_.data()));
    if (binary.slice != nullptr) {
        outputOf(std::string("llvm-lipo-19 '") + binary.path + "' -thin " + binary.slice + " -output '" + path_ + "'");
    } else {
        std::filesystem::copy_file(binary.path, path_, std::filesystem::copy_options::overwrite_existing);
    }
    commands_ = read("llvm-otool-19 -l");
    bytes_ = bytesOf(path_);
}

Part::~Part() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

std::multimap<std::uint64_t, std::string> linkedNames(const Binary& binary) {
    std::multimap<std::uint64_t, std::string> names;
    const std::regex line(R"(^(?:0x)?([0-9A-Fa-f]+)\s.*\s(_\S+)$)");
    for (const std::string& text : linesOf(bytesOf(binary.map))) {
        std::smatch match;
        if (std::regex_match(text, match, line)) names.emplace(std::stoull(match[1], nullptr, 16), match[2]);
    }
    EXPECT_FALSE(names.empty()) << binary.map;
    return names;
}

Range Part::section(const std::string& name) const {
    const size_t begin = commands_.find("sectname " + name + "\n");
    if (begin == std::string::npos) return {};
    const std::string text = commands_.substr(begin);
    return {std::stoull(valueAfter(text, "addr "), nullptr, 16), std::stoull(valueAfter(text, "size "), nullptr, 16)};
}

std::uint64_t Part::pointerAt(std::uint64_t address) const {
    const std::string segment = commands_.substr(commands_.find("segname __DATA\n"));
    const std::uint64_t begin = std::stoull(valueAfter(segment, "vmaddr "), nullptr, 16);
    const std::uint64_t offset = std::stoull(valueAfter(segment, "fileoff "));
    std::uint64_t pointer = 0;
    std::memcpy(&pointer, bytes_.substr(offset + (address - begin), pointerBytes_).data(), pointerBytes_);
    return pointer;
}

std::vector<std::uint64_t> Part::pointersIn(const Range& range) const {
    std::vector<std::uint64_t> pointers;
    for (std::uint64_t at = 0; at < range.size; at += pointerBytes_) pointers.push_back(pointerAt(range.address + at));
    return pointers;
}

std::string Part::read(const std::string& command) const { return outputOf(command + " '" + path_ + "'"); }

}  // namespace test
