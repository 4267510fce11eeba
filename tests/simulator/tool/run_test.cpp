// A phone that is kept running, as a user with two terminals meets it; and what Ctrl-C does.
#include <signal.h>
#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

#include "tests/simulator/tool/background_tool.h"
#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using testing::HasSubstr;

namespace fs = std::filesystem;

constexpr const char* kScreens[] = {"recents", "missed", "favorites", "contacts"};

class PhoneSimRun : public PhoneSim {
  protected:
    PhoneSimRun() {
        // The same colours in every host.
        setenv("PHONESIM_RANDOM", "7", 1);
    }

    // Ann, who has a picture, has called.
    void makePhoneWithCalls() {
        write("calls.csv", "-1h, (212) 555-0142, missed\n-2h, (917) 555-0186, missed\n");
        makePhone(" --calls calls.csv");
        ASSERT_EQ(run("edit phone 1 --photo " + bundlePicture("recent")).err, "");
    }
    static std::string bundlePicture(const std::string& name) {
        return "phone/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/" + name + ".png";
    }

    std::string picture(const std::string& process, const std::string& screen) const {
        return read("phone/screens/" + process + "/" + screen + ".png");
    }
    // The same screen of a host started just now.
    std::string freshPicture(const std::string& process, const std::string& screen) const {
        EXPECT_EQ(run("shot phone " + screen + " --out fresh.png --process " + process).err, "");
        return read("fresh.png");
    }

    // Another process does something: a screen changes by it, and comes to be as a fresh host shows it.
    void expectRedraw(BackgroundTool& tool, const std::string& arguments, const std::string& process,
                      const std::string& screen) const {
        const std::string line = process + " " + screen + ": screen changed";
        const std::string before = picture(process, screen);
        int told = tool.count(line);
        ASSERT_EQ(run(arguments).err, "");
        const std::string fresh = freshPicture(process, screen);
        EXPECT_TRUE(fresh != before) << arguments;
        do {
            ASSERT_TRUE(tool.waitFor(line, told++)) << arguments << "\n" << tool.out() << tool.err();
        } while (picture(process, screen) != fresh);
    }

    static bool allGone(const std::vector<pid_t>& processes) {
        return std::none_of(processes.begin(), processes.end(), [](pid_t each) { return kill(each, 0) == 0; });
    }
    // How many phones are in the making.
    long workshops() const {
        return std::count_if(fs::directory_iterator(path_), fs::directory_iterator(), [](const auto& entry) {
            return entry.path().filename().string().rfind(".phone", 0) == 0;
        });
    }
    bool partsAreLeft(const fs::path& folder) const {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path().string().find(".part") != std::string::npos) return true;
        }
        return false;
    }
};

void expectExit(int status, int expected, const BackgroundTool& tool) {
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == expected) << status << "\n" << tool.out() << tool.err();
}

TEST_F(PhoneSimRun, DrawsEveryScreenOfAllProcessesAndStopsCleanly) {
    makePhoneWithCalls();
    BackgroundTool tool(path_, {"run", "phone"});
    ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
    for (const std::string process : {"springboard", "callbar"}) {
        for (const std::string screen : kScreens) {
            EXPECT_EQ(picture(process, screen).substr(1, 3), "PNG") << process << screen;
            EXPECT_EQ(tool.count(process + " " + screen + ": started"), 1);
        }
    }
    EXPECT_EQ(tool.count("settings zelkacb: started"), 1);
    ASSERT_EQ(run("shot phone settings/zelkacb --out fresh.png").err, "");
    EXPECT_TRUE(picture("settings", "zelkacb") == read("fresh.png"));
    EXPECT_TRUE(picture("callbar", "recents") == freshPicture("callbar", "recents"));
    EXPECT_TRUE(picture("springboard", "contacts") == freshPicture("springboard", "contacts"));
    const std::vector<pid_t> hosts = tool.children();
    EXPECT_EQ(hosts.size(), 9u);
    expectExit(tool.end(SIGINT), 0, tool);
    EXPECT_EQ(tool.count("stopped\n"), 1);
    EXPECT_EQ(tool.err(), "");
    EXPECT_TRUE(allGone(hosts));
    EXPECT_FALSE(partsAreLeft(path_ / "phone/screens"));
}

