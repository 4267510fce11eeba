#include "simulator/hosts/remote/host_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

namespace hosts {

// The end of a wait, kept with its length for the message.
class HostProcess::Deadline {
  public:
    explicit Deadline(double seconds)
        : seconds_(seconds),
          end_(Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds))) {}

    double seconds() const { return seconds_; }
    double secondsLeft() const { return std::chrono::duration<double>(end_ - Clock::now()).count(); }

  private:
    using Clock = std::chrono::steady_clock;
    double seconds_;
    Clock::time_point end_;
};

namespace {

using Json = nlohmann::json;

std::string secondsText(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%g s", seconds);
    return text;
}

// "NAME=value" strings: this process's environment with the given variables in place of its own.
std::vector<std::string> mergedEnvironment(const std::vector<std::pair<std::string, std::string>>& added) {
    std::map<std::string, std::string> variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const auto equals = text.find('=');
        variables[text.substr(0, equals)] = equals == std::string::npos ? "" : text.substr(equals + 1);
    }
    for (const auto& [name, value] : added) variables[name] = value;
    std::vector<std::string> result;
    result.reserve(variables.size());
    for (const auto& [name, value] : variables) result.emplace_back(name).append("=").append(value);
    return result;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (auto& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

// The last lines of the logs that processes of the phone write: what a host says in the end may stand there.
std::string logEnds(const std::filesystem::path& root) {
    constexpr std::streamoff kLength = 600;
    std::string text;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(root / "tmp", error)) {
        std::ifstream log(entry.path(), std::ios::binary | std::ios::ate);
        if (entry.path().extension() != ".log" || !log) continue;
        const std::streamoff size = log.tellg();
        std::string end(static_cast<std::size_t>(std::min(size, kLength)), '\0');
        log.seekg(size - static_cast<std::streamoff>(end.size()));
        log.read(end.data(), static_cast<std::streamsize>(end.size()));
        text += "\nThe end of " + entry.path().string() + ":\n" + end;
    }
    return text;
}

struct Pipe {
    int readEnd = -1;
    int writeEnd = -1;
    bool open() {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) return false;
        readEnd = ends[0];
        writeEnd = ends[1];
        return true;
    }
};

// Only calls that are safe between fork and exec in a program with threads.
[[noreturn]] void becomeHost(const char* program, char* const* arguments, char* const* environment, int input,
                             int output, int errors, pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(127);
    // Ctrl-C at a terminal is for the program that started the host, which ends it in order.
    ::setpgid(0, 0);
    ::dup2(input, STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(errors, STDERR_FILENO);
    ::execve(program, arguments, environment);
    const char* reason = std::strerror(errno);
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, reason, std::strlen(reason));
    ::_exit(127);
}

}  // namespace

const char* programName(HostKind kind) {
    return kind == HostKind::springBoard ? "springboard" : "callbar_view_service";
}

const char* bundleIdentifier(HostKind kind) {
    return kind == HostKind::springBoard ? "com.apple.springboard" : "net.vantrel.callbarviewservice";
}

std::filesystem::path programPath(HostKind kind) {
    namespace fs = std::filesystem;
    std::string looked;
    const auto usable = [&looked](const fs::path& candidate) {
        looked += "\n  " + candidate.string();
        return ::access(candidate.c_str(), X_OK) == 0;
    };
    if (const char* folder = std::getenv("PHONESIM_HOSTS"); folder != nullptr && *folder != '\0') {
        if (fs::path candidate = fs::path(folder) / programName(kind); usable(candidate)) return candidate;
    } else {
        std::error_code error;
        const fs::path self = fs::read_symlink("/proc/self/exe", error);
        for (fs::path folder2 = self.parent_path(); folder2 != folder2.root_path(); folder2 = folder2.parent_path()) {
            fs::path candidate = folder2 / "simulator" / "hosts" / programName(kind);
            if (usable(candidate)) return candidate;
        }
    }
    throw HostError(std::string("no host program \"") + programName(kind) +
                    "\": build it, or name its folder in PHONESIM_HOSTS. Looked at:" + looked);
}

HostProcess::HostProcess(HostKind kind, const HostOptions& options)
    : root_(std::filesystem::absolute(options.root)), name_(programName(kind)) {
    try {
        spawn(kind, options);
        const std::string line = readLine(Deadline(options.startTimeoutSeconds), "start");
        if (line != R"({"ready": true})") fail("said \"" + line + "\" instead of being ready");
    } catch (...) {
        release();
        throw;
    }
}

HostProcess::~HostProcess() { release(); }

void HostProcess::spawn(HostKind kind, const HostOptions& options) {
    const std::string program = (options.program.empty() ? programPath(kind) : options.program).string();
    std::vector<std::string> arguments{program, "--root", root_.string()};
    if (options.withoutExtension) arguments.emplace_back("--without-extension");
    if (!options.bundleIdentifier.empty()) {
        arguments.emplace_back("--bundle-identifier");
        arguments.push_back(options.bundleIdentifier);
    }
    std::vector<std::string> environment = mergedEnvironment(options.environment);
    const auto argumentPointers = pointers(arguments);
    const auto environmentPointers = pointers(environment);

    Pipe commands;
    Pipe answers;
    standardError_ = ::memfd_create("host-stderr", MFD_CLOEXEC);
    const bool opened = standardError_ >= 0 && commands.open() && answers.open();
    commands_ = commands.writeEnd;
    answers_ = answers.readEnd;
    const pid_t parent = ::getpid();
    if (opened) pid_ = ::fork();
    if (pid_ == 0) {
        becomeHost(program.c_str(), argumentPointers.data(), environmentPointers.data(), commands.readEnd,
                   answers.writeEnd, standardError_, parent);
    }
    const std::string reason = std::strerror(errno);
    if (commands.readEnd >= 0) ::close(commands.readEnd);
    if (answers.writeEnd >= 0) ::close(answers.writeEnd);
    if (pid_ < 0) fail("cannot be started: " + reason);
}

