// The stress run: a phone of many contacts whose two served processes scroll without a pause while other processes flip
// its settings and change its address book; and beside it processes whose threads meet in the library's shared state
// (hammer.mm). Counts what crashes, what hangs and what shows a wrong picture.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <nlohmann/json.hpp>
#include <random>
#include <shared_mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/stress/expected_pictures.h"
#include "simulator/hosts/remote/host_process.h"
#include "simulator/maker/make_root.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using Clock = std::chrono::steady_clock;

struct Options {
    double minutes = 5;
    int contacts = 10000;
    unsigned seed = 1;
    std::string library = ZELKA_LIBRARY;
    bool hammerOnly = false;
};

struct Counts {
    std::atomic<long> scrolls{0}, settings{0}, edits{0}, failedChanges{0}, rowsChecked{0}, leftOverRows{0},
        wrongRows{0};
    std::atomic<long> hostCrashes{0}, hostHangs{0};
    std::atomic<long> hammerRuns{0}, hammerCrashes{0}, hammerHangs{0};
    std::atomic<long> lookups{0}, loads{0}, changes{0}, wrongPictures{0}, wrongContacts{0}, missingPictures{0};
};

Options options;
Counts counts;
Clock::time_point end;
// Held shared by whoever changes the phone, and alone by whoever compares a host with the phone.
std::shared_mutex phoneLock;

bool isOver() { return Clock::now() >= end; }

struct Ended {
    int status = 0;
    bool hung = false;
    bool ok() const { return !hung && WIFEXITED(status) && WEXITSTATUS(status) == 0; }
};

