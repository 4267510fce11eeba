// The commands that README.md shows under "Your own contacts".
#include <sstream>
#include <vector>

#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

namespace fs = std::filesystem;

class ReadmeCommands : public PhoneSim {
  protected:
    void SetUp() override {
        for (const char* folder : {"samples", "docs"}) {
            fs::create_directory_symlink(fs::path(ZELKA_SOURCES) / folder, path_ / folder);
        }
    }
    // The block's lines, but for the one that finds the tool in another build and the one that runs until it is
    // stopped.
    static std::string commands() {
        std::ifstream readme(fs::path(ZELKA_SOURCES) / "README.md");
        std::string block;
        bool inside = false;
        for (std::string line; std::getline(readme, line);) {
            if (inside && line == "```") return block;
            if (inside && line.rfind("phonesim run ", 0) != 0) block += line + "\n";
            if (line.rfind("PATH=", 0) == 0) inside = true;
        }
        return {};
    }
    // All verbs, but for the one that the block leaves out.
    std::vector<std::string> verbs() const {
        std::vector<std::string> names;
        std::istringstream lines(run("--complete ''").out);
        for (std::string line; std::getline(lines, line);) {
            const std::string name = line.substr(0, line.find('\t'));
            if (name != "run") names.push_back(name);
        }
        EXPECT_GT(names.size(), 10u);
        return names;
    }
};

TEST_F(ReadmeCommands, WorkInTheirOrder) {
    std::string script = commands();
    for (const std::string& verb : verbs())
        EXPECT_THAT(script, testing::HasSubstr("\nphonesim " + verb + " ")) << "README.md does not show it";
    // As many as nobody needs to wait for.
    const std::string many = "--contacts-count 10000";
    ASSERT_THAT(script, testing::HasSubstr(many));
    script.replace(script.find(many), many.size(), "--contacts-count 10");
    write("commands.sh", "set -e\nphonesim() { '" PHONESIM "' \"$@\"; }\n" + script);
    const std::string run = "cd '" + path_.string() + "' && bash commands.sh >.out 2>.err";
    EXPECT_EQ(system(run.c_str()), 0) << read(".err");
    EXPECT_EQ(read("out/mine.png").substr(1, 3), "PNG");
}

}  // namespace
