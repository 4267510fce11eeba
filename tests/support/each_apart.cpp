// One process is one phone: when several of an executable's tests are to run, each runs in a process of its own.
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

// What this process was started with.
std::vector<std::string> arguments() {
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> words;
    for (std::string word; std::getline(file, word, '\0');) words.push_back(word);
    return words;
}

// Runs one test in a new process with this one's arguments, and returns whether it passed.
bool passes(const std::string& test) {
    std::vector<std::string> words = arguments();
    words.push_back("--gtest_filter=" + test);
    std::vector<char*> line;
    for (std::string& word : words) line.push_back(word.data());
    line.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, line.data(), environ) != 0) return false;
    int status = 0;
    if (waitpid(child, &status, 0) != child) return false;
    if (WIFSIGNALED(status)) std::printf("%s ended with signal %d\n", test.c_str(), WTERMSIG(status));
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::vector<std::string> chosen(const testing::UnitTest& program) {
    std::vector<std::string> tests;
    for (int i = 0; i < program.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *program.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const testing::TestInfo& test = *suite.GetTestInfo(j);
            if (test.should_run()) tests.push_back(std::string(suite.name()) + "." + test.name());
        }
    }
    return tests;
}

class EachApart : public testing::EmptyTestEventListener {
    void OnTestProgramStart(const testing::UnitTest& program) override {
        const std::vector<std::string> tests = chosen(program);
        if (tests.size() < 2) return;
        std::string failed;
        for (const std::string& test : tests) {
            std::fflush(stdout);
            if (!passes(test)) failed += "\n    " + test;
        }
        std::printf("%zu tests, each in a process of its own. Failed:%s\n", tests.size(),
                    failed.empty() ? " none" : failed.c_str());
        std::fflush(stdout);
        _exit(failed.empty() ? 0 : 1);
    }
};

const bool listens = (testing::UnitTest::GetInstance()->listeners().Append(new EachApart), true);

}  // namespace
