// The phone kept running, with pictures of its screens.
#include <poll.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>

#include "simulator/hosts/remote/host_process.h"
#include "simulator/runtime/notifications/notification_watcher.h"
#include "simulator/tool/built_extension.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/host_start.h"
#include "simulator/tool/run_lock.h"
#include "simulator/tool/stop_signal.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

struct Run {
    std::string root;
    std::string process = "all";
    double interval = 0.1;
    double timeout = 60;
};

struct Process {
    const char* name;
    hosts::HostKind kind;
    std::vector<std::string> screens;
};

const std::vector<Process>& processes() {
    static const std::vector<std::string> lists = {"recents", "missed", "favorites", "contacts"};
    static const std::vector<Process> all = {
        {"springboard", hosts::HostKind::springBoard, lists},
        {"callbar", hosts::HostKind::callBarViewService, lists},
        {"settings", hosts::HostKind::preferences, {"settings/zelkacb"}},
    };
    return all;
}

// Of several parts, the last: a screen's picture has its name.
std::string shortName(const std::string& screen) { return screen.substr(screen.rfind('/') + 1); }

// One line an event, at once: somebody may be following.
void report(const std::string& event) {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto part = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    std::tm local{};
    localtime_r(&seconds, &local);
    char time[16];
    std::strftime(time, sizeof time, "%H:%M:%S", &local);
    std::printf("%s.%03d %s\n", time, static_cast<int>(part), event.c_str());
    std::fflush(stdout);
}

// One screen of one of the phone's processes, played by a host of its own so that all of them are on at once.
class Screen {
    // With the screen's name before what goes wrong: the host's own name stands for four of them.
    template <class Call>
    auto called(Call call) {
        try {
            return call();
        } catch (const hosts::HostError& error) {
            throw Problem(name_ + ": " + error.what());
        }
    }

  public:
    Screen(const Process& process, const std::string& screen, const fs::path& root, const Run& run)
        : name_(std::string(process.name) + " " + shortName(screen)), host_(startHost(process.kind, root, false)) {
        const fs::path folder = root / "screens" / process.name;
        fs::create_directories(folder);
        called([&] { show(screen, folder, run); });
        report(name_ + ": started");
    }

    int descriptor() const { return host_->eventsDescriptor(); }

    void reportEvents() {
        for (const nlohmann::json& event : called([this] { return host_->events(); })) {
            if (event.at("event") != "picture") throw Problem(name_ + ": " + event.at("text").get<std::string>());
            report(name_ + ": screen changed");
        }
    }

    void quit() {
        const int status = called([this] { return host_->quit(); });
        if (status != 0) throw Problem(name_ + ": the host ended with status " + std::to_string(status));
    }

  private:
    void show(const std::string& screen, const fs::path& folder, const Run& run) {
        const nlohmann::json settle = {{"do", "settle"}, {"timeout", run.timeout}};
        // The host knows better what it waits for in vain: time enough for it to say so.
        const double patience = run.timeout + 10;
        // As a person would wait for the list that the process starts with before going on to another.
        host_->call(settle, patience);
        host_->call({{"do", "show"}, {"screen", screen}}, patience);
        host_->call(settle, patience);
        const std::string out = (folder / shortName(screen)).string() + ".png";
        host_->call({{"do", "watch"}, {"out", out}, {"interval", run.interval}}, patience);
    }

    std::string name_;
    std::unique_ptr<hosts::HostProcess> host_;
};

// Where the phone's Settings app has the page from; a phone may be without it.
constexpr const char* kPageEntry = "Library/PreferenceLoader/Preferences/ZelkaCB.plist";

bool isWanted(const Process& process, const std::string& chosen, const fs::path& root) {
    if (chosen == process.name) return true;
    if (process.kind == hosts::HostKind::preferences) return chosen == "all" && fs::exists(root / kPageEntry);
    return chosen == "all" || chosen == "both";
}

std::vector<Screen> startScreens(const fs::path& root, const Run& run, const StopSignal& stop) {
    std::vector<Screen> screens;
    for (const Process& process : processes()) {
        if (!isWanted(process, run.process, root)) continue;
        for (const std::string& screen : process.screens) {
            if (stop.received() != 0) return screens;
            screens.emplace_back(process, screen, root, run);
        }
    }
    return screens;
}

void follow(std::vector<Screen>& screens, phone::NotificationWatcher& notifications, const StopSignal& stop) {
    std::vector<pollfd> waits = {{stop.descriptor(), POLLIN, 0}, {notifications.descriptor(), POLLIN, 0}};
    for (const Screen& screen : screens) waits.push_back({screen.descriptor(), POLLIN, 0});
    while (stop.received() == 0) {
        for (const std::string& name : notifications.arrived()) report("notification " + name);
        for (Screen& screen : screens) screen.reportEvents();
        if (poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR) {
            throw Problem(std::string("cannot wait: ") + std::generic_category().message(errno));
        }
    }
}

void runPhone(const Run& run) {
    requireRoot(run.root);
    const fs::path root = fs::canonical(run.root);
    const RunLock lock = RunLock::take(root).value();
    const StopSignal stop;
    phone::NotificationWatcher notifications;
    phone::require(notifications.open(root));
    warnOfDamage(root);
    warnOfStaleLibrary(root);
    std::vector<Screen> screens = startScreens(root, run, stop);
    if (stop.received() == 0) report("running; the pictures are in " + (root / "screens").string());
    follow(screens, notifications, stop);
    for (Screen& screen : screens) screen.quit();
    report("stopped");
}

}  // namespace

void addRun(CLI::App& app) {
    auto run = std::make_shared<Run>();
    CLI::App* verb =
        app.add_subcommand("run", "Keep a phone running, with pictures of its screens as they are at the moment");
    verb->add_option("ROOT", run->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("--process", run->process,
                     "The process to run: springboard, callbar, both of these, settings, or all (default)")
        ->check(CLI::IsMember({"springboard", "callbar", "both", "settings", "all"}));
    verb->add_option("--interval", run->interval,
                     "Seconds at least from one picture of a screen to its next (default: 0.1)")
        ->check(CLI::Range(0.001, 3600.0));
    verb->add_option("--timeout", run->timeout, "Seconds to wait for a host to settle at the start (default: 60)")
        ->check(CLI::Range(0.001, 86400.0));
    verb->footer(
        "Runs until it is stopped (Ctrl-C, or SIGTERM): then it exits with 0, or with 1 as soon as a host dies.\n"
        "The pictures are ROOT/screens/PROCESS/SCREEN.png, PROCESS being springboard or callbar and SCREEN recents,\n"
        "missed, favorites or contacts, and ROOT/screens/settings/zelkacb.png, the page in the Settings app. Each is "
        "replaced as a whole when what is on its screen has changed. A line on\n"
        "standard output reports each event: \"callbar recents: started\", \"notification NAME\",\n"
        "\"callbar recents: screen changed\", \"stopped\". A phone is run by one phonesim at a time.\n"
        "\nExample, with a second terminal:\n"
        "  phonesim run phone\n"
        "                        phonesim set phone ZelkaCBEnabledRoundedPictures off\n"
        "                        phonesim edit phone \"Ann Lee\" --photo face.jpg");
    verb->callback([run] { runPhone(*run); });
}

}  // namespace tool