// Runs a program to its end, its output into the descriptor; one that takes longer than the seconds is killed.
Ended run(const std::vector<std::string>& words, int output, double seconds) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_t child = -1;
    const int problem = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (problem != 0) {
        std::fprintf(stderr, "stress: %s cannot be started\n", arguments[0]);
        std::exit(1);
    }
    Ended ended;
    const auto latest = Clock::now() + std::chrono::duration<double>(seconds);
    while (waitpid(child, &ended.status, WNOHANG) == 0) {
        if (Clock::now() > latest) {
            ended.hung = true;
            kill(child, SIGKILL);
            waitpid(child, &ended.status, 0);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return ended;
}

fs::path makePhone(const fs::path& directory, const char* name) {
    maker::RootOptions wanted;
    wanted.root = directory / name;
    wanted.contactsCount = options.contacts;
    wanted.extension.library = options.library;
    wanted.extension.filter = ZELKA_FILTER;
    wanted.extension.settingsBundle = ZELKA_BUNDLE;
    auto made = maker::makeRoot(wanted);
    if (!made) {
        std::fprintf(stderr, "stress: %s\n", phone::problemOf(made).c_str());
        std::exit(1);
    }
    return wanted.root;
}

int nowhere() {
    static const int descriptor = open("/dev/null", O_WRONLY | O_CLOEXEC);
    return descriptor;
}

bool phonesim(std::vector<std::string> words) {
    words.insert(words.begin(), PHONESIM);
    return run(words, nowhere(), 60).ok();
}

constexpr const char* kSwitches[] = {"ZelkaCBEnabled",          "ZelkaCBEnabledRoundedPictures",
                                     "ZelkaCBEnabledFavorites", "ZelkaCBEnabledRecents",
                                     "ZelkaCBEnabledContacts",  "ZelkaCBEnabledMonogramPictures"};

// Another process's change: a switch flipped, or a contact renamed or with another photo or none.
void change(const fs::path& root, std::mt19937& random) {
    const std::shared_lock held(phoneLock);
    if (random() % 2 == 0) {
        const bool done =
            phonesim({"set", root, kSwitches[random() % std::size(kSwitches)], random() % 3 == 0 ? "off" : "on"});
        ++(done ? counts.settings : counts.failedChanges);
        return;
    }
    std::vector<std::string> words{"edit", root, std::to_string(1 + random() % 200)};
    switch (random() % 3) {
        case 0:
            words.insert(words.end(), {"--photo", STRESS_PHOTO});
            break;
        case 1:
            words.push_back("--no-photo");
            break;
        default:
            words.insert(words.end(), {"--first", "Name" + std::to_string(random() % 1000)});
    }
    ++(phonesim(words) ? counts.edits : counts.failedChanges);
}

void keepChanging(const fs::path& root, unsigned seed) {
    // A host that shows Contacts reads the whole address book again for each; it shall scroll, too.
    constexpr auto kPause = std::chrono::milliseconds(300);
    std::mt19937 random(seed);
    while (!isOver()) {
        change(root, random);
        std::this_thread::sleep_for(kPause);
    }
}

// The visible rows that show something else than the databases say.
std::vector<std::string> problemsOf(hosts::HostProcess& host, const fs::path& root) {
    // Laying out at the end of the first wait may fetch rows anew, and these queue their pictures.
    for (int wait = 0; wait < 2; ++wait) host.call({{"do", "settle"}, {"timeout", 30}});
    const stress::ExpectedPictures expected(root);
    const Json answer = host.call({{"do", "rows"}});
    std::vector<std::string> problems;
    for (const Json& row : answer.at("rows")) {
        ++counts.rowsChecked;
        if (std::string problem = expected.problemOf(row); !problem.empty()) problems.push_back(std::move(problem));
    }
    return problems;
}

// With every switch on. A lookup that began under older settings may have ended after the caches were emptied, and its
// picture stays: that is how an unlocked cache is. Emptied once more while nothing is being looked up, they must be
// right.
void checkRows(hosts::HostProcess& host, const fs::path& root) {
    const std::unique_lock held(phoneLock);
    for (const char* key : kSwitches) phonesim({"set", root, key, "on"});
    counts.leftOverRows += static_cast<long>(problemsOf(host, root).size());
    phonesim({"set", root, kSwitches[0], "on"});
    for (const std::string& problem : problemsOf(host, root)) {
        ++counts.wrongRows;
        std::printf("wrong picture: %s\n", problem.c_str());
    }
}

void useHost(hosts::HostProcess& host, const fs::path& root, std::mt19937& random) {
    constexpr const char* kScreens[] = {"recents", "contacts", "missed"};
    constexpr int kScrolls = 60;
    host.call({{"do", "show"}, {"screen", kScreens[random() % std::size(kScreens)]}});
    for (int scroll = 0; scroll < kScrolls && !isOver(); ++scroll) {
        host.call({{"do", "scroll"}, {"offset", static_cast<double>(random() % 20000)}});
        ++counts.scrolls;
    }
    checkRows(host, root);
}

void keepHostBusy(hosts::HostKind kind, const fs::path& root, unsigned seed) {
    std::mt19937 random(seed);
    while (!isOver()) {
        try {
            hosts::HostOptions start;
            start.root = root;
            hosts::HostProcess host(kind, start);
            try {
                while (!isOver()) useHost(host, root, random);
            } catch (const hosts::HostError& error) {
                // The process may need a moment to be seen as gone.
                std::this_thread::sleep_for(std::chrono::milliseconds(200));
                ++(host.running() ? counts.hostHangs : counts.hostCrashes);
                std::printf("%s: %s\n", hosts::programName(kind), error.what());
            }
        } catch (const hosts::HostError& error) {
            ++counts.hostCrashes;
            std::printf("%s did not start: %s\n", hosts::programName(kind), error.what());
        }
    }
}

void addResults(int file) {
    std::string text(4096, '\0');
    const ssize_t length = pread(file, text.data(), text.size(), 0);
    const Json results = Json::parse(text.substr(0, length > 0 ? static_cast<std::size_t>(length) : 0), nullptr, false);
    if (!results.is_object()) return;
    counts.lookups += results.value("lookups", 0L);
    counts.loads += results.value("loads", 0L);
    counts.changes += results.value("changes", 0L);
    counts.wrongPictures += results.value("wrongPictures", 0L);
    counts.wrongContacts += results.value("wrongContacts", 0L);
    counts.missingPictures += results.value("missingPictures", 0L);
}

void hammer(const fs::path& root, unsigned seed) {
    constexpr int kSeconds = 10, kPatience = 120;
    const fs::path output = root.parent_path() / "hammer.json";
    while (!isOver()) {
        const int file = open(output.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        const Ended ended =
            run({STRESS_HAMMER, root, std::to_string(kSeconds), std::to_string(seed++)}, file, kSeconds + kPatience);
        ++counts.hammerRuns;
        if (ended.hung)
            ++counts.hammerHangs;
        else if (!ended.ok())
            ++counts.hammerCrashes;
        addResults(file);
        close(file);
    }
}

int report() {
    std::printf(
        "\nServed processes: %ld scrolls, %ld settings flipped, %ld contacts changed (%ld changes refused), %ld rows "
        "checked\n  crashes %ld, hangs %ld, wrong pictures %ld, left over from before a change %ld\n",
        counts.scrolls.load(), counts.settings.load(), counts.edits.load(), counts.failedChanges.load(),
        counts.rowsChecked.load(), counts.hostCrashes.load(), counts.hostHangs.load(), counts.wrongRows.load(),
        counts.leftOverRows.load());
    std::printf(
        "Threads in one process: %ld runs of 10 s, %ld lookups, %ld loads, %ld notifications\n  crashes %ld, "
        "hangs %ld, wrong pictures %ld, missing pictures %ld, wrong contacts %ld\n",
        counts.hammerRuns.load(), counts.lookups.load(), counts.loads.load(), counts.changes.load(),
        counts.hammerCrashes.load(), counts.hammerHangs.load(), counts.wrongPictures.load(),
        counts.missingPictures.load(), counts.wrongContacts.load());
    const long bad = counts.hostCrashes + counts.hostHangs + counts.wrongRows + counts.hammerCrashes +
                     counts.hammerHangs + counts.wrongPictures + counts.missingPictures + counts.wrongContacts;
    return bad == 0 ? 0 : 1;
}

int stressPhone() {
    std::string name = (fs::temp_directory_path() / "zelka-stress-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        std::perror("stress: temporary directory");
        return 1;
    }
    const fs::path directory = name;
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    std::printf("Two phones of %d contacts in %s\n", options.contacts, name.c_str());
    const fs::path scrolled = makePhone(directory, "scrolled");
    const fs::path hammered = makePhone(directory, "hammered");
    end = Clock::now() + std::chrono::milliseconds(static_cast<long>(options.minutes * 60000));
    std::vector<std::thread> threads;
    threads.emplace_back([&] { hammer(hammered, options.seed); });
    if (!options.hammerOnly) {
        threads.emplace_back([&] { keepChanging(scrolled, options.seed + 1); });
        threads.emplace_back([&] { keepHostBusy(hosts::HostKind::springBoard, scrolled, options.seed + 2); });
        threads.emplace_back([&] { keepHostBusy(hosts::HostKind::callBarViewService, scrolled, options.seed + 3); });
    }
    for (std::thread& thread : threads) thread.join();
    fs::remove_all(directory);
    return report();
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Scrolls, flips settings, changes contacts and loads pictures at once, and counts what goes wrong.");
    app.add_option("--minutes", options.minutes, "How long")->check(CLI::PositiveNumber)->capture_default_str();
    app.add_option("--contacts", options.contacts, "How many each phone has")
        ->check(CLI::Range(2000, 1000000))
        ->capture_default_str();
    app.add_option("--seed", options.seed, "Another order of events")->capture_default_str();
    app.add_option("--library", options.library, "Another build of the library, named ZelkaCB.so")
        ->check(CLI::ExistingFile);
    app.add_flag("--hammer-only", options.hammerOnly, "Only the processes whose threads meet, without hosts");
    CLI11_PARSE(app, argc, argv);
    return stressPhone();
}
