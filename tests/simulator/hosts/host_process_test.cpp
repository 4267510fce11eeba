#include <gmock/gmock.h>
#include <signal.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <thread>

#include "tests/simulator/hosts/host_fixture.h"

namespace {

using hosts::HostKind;
using hosts::HostProcess;
using testing::HasSubstr;

TEST_F(HostTest, SpringBoardStartsWithItsScreenAndQuits) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    const Json info = host.call({{"do", "info"}});
    EXPECT_EQ(info.at("bundleIdentifier"), "com.apple.springboard");
    EXPECT_EQ(info.at("windows"), 1);
    EXPECT_EQ(info.at("libraries"), Json::array());
    EXPECT_EQ(host.quit(), 0);
    EXPECT_FALSE(host.running());
}

TEST_F(HostTest, ViewServiceMakesItsWindowWhenItIsFirstAskedFor) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    EXPECT_EQ(host.call({{"do", "info"}}).at("windows"), 0);
    EXPECT_EQ(host.call({{"do", "info"}}).at("bundleIdentifier"), "net.vantrel.callbarviewservice");
    host.call({{"do", "show"}, {"screen", "recents"}});
    EXPECT_EQ(host.call({{"do", "info"}}).at("windows"), 1);
    EXPECT_EQ(host.quit(), 0);
}

TEST_F(HostTest, PlaysAnotherProcessWhenGivenAnIdentifier) {
    makePhone();
    hosts::HostOptions other = options();
    other.bundleIdentifier = "com.example.other";
    HostProcess host(HostKind::springBoard, other);
    EXPECT_EQ(host.call({{"do", "info"}}).at("bundleIdentifier"), "com.example.other");
}

TEST_F(HostTest, AnswersEveryLineOfAnInputThatHasEnded) {
    makePhone();
    std::ofstream(folder_ / "commands") << "{\"do\":\"show\",\"screen\":\"contacts\"}\n"
                                        << "{\"do\":\"settle\",\"timeout\":10}\n"
                                        << "{\"do\":\"rows\"}\n";
    const std::string program = hosts::programPath(HostKind::callBarViewService);
    EXPECT_EQ(std::system(("cd '" + folder_.string() + "' && '" + program + "' --root '" + root_.string() +
                           "' <commands >answers 2>errors")
                              .c_str()),
              0);
    std::ifstream answers(folder_ / "answers");
    std::vector<Json> lines;
    for (std::string line; std::getline(answers, line);) lines.push_back(Json::parse(line));
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[3].at("rows").size(), 6u);
}

TEST_F(HostTest, StartingInNoPhoneTellsWhy) {
    std::filesystem::create_directories(root_);
    try {
        HostProcess host(HostKind::springBoard, options());
        FAIL() << "started";
    } catch (const hosts::HostError& error) {
        EXPECT_THAT(error.what(), HasSubstr("springboard: ended while asked to start"));
        EXPECT_THAT(error.what(), HasSubstr("device.plist"));
    }
}

TEST_F(HostTest, AHostThatIsNotThereIsNamedWithTheFolder) {
    ::setenv("PHONESIM_HOSTS", "/nonexistent", 1);
    try {
        HostProcess host(HostKind::springBoard, options());
        FAIL() << "started";
    } catch (const hosts::HostError& error) {
        EXPECT_THAT(error.what(), HasSubstr("/nonexistent/springboard"));
    }
    ::unsetenv("PHONESIM_HOSTS");
}

TEST_F(HostTest, WrongCommandsAreErrorsAndTheHostLivesOn) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    EXPECT_THAT(errorOf(host, {{"do", "dance"}}), HasSubstr("no command \"dance\""));
    EXPECT_THAT(errorOf(host, {{"dont", "info"}}), HasSubstr("a command names what to do"));
    EXPECT_THAT(errorOf(host, {{"do", "show"}, {"screen", "keypad"}}), HasSubstr("no screen \"keypad\""));
    EXPECT_THAT(errorOf(host, {{"do", "show"}, {"screen", "search"}}), HasSubstr("needs a \"text\""));
    EXPECT_THAT(errorOf(host, {{"do", "show"}}), HasSubstr("no screen \"\""));
    EXPECT_THAT(errorOf(host, {{"do", "settle"}}), HasSubstr("\"timeout\""));
    EXPECT_THAT(errorOf(host, {{"do", "scroll"}, {"row", 4000}}), HasSubstr("\"row\" that the list has"));
    EXPECT_THAT(errorOf(host, {{"do", "toggle"}, {"list", "keypad"}}), HasSubstr("toggle needs a \"list\""));
    EXPECT_THAT(errorOf(host, {{"do", "monogram"}}), HasSubstr("\"generator\""));
    EXPECT_THAT(errorOf(host, {{"do", "shot"}, {"out", "relative.png"}}), HasSubstr("absolute path"));
    EXPECT_THAT(errorOf(host, {{"do", "shot"}, {"out", "/nonexistent/x.png"}}), HasSubstr("/nonexistent/x.png"));
    EXPECT_EQ(host.call({{"do", "info"}}).at("windows"), 1);
}

TEST_F(HostTest, AHostThatDiesIsAnErrorAndNotAWait) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    ::kill(host.pid(), SIGKILL);
    EXPECT_THAT(errorOf(host, {{"do", "info"}}), testing::AnyOf(HasSubstr("Killed"), HasSubstr("it ended")));
    EXPECT_FALSE(host.running());
}

TEST_F(HostTest, AHostThatDoesNotAnswerInTimeIsAnErrorThatNamesTheCommand) {
    makePhone();
    std::ofstream(root_ / "tmp/a.log") << "what was said last\n";
    HostProcess host(HostKind::springBoard, options());
    ::kill(host.pid(), SIGSTOP);
    try {
        host.call({{"do", "rows"}}, 0.2);
        FAIL() << "answered";
    } catch (const hosts::HostError& error) {
        EXPECT_THAT(error.what(), HasSubstr("did not rows within 0.2 s"));
        EXPECT_THAT(error.what(), HasSubstr("a.log:\nwhat was said last"));
    }
    ::kill(host.pid(), SIGCONT);
    // The late answer is passed over.
    EXPECT_TRUE(host.call({{"do", "info"}}).contains("windows"));
}

TEST_F(HostTest, AnIdleHostSleeps) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    host.call({{"do", "settle"}, {"timeout", 5}});
    const auto ticks = [&host] {
        std::FILE* file = std::fopen(("/proc/" + std::to_string(host.pid()) + "/stat").c_str(), "r");
        char text[1024] = {};
        [[maybe_unused]] const auto count = std::fread(text, 1, sizeof text - 1, file);
        std::fclose(file);
        const char* fields = std::strrchr(text, ')');
        unsigned long user = 0;
        unsigned long system = 0;
        std::sscanf(fields + 2, "%*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %lu %lu", &user, &system);
        return user + system;
    };
    const unsigned long before = ticks();
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_LE(ticks() - before, 10u);
}

}  // namespace
