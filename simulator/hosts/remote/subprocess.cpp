#include "simulator/hosts/remote/subprocess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <map>

namespace hosts {
namespace {

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

struct Pipe {
    phone::Descriptor readEnd, writeEnd;
    bool open() {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) return false;
        readEnd = phone::Descriptor(ends[0]);
        writeEnd = phone::Descriptor(ends[1]);
        return true;
    }
};

// What the child runs after fork(): only calls that are safe there in a program with threads. posix_spawn(3) has no
// way to ask for the signal at the parent's death.
[[noreturn]] void becomeProgram(char* const* arguments, char* const* environment, int input, int output, int errors,
                                pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(127);
    // Ctrl-C at a terminal is for the program that started this one, which ends it in order.
    ::setpgid(0, 0);
    ::dup2(input, STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(errors, STDERR_FILENO);
    ::execve(arguments[0], arguments, environment);
    const char* reason = std::strerror(errno);
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, reason, std::strlen(reason));
    ::_exit(127);
}

}  // namespace

phone::Result<Subprocess> Subprocess::start(const Invocation& invocation) {
    std::vector<std::string> arguments = invocation.arguments;
    arguments.insert(arguments.begin(), invocation.program.string());
    std::vector<std::string> environment = mergedEnvironment(invocation.environment);
    const auto argumentPointers = pointers(arguments);
    const auto environmentPointers = pointers(environment);

    Pipe input;
    Pipe output;
    Subprocess process;
    process.errors_ = phone::Descriptor(::memfd_create("standard-error", MFD_CLOEXEC));
    if (!process.errors_.isOpen() || !input.open() || !output.open()) return phone::failure(std::strerror(errno));
    const pid_t parent = ::getpid();
    process.pid_ = ::fork();
    if (process.pid_ == 0) {
        becomeProgram(argumentPointers.data(), environmentPointers.data(), input.readEnd.get(), output.writeEnd.get(),
                      process.errors_.get(), parent);
    }
    if (process.pid_ < 0) return phone::failure(std::strerror(errno));
    process.input_ = std::move(input.writeEnd);
    process.output_ = std::move(output.readEnd);
    return process;
}

Subprocess::Subprocess(Subprocess&& other) noexcept
    : pid_(std::exchange(other.pid_, -1)),
      ended_(other.ended_),
      status_(other.status_),
      input_(std::move(other.input_)),
      output_(std::move(other.output_)),
      errors_(std::move(other.errors_)) {}

Subprocess::~Subprocess() {
    if (!running()) return;
    ::kill(pid_, SIGKILL);
    wait();
}

bool Subprocess::running() {
    if (pid_ <= 0 || ended_) return false;
    ended_ = ::waitpid(pid_, &status_, WNOHANG) == pid_;
    return !ended_;
}

void Subprocess::wait() {
    if (pid_ <= 0 || ended_) return;
    while (::waitpid(pid_, &status_, 0) < 0 && errno == EINTR) continue;
    ended_ = true;
}

int Subprocess::exitStatus() const { return WIFEXITED(status_) ? WEXITSTATUS(status_) : 128 + WTERMSIG(status_); }

std::string Subprocess::ending() const {
    if (WIFSIGNALED(status_)) return std::string(": ") + ::strsignal(WTERMSIG(status_));
    return " with status " + std::to_string(WEXITSTATUS(status_));
}

std::string Subprocess::standardError() const {
    std::string text;
    char buffer[4096];
    off_t offset = 0;
    for (;;) {
        const ssize_t count = ::pread(errors_.get(), buffer, sizeof buffer, offset);
        if (count <= 0) return text;
        text.append(buffer, static_cast<std::size_t>(count));
        offset += count;
    }
}

}  // namespace hosts
