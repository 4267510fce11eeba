#include "simulator/hosts/remote/host_process.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
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

// The host's name before what went wrong, and what it wrote to standard error behind it.
std::string described(HostKind kind, const std::string& what, const std::string& errors) {
    return std::string(programName(kind)) + ": " + what + (errors.empty() ? "" : "\n" + errors);
}

Subprocess started(HostKind kind, const HostOptions& options, const std::filesystem::path& root) {
    Invocation invocation{
        options.program.empty() ? programPath(kind) : options.program, {"--root", root.string()}, options.environment};
    if (options.withoutExtension) invocation.arguments.emplace_back("--without-extension");
    if (!options.bundleIdentifier.empty()) {
        invocation.arguments.emplace_back("--bundle-identifier");
        invocation.arguments.push_back(options.bundleIdentifier);
    }
    phone::Result<Subprocess> process = Subprocess::start(invocation);
    if (!process) throw HostError(described(kind, "cannot be started: " + process.error().message, ""));
    return std::move(*process);
}

}  // namespace

namespace {

struct Program {
    const char *name, *bundleIdentifier;
};
// In the order of the kinds.
constexpr Program kPrograms[] = {
    {"springboard", "com.apple.springboard"},
    {"callbar_view_service", "net.vantrel.callbarviewservice"},
    {"preferences", "com.apple.Preferences"},
};

const Program& programOf(HostKind kind) { return kPrograms[static_cast<std::size_t>(kind)]; }

}  // namespace

const char* programName(HostKind kind) { return programOf(kind).name; }

const char* bundleIdentifier(HostKind kind) { return programOf(kind).bundleIdentifier; }

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
        for (fs::path above = self.parent_path(); above != above.root_path(); above = above.parent_path()) {
            fs::path candidate = above / "simulator" / "hosts" / programName(kind);
            if (usable(candidate)) return candidate;
        }
    }
    throw HostError(std::string("no host program \"") + programName(kind) +
                    "\": build it, or name its folder in PHONESIM_HOSTS. Looked at:" + looked);
}

HostProcess::HostProcess(HostKind kind, const HostOptions& options)
    : kind_(kind),
      root_(std::filesystem::absolute(options.root)),
      process_(started(kind, options, root_)),
      lines_(process_.output(), process_.input()) {
    const std::string line = readLine(Deadline(options.startTimeoutSeconds), "start");
    if (line != R"({"ready": true})") fail("said \"" + line + "\" instead of being ready");
}

nlohmann::json HostProcess::call(const nlohmann::json& command, double timeoutSeconds) {
    Json numbered = command;
    const long id = nextId_++;
    numbered["id"] = id;
    const std::string what = command.value("do", std::string("?"));
    if (!lines_.write(numbered.dump(-1, ' ', false, Json::error_handler_t::replace))) {
        fail("cannot be asked to " + what + ": " + (running() ? "its pipe failed" : "it ended"));
    }
    const Deadline deadline(timeoutSeconds);
    for (;;) {
        Json reply = Json::parse(readLine(deadline, what), nullptr, false);
        if (reply.is_discarded() || !reply.is_object()) fail("answered " + what + " with something that is not JSON");
        if (reply.contains("event")) events_.push_back(reply);
        // The reply to a command given up earlier may still arrive.
        if (reply.value("id", -1L) != id) continue;
        if (reply.contains("error") && what == "settle") failQuotingLogs(reply["error"].get<std::string>());
        if (reply.contains("error")) fail(reply["error"].get<std::string>());
        reply.erase("id");
        return reply;
    }
}

std::string HostProcess::readLine(const Deadline& deadline, const std::string& waitingFor) {
    for (;;) {
        if (std::optional<std::string> line = lines_.take()) return *line;
        switch (lines_.receive(deadline.secondsLeft())) {
            case LineStream::Arrival::bytes:
                break;
            case LineStream::Arrival::nothing:
                if (deadline.secondsLeft() > 0) break;
                failQuotingLogs("did not " + waitingFor + " within " + secondsText(deadline.seconds()));
            case LineStream::Arrival::end:
                failWithEnd(" while asked to " + waitingFor);
        }
    }
}

std::vector<nlohmann::json> HostProcess::events() {
    LineStream::Arrival arrival = LineStream::Arrival::bytes;
    while (arrival == LineStream::Arrival::bytes) arrival = lines_.receive(0);
    if (arrival == LineStream::Arrival::end) failWithEnd("");
    while (std::optional<std::string> line = lines_.take()) {
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
    return process_.exitStatus();
}

void HostProcess::failWithEnd(const std::string& when) {
    process_.wait();
    failQuotingLogs("ended" + when + process_.ending());
}

void HostProcess::fail(const std::string& what) {
    if (!running()) failQuotingLogs(what);
    throw HostError(described(kind_, what, standardError()));
}

void HostProcess::failQuotingLogs(const std::string& what) const {
    throw HostError(described(kind_, what, standardError()) + logEnds(root_));
}

}  // namespace hosts
