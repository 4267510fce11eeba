#include "tests/simulator/tool/background_tool.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace {

constexpr int kPatience = 30'000'000;  // microseconds
constexpr int kTurn = 5'000;

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

BackgroundTool::BackgroundTool(std::filesystem::path folder, const std::vector<std::string>& arguments)
    : folder_(std::move(folder)) {
    std::vector<std::string> texts = {PHONESIM};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    const std::string out = folder_ / ".background.out";
    const std::string err = folder_ / ".background.err";
    pid_ = fork();
    if (pid_ != 0) return;
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    if (chdir(folder_.c_str()) != 0 || dup2(open(out.c_str(), flags, 0644), STDOUT_FILENO) < 0 ||
        dup2(open(err.c_str(), flags, 0644), STDERR_FILENO) < 0) {
        _exit(126);
    }
    execv(PHONESIM, pointers.data());
    _exit(127);
}

BackgroundTool::~BackgroundTool() {
    if (!ended()) end(SIGKILL);
}

std::string BackgroundTool::out() const { return contents(folder_ / ".background.out"); }
std::string BackgroundTool::err() const { return contents(folder_ / ".background.err"); }

int BackgroundTool::count(const std::string& text) const {
    const std::string all = out();
    int found = 0;
    for (auto at = all.find(text); at != std::string::npos; at = all.find(text, at + 1)) ++found;
    return found;
}

bool BackgroundTool::waitFor(const std::string& text, int before) {
    for (int waited = 0; waited < kPatience; waited += kTurn) {
        const bool over = ended();
        if (count(text) > before) return true;
        if (over) return false;
        usleep(kTurn);
    }
    return false;
}

std::vector<pid_t> BackgroundTool::children() const {
    std::ifstream list("/proc/" + std::to_string(pid_) + "/task/" + std::to_string(pid_) + "/children");
    return {std::istream_iterator<pid_t>(list), {}};
}

int BackgroundTool::end(int signal) {
    if (!ended() && signal != 0) kill(pid_, signal);
    for (int waited = 0; waited < kPatience && !ended(); waited += kTurn) usleep(kTurn);
    return ended_ ? status_ : -1;
}

bool BackgroundTool::ended() {
    if (!ended_) ended_ = waitpid(pid_, &status_, WNOHANG) == pid_;
    return ended_;
}