nlohmann::json HostProcess::call(const nlohmann::json& command, double timeoutSeconds) {
    Json numbered = command;
    const long id = nextId_++;
    numbered["id"] = id;
    const std::string what = command.value("do", std::string("?"));
    const std::string line = numbered.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
    // A host that has ended closes the pipe; that must be an error here and not a signal.
    struct sigaction ignore {};
    struct sigaction before {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &ignore, &before);
    std::size_t written = 0;
    while (written < line.size()) {
        const ssize_t count = ::write(commands_, line.data() + written, line.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) break;
        written += static_cast<std::size_t>(count);
    }
    ::sigaction(SIGPIPE, &before, nullptr);
    if (written < line.size()) fail("cannot be asked to " + what + ": " + (running() ? "its pipe failed" : "it ended"));

    const Deadline deadline(timeoutSeconds);
    for (;;) {
        Json answer = Json::parse(readLine(deadline, what), nullptr, false);
        if (answer.is_discarded() || !answer.is_object()) fail("answered " + what + " with something that is not JSON");
        if (answer.contains("event")) events_.push_back(answer);
        // An answer to a command given up earlier may still arrive.
        if (answer.value("id", -1L) != id) continue;
        if (answer.contains("error") && what == "settle") failQuotingLogs(answer["error"].get<std::string>());
        if (answer.contains("error")) fail(answer["error"].get<std::string>());
        answer.erase("id");
        return answer;
    }
}

std::string HostProcess::readLine(const Deadline& deadline, const std::string& waitingFor) {
    for (;;) {
        if (std::optional<std::string> line = takeLine()) return *line;
        const double left = deadline.secondsLeft();
        struct pollfd wait {
            answers_, POLLIN, 0
        };
        const int ready = left > 0 ? ::poll(&wait, 1, static_cast<int>(std::ceil(left * 1000))) : 0;
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) failQuotingLogs("did not " + waitingFor + " within " + secondsText(deadline.seconds()));
        readMore(" while asked to " + waitingFor);
    }
}

std::optional<std::string> HostProcess::takeLine() {
    const auto end = unread_.find('\n');
    if (end == std::string::npos) return std::nullopt;
    std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return line;
}

void HostProcess::readMore(const std::string& when) {
    char buffer[65536];
    ssize_t count = 0;
    do {
        count = ::read(answers_, buffer, sizeof buffer);
    } while (count < 0 && errno == EINTR);
    if (count > 0) {
        unread_.append(buffer, static_cast<std::size_t>(count));
        return;
    }
    int status = 0;
    const bool reaped = !ended_ && ::waitpid(pid_, &status, 0) == pid_;
    if (reaped) {
        ended_ = true;
        exitStatus_ = status;
    }
    fail("ended" + when +
         (WIFSIGNALED(exitStatus_) ? std::string(": ") + ::strsignal(WTERMSIG(exitStatus_))
                                   : " with status " + std::to_string(WEXITSTATUS(exitStatus_))));
}

std::vector<nlohmann::json> HostProcess::events() {
    struct pollfd wait {
        answers_, POLLIN, 0
    };
    while (::poll(&wait, 1, 0) > 0) readMore("");
    while (std::optional<std::string> line = takeLine()) {
        Json event = Json::parse(*line, nullptr, false);
        if (event.is_object() && event.contains("event")) events_.push_back(std::move(event));
    }
    return std::exchange(events_, {});
}

int HostProcess::quit(double timeoutSeconds) {
    if (running()) {
        call({{"do", "quit"}}, timeoutSeconds);
        const Deadline deadline(timeoutSeconds);
        while (running()) {
            if (deadline.secondsLeft() <= 0) fail("did not end within " + secondsText(timeoutSeconds));
            ::usleep(2000);
        }
    }
    return WIFEXITED(exitStatus_) ? WEXITSTATUS(exitStatus_) : 128 + WTERMSIG(exitStatus_);
}

bool HostProcess::running() {
    if (pid_ <= 0 || ended_) return false;
    int status = 0;
    const pid_t changed = ::waitpid(pid_, &status, WNOHANG);
    if (changed == pid_) {
        ended_ = true;
        exitStatus_ = status;
    }
    return !ended_;
}

std::string HostProcess::standardError() const {
    std::string text;
    char buffer[4096];
    off_t offset = 0;
    for (;;) {
        const ssize_t count = ::pread(standardError_, buffer, sizeof buffer, offset);
        if (count <= 0) return text;
        text.append(buffer, static_cast<std::size_t>(count));
        offset += count;
    }
}

void HostProcess::release() {
    if (running()) {
        ::kill(pid_, SIGKILL);
        while (::waitpid(pid_, &exitStatus_, 0) < 0 && errno == EINTR) continue;
        ended_ = true;
    }
    for (int* descriptor : {&commands_, &answers_, &standardError_}) {
        if (*descriptor >= 0) ::close(*descriptor);
        *descriptor = -1;
    }
}

void HostProcess::fail(const std::string& what) const {
    if (ended_) failQuotingLogs(what);
    throw HostError(told(what));
}

void HostProcess::failQuotingLogs(const std::string& what) const { throw HostError(told(what) + logEnds(root_)); }

std::string HostProcess::told(const std::string& what) const {
    std::string text = name_ + ": " + what;
    if (const std::string errors = standardError(); !errors.empty()) text += "\n" + errors;
    return text;
}

}  // namespace hosts