TEST_F(PhoneSimRun, APhoneWithoutTheSettingsPageGoesWithoutItsPicture) {
    makePhoneWithCalls();
    fs::remove(path_ / "phone/Library/PreferenceLoader/Preferences/ZelkaCB.plist");
    BackgroundTool tool(path_, {"run", "phone"});
    ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
    EXPECT_FALSE(fs::exists(path_ / "phone/screens/settings"));
    expectExit(tool.end(SIGINT), 0, tool);
    EXPECT_THAT(run("run phone --process settings").err, HasSubstr("no entry \"zelkacb\""));
}

TEST_F(PhoneSimRun, RedrawsWhatOtherProcessesChangeAndNothingElse) {
    makePhoneWithCalls();
    BackgroundTool tool(path_, {"run", "phone", "--process", "callbar"});
    ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
    EXPECT_FALSE(fs::exists(path_ / "phone/screens/springboard"));
    expectRedraw(tool, "set phone ZelkaCBEnabledRoundedPictures off", "callbar", "recents");
    expectRedraw(tool, "set phone ZelkaCBEnabledContacts off", "callbar", "contacts");
    expectRedraw(tool, "edit phone 1 --photo " + bundlePicture("user_monogram"), "callbar", "missed");
    EXPECT_EQ(tool.count("notification com.norvex.ZelkaCBRoundedPicturesEnabledNotification\n"), 1);
    EXPECT_EQ(tool.count("notification __ABDataBaseChangedByOtherProcessNotification\n"), 1);

    // The same again changes nothing that is seen. The second process's change tells that the first's is over.
    const int recents = tool.count("callbar recents: screen changed");
    const int contacts = tool.count("callbar contacts: screen changed");
    ASSERT_EQ(run("set phone ZelkaCBEnabledContacts off").err, "");
    expectRedraw(tool, "set phone ZelkaCBEnabledContacts on", "callbar", "contacts");
    EXPECT_EQ(tool.count("callbar contacts: screen changed"), contacts + 1);
    EXPECT_EQ(tool.count("callbar recents: screen changed"), recents);
    expectExit(tool.end(SIGTERM), 0, tool);
}

TEST_F(PhoneSimRun, TheContactsListFollowsEveryEdit) {
    makePhoneWithCalls();
    BackgroundTool tool(path_, {"run", "phone", "--process", "callbar"});
    ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
    expectRedraw(tool, "edit phone 1 --photo " + bundlePicture("user_monogram"), "callbar", "contacts");
    expectRedraw(tool, "edit phone 1 --photo " + bundlePicture("recent@2x"), "callbar", "contacts");
    expectRedraw(tool, "edit phone 1 --first Xaver", "callbar", "contacts");
    expectRedraw(tool, "edit phone 1 --delete", "callbar", "contacts");
    expectExit(tool.end(SIGTERM), 0, tool);
}

// Seconds of the day, from the line's beginning.
double timeOf(const std::string& line) {
    int hours = 0, minutes = 0;
    double seconds = 0;
    EXPECT_EQ(sscanf(line.c_str(), "%d:%d:%lf ", &hours, &minutes, &seconds), 3) << line;
    return hours * 3600 + minutes * 60 + seconds;
}

TEST_F(PhoneSimRun, DrawsAScreenAtMostOnceInTheInterval) {
    makePhoneWithCalls();
    BackgroundTool tool(path_, {"run", "phone", "--process", "callbar", "--interval", "1"});
    ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
    const std::string change = "callbar recents: screen changed";
    for (int flip = 0; flip < 3; ++flip) {
        ASSERT_EQ(run(std::string("set phone ZelkaCBEnabledRecents ") + (flip % 2 ? "on" : "off")).err, "");
        ASSERT_TRUE(tool.waitFor(change, flip)) << tool.out();
    }
    std::vector<double> times;
    std::istringstream lines(tool.out());
    for (std::string line; std::getline(lines, line);) {
        if (line.find(change) != std::string::npos) times.push_back(timeOf(line));
    }
    ASSERT_GE(times.size(), 3u) << tool.out();
    for (std::size_t i = 1; i < times.size(); ++i) {
        // The lines come a little later than the pictures; midnight may lie between.
        EXPECT_GE(std::fmod(times[i] - times[i - 1] + 86400, 86400), 0.6) << tool.out();
    }
    expectExit(tool.end(SIGINT), 0, tool);
}

