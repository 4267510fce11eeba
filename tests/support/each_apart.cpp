// One process is one phone: when several of an executable's tests are to run, each runs in a process of its own.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// Ends this process with the one test's result. The chosen tests were shared out before.
[[noreturn]] void runAlone(const std::string& test) {
    unsetenv("GTEST_TOTAL_SHARDS");
    unsetenv("GTEST_SHARD_INDEX");
    GTEST_FLAG_SET(filter, test);
    std::exit(RUN_ALL_TESTS());
}

// Runs one test in a copy of this process, which has done no more than to start, and returns whether it passed. Under
// an emulator, starting takes longer than most tests.
bool passes(const std::string& test) {
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) runAlone(test);
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
