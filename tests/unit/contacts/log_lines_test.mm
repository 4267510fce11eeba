#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include "tests/unit/contacts/contacts_test.h"

namespace {

namespace fs = std::filesystem;

// One line of the log that names its operation and its place.
struct LogLine {
    std::string operation, text;
    size_t number;
};

std::vector<LogLine> placedLines(const std::string& log) {
    static const std::regex form("com\\.norvex\\.ZelkaCB: (?:Information|Error) => (.*), \\[Line (\\d+)\\], (.*)");
    std::vector<LogLine> lines;
    for (std::sregex_iterator at(log.begin(), log.end(), form), end; at != end; ++at)
        lines.push_back({(*at)[1], (*at)[3], std::stoul((*at)[2])});
    return lines;
}

// The name that the operation has in any language: up to its first colon, bracket or parenthesis.
std::string nameOf(const std::string& operation) {
    std::smatch found;
    return std::regex_search(operation, found, std::regex("[ *](\\w+)[:\\](]")) ? found[1].str() : operation;
}

std::vector<std::string> linesOf(const fs::path& file) {
    std::ifstream stream(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// Whether a file of the library that knows the operation logs something at that line.
bool isLoggedAt(const LogLine& line) {
    static const std::regex logs("log", std::regex::icase);
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(ZELKA_SOURCES) / "src")) {
        const std::vector<std::string> source = linesOf(entry.path());
        if (line.number < 1 || line.number > source.size()) continue;
        const std::string name = nameOf(line.operation);
        const bool knows =
            std::ranges::any_of(source, [&](const std::string& each) { return each.find(name) != std::string::npos; });
        if (knows && std::regex_search(source[line.number - 1], logs)) return true;
    }
    return false;
}

class LogLines : public test::ContactsTest {
  protected:
    // Has every operation log everything that it may.
    void logEverything() {
        const int contact = addNamed("Anna", "Zuse");
        boot();
        [Utils setContactImage:nil withID:@"nobody"];
        [Utils getContactImageDataFromAB:contact];
        [Utils getContactImageFromAB:contact monogramText:@"AZ"];
        [Utils getContactImageByNumber:@"+1 646 555 0199"];
        [Utils getMonogramTextFromAB:-7];
        replaceByGarbage(test::kAddressBook);
        replaceByGarbage(test::kImages);
        restoreWhenSlept(0.4, test::kAddressBook);
        [Utils getMonogramTextFromAB:contact currentReadCount:4];
        restoreWhenSlept(0.4, test::kImages);
        [Utils getContactImageDataFromAB:contact];
        [Utils getContactImageFromAB:contact monogramText:@"AZ"];
    }
};

// The numbers that are part of the format, wherever the statement stands.
const std::set<size_t> kFixed = {88, 102, 1017, 1329};

TEST_F(LogLines, TellTheLineOfTheirStatement) {
    logEverything();
    std::set<std::string> operations;
    for (const LogLine& line : placedLines(log())) {
        if (kFixed.count(line.number)) continue;
        operations.insert(nameOf(line.operation));
        EXPECT_TRUE(isLoggedAt(line)) << line.operation << " says line " << line.number << ": " << line.text;
    }
    EXPECT_EQ(operations, (std::set<std::string>{"initImageCache", "setContactImage", "getContactImageDataFromAB",
                                                 "getContactImageFromAB", "getContactImageByNumber",
                                                 "getMonogramTextFromAB", "getContactImageFromABForID"}));
}

TEST_F(LogLines, OfOneOperationsStatementsDiffer) {
    logEverything();
    // The texts begin alike when one statement wrote them.
    constexpr size_t kBeginning = 12;
    std::map<std::string, std::map<std::string, std::set<size_t>>> places;
    for (const LogLine& line : placedLines(log()))
        places[line.operation][line.text.substr(0, kBeginning)].insert(line.number);
    for (const auto& [operation, texts] : places) {
        std::set<size_t> numbers;
        for (const auto& [text, own] : texts) {
            EXPECT_EQ(own.size(), 1u) << operation << ": " << text;
            numbers.insert(own.begin(), own.end());
        }
        EXPECT_EQ(numbers.size(), texts.size()) << operation;
    }
    const char* reader = "+[ZelkaCBUtils getMonogramTextFromAB:currentReadCount:]";
    EXPECT_EQ(places[reader].size(), 3u);
}

}  // namespace