TEST_F(PhoneSimRun, RefusesASecondRunAndAReplacedPhone) {
    makePhoneWithCalls();
    {
        BackgroundTool tool(path_, {"run", "phone", "--process", "springboard"});
        ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
        for (const char* arguments : {"run phone", "new phone --force"}) {
            Outcome second = run(arguments);
            EXPECT_EQ(second.status, 1) << arguments;
            EXPECT_THAT(second.err,
                        HasSubstr("phone: is being run by process " + std::to_string(tool.pid()) + " already"))
                << arguments;
        }
        expectExit(tool.end(SIGINT), 0, tool);
    }
    BackgroundTool again(path_, {"run", "phone", "--process", "springboard"});
    EXPECT_TRUE(again.waitFor("running; ")) << again.err();
}

TEST_F(PhoneSimRun, TellsWhenAHostDiesAndEndsTheOthers) {
    makePhoneWithCalls();
    BackgroundTool tool(path_, {"run", "phone", "--process", "springboard"});
    ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
    const std::vector<pid_t> hosts = tool.children();
    ASSERT_EQ(hosts.size(), 4u);
    kill(hosts[1], SIGKILL);
    expectExit(tool.end(0), 1, tool);
    EXPECT_THAT(tool.err(), HasSubstr("phonesim: springboard missed: springboard: ended: Killed"));
    EXPECT_TRUE(allGone(hosts));
}

TEST_F(PhoneSimRun, StoppedWhileItStartsEndsCleanly) {
    makePhoneWithCalls();
    BackgroundTool tool(path_, {"run", "phone"});
    ASSERT_TRUE(tool.waitFor("springboard recents: started")) << tool.err();
    expectExit(tool.end(SIGINT), 0, tool);
    EXPECT_EQ(tool.count("running; "), 0);
}

TEST_F(PhoneSimRun, SaysWhatItNeeds) {
    Outcome none = run("run phone");
    EXPECT_EQ(none.status, 1);
    EXPECT_THAT(none.err, HasSubstr("is not a phone root"));
    makePhoneWithCalls();
    write("phone/screens", "in the way");
    Outcome blocked = run("run phone --process callbar");
    EXPECT_EQ(blocked.status, 1);
    EXPECT_THAT(blocked.err, HasSubstr("screens"));
    EXPECT_EQ(read("phone/screens"), "in the way");
}

TEST_F(PhoneSimRun, AskedAgainItEndsAtOnce) {
    makePhoneWithCalls();
    BackgroundTool tool(path_, {"run", "phone", "--process", "springboard"});
    ASSERT_TRUE(tool.waitFor("running; ")) << tool.err();
    // Hosts that do not answer keep the tool waiting.
    const std::vector<pid_t> hosts = tool.children();
    for (const pid_t host : hosts) kill(host, SIGSTOP);
    kill(tool.pid(), SIGINT);
    usleep(200'000);
    ASSERT_EQ(kill(tool.pid(), 0), 0);
    const int status = tool.end(SIGINT);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
    EXPECT_EQ(tool.count("stopped\n"), 0);
}

TEST_F(PhoneSimRun, NewThatWaitsForItsContactsCanBeStopped) {
    ASSERT_EQ(mkfifo((path_ / "pipe").c_str(), 0600), 0);
    for (const char* contacts : {"pipe", "/dev/zero"}) {
        for (const char* option : {"--contacts", "--calls"}) {
            fs::create_symlink(contacts, path_ / "endless.csv");
            BackgroundTool tool(path_, {"new", "phone", option, "endless.csv"});
            for (int turn = 0; turn < 2000 && workshops() == 0; ++turn) usleep(5000);
            const int status = tool.end(SIGINT);
            EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << contacts << status;
            EXPECT_EQ(tool.err(), "phonesim: stopped\n");
            EXPECT_EQ(workshops(), 0);
            fs::remove(path_ / "endless.csv");
        }
    }
}

TEST_F(PhoneSimRun, NewThatIsStoppedLeavesNothingAndThePhoneThatWasThere) {
    makePhone();
    write("phone/tmp/mine", "mine");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        BackgroundTool tool(path_, {"new", "phone", "--force", "--contacts-count", "1000000"});
        for (int turn = 0; turn < 2000 && workshops() == 0; ++turn) usleep(5000);
        ASSERT_EQ(workshops(), 1);
        const int status = tool.end(signal);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
        EXPECT_THAT(tool.err(), HasSubstr("phonesim: stopped\n"));
        EXPECT_EQ(workshops(), 0);
        EXPECT_EQ(read("phone/tmp/mine"), "mine");
    }
}

}  // namespace
